// The data that stand in the page: columns of numbers, words by position.

const data = JSON.parse(by_id("data").textContent);
const {proteins, interactions, pairs} = data;
const none = -1;  // where a table has an empty cell

const num_interactions = interactions.first.length;
const num_pairs = pairs.cause.length;

function file_of(i) {
  return data.words.file[interactions.file[i]];
}
function direction_of(i) {
  return data.words.direction[interactions.direction[i]];
}
function status_of(i) {
  return data.words.interaction_status[interactions.status[i]];
}
function pair_status(pair) {
  return data.words.pair_status[pairs.status[pair]];
}
function pair_text(cause, effect) {
  return `${proteins[cause]} → ${proteins[effect]}`;
}

// "3", "0–4" where it is known as a range only, "" where there is none.
function range_text(min, max) {
  if (min === none && max === none) return "";
  if (min === max) return String(min);
  return max === none ? `≥ ${min}` : `${Math.max(min, 0)}–${max}`;
}
function regret_text(i) {
  return range_text(interactions.regret_min[i], interactions.regret_max[i]);
}
function price_text(pair) {
  return range_text(pairs.price_min[pair], pairs.price_max[pair]);
}

// Classes of regret as `evaluate` has them. A range counts by its lower end, which is proven.
const regret_classes = [
  {name: "0", min: 0, max: 0},
  {name: "1", min: 1, max: 1},
  {name: "2–3", min: 2, max: 3},
  {name: "4–9", min: 4, max: 9},
  {name: "10+", min: 10, max: Infinity},
];
function regret_class(i) {
  const regret = interactions.regret_min[i];
  return regret === none ? none : regret_classes.findIndex((one) => regret >= one.min && regret <= one.max);
}

// How often each word occurs: {explained: 88, lost: 3, ...}.
function counts(positions, words) {
  const found = Object.fromEntries(words.map((word) => [word, 0]));
  for (const position of positions) ++found[words[position]];
  return found;
}
const pair_counts = counts(pairs.status, data.words.pair_status);
const status_counts = counts(interactions.status, data.words.interaction_status);

// Alphabetical, with numbers inside names by their value.
const by_name = new Intl.Collator("en", {numeric: true}).compare;
const name_rank = new Int32Array(proteins.length);
proteins.map((name, protein) => protein)
  .sort((a, b) => by_name(proteins[a], proteins[b]) || a - b)
  .forEach((protein, rank) => {
    name_rank[protein] = rank;
  });
const lower_names = proteins.map((name) => name.toLowerCase());
