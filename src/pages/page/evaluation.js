// What `evaluate` measured: how often hidden directions were found rightly.

const way_words = {
  all: "all known directions hidden at once",
  folds: "known directions hidden in turns",
  given: "the directions of the test file hidden"
};

function interval_text(one) {
  return one.share === null ? "" : `${percent(one.interval[0])} to ${percent(one.interval[1])}`;
}

// A number for the top of the page and a sentence for under it, with the best baseline.
function evaluation_figure(evaluation) {
  const {all, baselines, hidden} = evaluation;
  if (all.share === null) return ["–", `none of ${count_text(hidden)} hidden directions was given a direction`];
  const best = baselines.reduce((one, other) => (other.score > one.score ? other : one));
  return [
    `${percent(all.share)} right`,
    `of ${count_text(all.oriented)} given a direction, ` +
      `${count_text(hidden)} hidden (95 % interval ${interval_text(all)}); best baseline, ${best.name}: ${
        percent(best.score)}`
  ];
}

function line_of(one, label) {
  return {
    label,
    share: one.share,
    low: one.interval[0],
    high: one.interval[1],
    beside: one.best_baseline,
    is_ours: true
  };
}

function evaluation_plots(evaluation) {
  const {all, baselines, classes} = evaluation;
  if (all.share === null) return [];
  const row =
    (one) => [one.name, one.oriented, one.right, one.share === null ? "" : percent(one.share), interval_text(one)];
  const beside = "Hidden directions found rightly, beside baselines (%)";
  const by_class = "The same by regret (%)";
  const titles = ["", "Given a direction", "Right", "Share", "95 % interval"];
  const short = (name) =>
    name.replace("larger share of known outgoing arcs", "outgoing share").replace("tied (regret 0)", "regret 0");
  return [
    plot(
      beside,
      share_picture(
        beside,
        [
          {...line_of(all, "netorient"), beside: undefined},
          ...baselines.map((one) => ({label: short(one.name), share: one.score, is_ours: false}))
        ]),
      titles,
      [
        row(all),
        ...baselines.map((one) => [one.name, one.decided, one.right, one.share === null ? "" : percent(one.share), ""])
      ],
      `With ${way_words[evaluation.hide]}. Where a baseline says nothing it counts as a coin. ${
        evaluation.conclusion}`),
    plot(
      by_class,
      share_picture(by_class, classes.filter((one) => one.share !== null).map((one) => line_of(one, short(one.name)))),
      [...titles, "Best baseline"],
      classes.map((one) => [...row(one), one.best_baseline === undefined ? "" : percent(one.best_baseline)]),
      "Lines: 95 % intervals. Grey bars: the baseline that does best on the same interactions."),
  ];
}
