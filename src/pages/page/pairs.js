// The pair explorer.

const most_arcs_drawn = 60;

const pair_columns = [
  {title: "Cause", text: (pair) => proteins[pairs.cause[pair]], value: (pair) => name_rank[pairs.cause[pair]]},
  {title: "Effect", text: (pair) => proteins[pairs.effect[pair]], value: (pair) => name_rank[pairs.effect[pair]]},
  {title: "Status", text: (pair) => marked(pair_status(pair)), value: (pair) => pairs.status[pair]},
  {
    title: "Steps",
    text: (pair) => pairs.distance[pair] === none ? "" : pairs.distance[pair],
    value: (pair) => pairs.distance[pair],
    is_number: true
  },
];

const why_words = {
  no_outgoing: "no interaction leads out of the cause",
  no_entering: "no interaction leads into the effect",
  different_components: "cause and effect lie in parts of the network that nothing joins",
  no_directed_path: "known directions leave no path"
};

function pair_facts(pair) {
  const against = pairs.against[pair];
  const given_up = [];
  for (let k = 0; k < against.length; k += 2) given_up.push(pair_text(against[k], against[k + 1]));
  if (pairs.more_against[pair] > 0) given_up.push(`${pairs.more_against[pair]} more`);
  const price = price_text(pair);
  return facts([
    ["Status", marked(pair_status(pair))],
    ["Why", why_words[pairs.why[pair]] ?? pairs.why[pair]],
    ["Steps", pairs.distance[pair] === none ? "" : pairs.distance[pair]],
    [
      "Shortest paths",
      pairs.num_paths[pair] === "" ? "" : `${pairs.num_paths[pair]}, of which ${pairs.num_open_paths[pair]} open`
    ],
    [
      "Price",
      price === ""      ? ""
        : price === "0" ? "0: another optimum explains it"
                        : `${price}: an orientation that explains it explains so many pairs less in all`
    ],
    ["Would give up", given_up.join(", ")],
    ["Line in ko", pairs.line[pair]],
  ]);
}

// Arcs to draw for a pair, and a sentence of what they are.
function pair_picture(pair, draw_all) {
  const status = pair_status(pair);
  if (status !== "explained" && status !== "lost") return {arcs: [], text: ""};
  const is_lost = status === "lost";
  const all = is_lost ? all_path_arcs(pair) : open_path_arcs(pair);
  const kind = is_lost ? "shortest paths in the network as read" : "open shortest paths";
  if (all.length <= most_arcs_drawn || draw_all) {
    return {arcs: all, text: `Drawn: all ${kind}, ${plural(all.length, "interaction")}.`};
  }
  const arcs =
    is_lost ? least_turned_path(pair, distances_from(pairs.cause[pair], any_arc)) : arcs_along(pairs.path[pair]);
  const which = is_lost ? "the path with the fewest interactions to turn" : "the path whose weakest regret is largest";
  return {arcs, text: `The ${kind} have ${plural(all.length, "interaction")}. Drawn: ${which}.`, is_part: true};
}

function what_blocks(pair) {
  if (pair_status(pair) !== "lost") return null;
  const path = least_turned_path(pair, distances_from(pairs.cause[pair], any_arc));
  const turned = path.filter((arc) => arc_state(arc) === "turned");
  const names =
    turned.map((arc) => `${pair_text(head_of(arc), tail_of(arc))} (regret ${regret_text(arc >> 1) || "not computed"})`);
  return element(
    "p", {class: "note"},
    turned.length === 0 ? "Nothing on it runs the other way: it lacks only directions that nothing has chosen."
                        : `In its way: ${plural(turned.length, "interaction")} that ${
                            turned.length === 1 ? "runs" : "run"} the other way, ${names.join(", ")}.`);
}

function start_pairs() {
  const drawing = make_drawing(by_id("pair-drawing"));
  const [cause, effect, status] = ["pair-cause", "pair-effect", "pair-status"].map(by_id);
  fill_select(status, [
    ["", `all ${count_text(num_pairs)}`],
    ...data.words.pair_status.filter((word) => pair_counts[word] > 0)
      .map((word) => [word, `${word.replace("_", " ")} (${count_text(pair_counts[word])})`])
  ]);
  const table =
    make_table(by_id("pair-table"), "Knockout pairs", pair_columns, {pick: show_pair, empty: "No such pair."});

  function filter() {
    const [wanted_cause, wanted_effect] = [cause, effect].map((input) => input.value.trim().toLowerCase());
    const found = [];
    for (let pair = 0; pair < num_pairs; ++pair) {
      if (
        lower_names[pairs.cause[pair]].includes(wanted_cause) &&
        lower_names[pairs.effect[pair]].includes(wanted_effect) &&
        (status.value === "" || pair_status(pair) === status.value)) {
        found.push(pair);
      }
    }
    table.show(found);
  }

  function show_pair(pair, draw_all = false) {
    const picture = pair_picture(pair, draw_all === true);
    const name = pair_text(pairs.cause[pair], pairs.effect[pair]);
    by_id("pair-name").textContent = name;
    by_id("pair-facts")
      .replaceChildren(
        pair_facts(pair), what_blocks(pair) ?? "",
        element(
          "p", {class: "note"}, picture.text, " ",
          picture.is_part ? element("button", {type: "button", onclick: () => show_pair(pair, true)}, "Draw all")
                          : ""));
    drawing.show(
      picture.arcs, [pairs.cause[pair], pairs.effect[pair]],
      `${name}, ${pair_status(pair)}. ${picture.text} The table of steps says the same in words.`);
    by_id("pair-steps").replaceChildren(picture.arcs.length > 0 ? step_table(picture.arcs) : "");
  }

  when_settled([cause, effect, status], filter);
  filter();
  if (num_pairs > 0) table.choose(table.rows()[0]);
  return (pair) => {
    table.choose(pair);
    by_id("pair-name").focus({preventScroll: true});
    by_id("pair-detail").scrollIntoView({block: "nearest"});
  };
}
