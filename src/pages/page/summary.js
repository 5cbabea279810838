// What a person asks first.

function figure(title, number, note) {
  return element(
    "div", {}, element("dt", {}, title),
    element("dd", {}, element("div", {class: "number"}, number), element("div", {class: "soft"}, note)));
}

function proof_sentence(run, explained) {
  if (!run) return "Whether this is proven best is not known: run.json is missing.";
  if (run.bound <= explained) return "Proven: no choice of directions explains more.";
  return `Not proven best: no choice explains more than ${count_text(run.bound)} ` +
    `(gap ${percent((run.bound - explained) / Math.max(explained, 1))}).`;
}

// One bar for all orientable interactions, with the numbers beside it as text.
function directions_bar() {
  const statuses = ["decided", "tied", "open", "unused"].filter((status) => status_counts[status] > 0);
  const total = statuses.reduce((sum, status) => sum + status_counts[status], 0);
  let x = 0;
  const parts = statuses.map((status) => {
    const width = 1000 * status_counts[status] / total;
    const part =
      svg_element("rect", {x: x + 0.5, y: 0, width: Math.max(width - 1, 0.5), height: 14, fill: `var(--${status})`});
    x += width;
    return part;
  });
  return [
    svg_element(
      "svg", {
        viewBox: "0 0 1000 14",
        preserveAspectRatio: "none",
        "aria-hidden": "true",
        style: "max-width: none; height: 14px"
      },
      parts),
    element(
      "ul", {class: "legend"},
      statuses.map(
        (status) => element(
          "li", {}, colour_mark(status),
          `${status} ${count_text(status_counts[status])} (${percent(status_counts[status] / total)})`)))
  ];
}

function start_summary() {
  const {run, evaluation} = data;
  const explained = pair_counts.explained;
  const reachable = explained + pair_counts.lost;
  const decidable = num_interactions - status_counts.known;
  const without = num_pairs - reachable;
  by_id("folder").textContent = run?.input ? `on ${run.input}` : "";
  by_id("headline").textContent = `${count_text(explained)} of ${plural(reachable, "knockout pair")} with a path ` +
    `${reachable === 1 ? "is" : "are"} explained`;
  by_id("proof").textContent = proof_sentence(run, explained);
  document.title = `netorient report ${run?.input ?? ""}`;
  by_id("figures").append(
    ...
      [figure(
         "Pairs explained", percent(explained / Math.max(num_pairs, 1)),
         `${count_text(explained)} explained, ${count_text(pair_counts.lost)} lost in conflicts, ` +
           `${count_text(without)} without a path, of ${count_text(num_pairs)}`),
       figure(
         "Directions decided", count_text(status_counts.decided),
         `of ${plural(decidable, "orientable interaction")}: every optimum has them`),
       figure("Directions tied", count_text(status_counts.tied), "could be turned without losing a pair"),
       figure("Without direction", count_text(status_counts.unused), "no explained pair can use them"),
       status_counts.open === 0
         ? null
         : figure("Directions open", count_text(status_counts.open), "not proven either way in the time"),
       evaluation ? figure("Hidden directions found", ...evaluation_figure(evaluation))
                  : figure("How often right", "–", "not measured: run netorient-tools evaluate"),
  ].filter((made) => made !== null));
  if (decidable > 0) by_id("directions-bar").append(...directions_bar());
}
