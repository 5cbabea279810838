// Lost pairs by price, and the interactions that stand against most of them.

function lost_pairs() {
  const lost = [];
  for (let pair = 0; pair < num_pairs; ++pair)
    if (pair_status(pair) === "lost") lost.push(pair);
  return lost;
}

// How many lost pairs want an interaction turned. Pairs of one cause share a search.
function wanted_otherwise(lost) {
  const wanted = new Map();
  const distances = new Map();
  for (const pair of lost) {
    const cause = pairs.cause[pair];
    if (!distances.has(cause)) distances.set(cause, distances_from(cause, any_arc));
    for (const arc of least_turned_path(pair, distances.get(cause))) {
      if (arc_state(arc) === "turned") wanted.set(arc >> 1, (wanted.get(arc >> 1) ?? 0) + 1);
    }
  }
  return wanted;
}

function start_conflicts(show_pair, show_interaction) {
  const lost = lost_pairs();
  make_table(
    by_id("lost-table"), "Lost pairs by price",
    [
      {
        title: "Pair",
        text: (pair) => pair_text(pairs.cause[pair], pairs.effect[pair]),
        value: (pair) => name_rank[pairs.cause[pair]]
      },
      {
        title: "Price",
        text: price_text,
        value: (pair) => pairs.price_min[pair] + pairs.price_max[pair] / 1e6,
        is_number: true
      },
      {title: "Steps", text: (pair) => pairs.distance[pair], value: (pair) => pairs.distance[pair], is_number: true},
    ],
    {pick: show_pair, sorted_by: 1, descending: true, empty: "No pair is lost."})
    .show(lost);

  // Not needed for the first look, and the one thing here that takes time on a large network.
  setTimeout(() => {
    const wanted = wanted_otherwise(lost);
    make_table(
      by_id("wanted-table"), "Interactions wanted the other way",
      [
        {title: "Interaction", text: interaction_text, value: (i) => name_rank[interactions.first[i]]},
        {title: "Lost pairs", text: (i) => wanted.get(i), value: (i) => wanted.get(i), is_number: true},
        {title: "Explained", text: (i) => interactions.pairs[i], value: (i) => interactions.pairs[i], is_number: true},
        {title: "Regret", text: regret_text, value: (i) => interactions.regret_min[i], is_number: true},
      ],
      {pick: show_interaction, sorted_by: 1, descending: true})
      .show(wanted.keys());
  }, 0);
}
