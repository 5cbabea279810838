// The table of interactions and the neighbourhood of one.

const most_neighbours = 20;
const direction_signs = {
  known: "→",
  first_to_second: "→",
  second_to_first: "←",
  none: "—"
};

const interaction_columns = [
  {title: "First", text: (i) => proteins[interactions.first[i]], value: (i) => name_rank[interactions.first[i]]},
  {
    title: "",
    text: (i) => element("span", {title: direction_of(i)}, direction_signs[direction_of(i)]),
    value: (i) => interactions.direction[i]
  },
  {title: "Second", text: (i) => proteins[interactions.second[i]], value: (i) => name_rank[interactions.second[i]]},
  {title: "Status", text: (i) => marked(status_of(i)), value: (i) => interactions.status[i]},
  {title: "Regret", text: regret_text, value: (i) => interactions.regret_min[i], is_number: true},
  {title: "Pairs", text: (i) => interactions.pairs[i], value: (i) => interactions.pairs[i], is_number: true},
];

function interaction_text(i) {
  return [proteins[interactions.first[i]], direction_signs[direction_of(i)], proteins[interactions.second[i]]].join(
    " ");
}

// The arc to draw: as chosen, or as the line of the file has it.
function drawn_arc(i) {
  return 2 * i + (direction_of(i) === "second_to_first" ? 1 : 0);
}

function neighbourhood_arcs(chosen) {
  const ends = new Set([interactions.first[chosen], interactions.second[chosen]]);
  const near = [];
  for (let i = 0; i < num_interactions; ++i) {
    if (i !== chosen && (ends.has(interactions.first[i]) || ends.has(interactions.second[i]))) near.push(i);
  }
  near.sort((a, b) => interactions.pairs[b] - interactions.pairs[a] || a - b);
  return {arcs: [chosen, ...near.slice(0, most_neighbours)].map(drawn_arc), num_near: near.length};
}

// The selection with the columns of interactions.tsv, escaped as there.
function interactions_tsv(rows) {
  const letters = {"\\": "\\\\", "\t": "\\t", "\n": "\\n", "\r": "\\r"};
  const cell = (value) => value === none ? "" : String(value).replace(/[\\\t\n\r]/g, (c) => letters[c]);
  const lines = rows.map(
    (i) =>
      [proteins[interactions.first[i]], proteins[interactions.second[i]], file_of(i), interactions.line[i],
       interactions.confidence[i], direction_of(i), interactions.pairs[i], interactions.regret_min[i],
       interactions.regret_max[i], status_of(i)]);
  const titles = "first second file line confidence direction pairs regret_min regret_max status".split(" ");
  return [titles, ...lines].map((line) => line.map(cell).join("\t") + "\n").join("");
}

function start_interactions() {
  const drawing = make_drawing(by_id("interaction-drawing"));
  const [protein, status, regret, file] =
    ["interaction-protein", "interaction-status", "interaction-regret", "interaction-file"].map(by_id);
  fill_select(status, [
    ["", `all ${count_text(num_interactions)}`],
    ...data.words.interaction_status.filter((word) => status_counts[word] > 0)
      .map((word) => [word, `${word} (${count_text(status_counts[word])})`])
  ]);
  fill_select(regret, [["", "any"], ...regret_classes.map((one, k) => [k, one.name]), [none, "none"]]);
  fill_select(file, [["", "all"], ...data.words.file.map((word) => [word, word])]);
  const table = make_table(
    by_id("interaction-table"), "Interactions", interaction_columns,
    {pick: show_interaction, sorted_by: 5, descending: true, empty: "No such interaction."});

  function filter() {
    const wanted = protein.value.trim().toLowerCase();
    const found = [];
    for (let i = 0; i < num_interactions; ++i) {
      if (
        (status.value === "" || status_of(i) === status.value) && (file.value === "" || file_of(i) === file.value) &&
        (regret.value === "" || regret_class(i) === Number(regret.value)) &&
        (lower_names[interactions.first[i]].includes(wanted) || lower_names[interactions.second[i]].includes(wanted))) {
        found.push(i);
      }
    }
    table.show(found);
  }

  function show_interaction(i) {
    const name = interaction_text(i);
    const {arcs, num_near} = neighbourhood_arcs(i);
    const others = num_near > most_neighbours
      ? `the ${most_neighbours} of its ${count_text(num_near)} neighbouring interactions with the most pairs`
      : `its ${plural(num_near, "neighbouring interaction")}`;
    by_id("interaction-name").textContent = name;
    by_id("interaction-facts")
      .replaceChildren(
        facts([
          ["Status", marked(status_of(i))], ["Direction", direction_of(i).replaceAll("_", " ")],
          ["Regret", regret_text(i)], ["Explained pairs", interactions.pairs[i]],
          ["Confidence", interactions.confidence[i]], ["Line", `${file_of(i)}, ${interactions.line[i]}`]
        ]),
        element("p", {class: "note"}, `Drawn: it and ${others}.`));
    drawing.show(
      arcs, [interactions.first[i], interactions.second[i]],
      `${name} with ${others}. The table of steps says the same in words.`);
    by_id("interaction-steps").replaceChildren(step_table(arcs));
  }

  when_settled([protein, status, regret, file], filter);
  by_id("interaction-download")
    .addEventListener(
      "click",
      () => download("interactions-selected.tsv", "text/tab-separated-values", interactions_tsv(table.rows())));
  filter();
  if (num_interactions > 0) table.choose(table.rows()[0]);
  return (i) => {
    table.choose(i);
    by_id("interaction-name").focus({preventScroll: true});
    by_id("interaction-detail").scrollIntoView({block: "nearest"});
  };
}
