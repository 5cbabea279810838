// Shortest paths. An arc is an interaction with a sense: 2 i runs from first to second,
// 2 i + 1 the other way.

function tail_of(arc) {
  return arc % 2 === 0 ? interactions.first[arc >> 1] : interactions.second[arc >> 1];
}
function head_of(arc) {
  return arc % 2 === 0 ? interactions.second[arc >> 1] : interactions.first[arc >> 1];
}

// "open": along the direction chosen; "turned": against it; "free": none is chosen.
function arc_state(arc) {
  const chosen = direction_of(arc >> 1);
  if (chosen === "none") return "free";
  return (chosen === "second_to_first") === (arc % 2 === 1) ? "open" : "turned";
}

// Arcs of the network as read, by the protein that they leave or enter.
function arc_lists(end_of) {
  const lists = proteins.map(() => []);
  for (let i = 0; i < num_interactions; ++i) {
    lists[end_of(2 * i)].push(2 * i);
    if (file_of(i) !== "directed") lists[end_of(2 * i + 1)].push(2 * i + 1);
  }
  return lists;
}
const leaving = arc_lists(tail_of);
const entering = arc_lists(head_of);

// Steps from a protein to each other one, -1 where there is no way.
function distances_from(start, may_use) {
  const distance = new Int32Array(proteins.length).fill(-1);
  const queue = [start];
  distance[start] = 0;
  for (let next = 0; next < queue.length; ++next) {
    for (const arc of leaving[queue[next]]) {
      const head = head_of(arc);
      if (distance[head] < 0 && may_use(arc)) {
        distance[head] = distance[queue[next]] + 1;
        queue.push(head);
      }
    }
  }
  return distance;
}

// The arcs on shortest paths to the effect, nearest to it first; `distance` is from the cause.
function arcs_to(effect, distance, may_use) {
  const arcs = [];
  const queue = [effect];
  const met = new Set(queue);
  for (let next = 0; next < queue.length; ++next) {
    for (const arc of entering[queue[next]]) {
      const tail = tail_of(arc);
      if (distance[tail] >= 0 && distance[tail] + 1 === distance[queue[next]] && may_use(arc)) {
        arcs.push(arc);
        if (!met.has(tail)) {
          met.add(tail);
          queue.push(tail);
        }
      }
    }
  }
  return arcs;
}

const is_open = (arc) => arc_state(arc) === "open";
const any_arc = () => true;

function open_path_arcs(pair) {
  return arcs_to(pairs.effect[pair], distances_from(pairs.cause[pair], is_open), is_open);
}

function all_path_arcs(pair) {
  return arcs_to(pairs.effect[pair], distances_from(pairs.cause[pair], any_arc), any_arc);
}

// Of the shortest paths, the one with the fewest arcs to turn; of several, the one whose
// interactions stand first in the files. Arcs from cause to effect.
function least_turned_path(pair, distance) {
  const arcs = arcs_to(pairs.effect[pair], distance, any_arc);
  const cost = new Map([[pairs.effect[pair], 0]]);
  const onward = new Map();
  for (const arc of arcs) {  // nearest to the effect first, so the head's cost is final
    const total = cost.get(head_of(arc)) + (arc_state(arc) === "turned" ? 1 : 0);
    const tail = tail_of(arc);
    const known = cost.get(tail);
    if (known === undefined || total < known || (total === known && arc < onward.get(tail))) {
      cost.set(tail, total);
      onward.set(tail, arc);
    }
  }
  const path = [];
  for (let at = pairs.cause[pair]; onward.has(at); at = head_of(onward.get(at))) path.push(onward.get(at));
  return path;
}

// The arcs of a path given by its proteins: of two interactions between the same ones, the open one.
function arcs_along(path) {
  return path.slice(1).map((head, k) => leaving[path[k]].find((arc) => head_of(arc) === head && is_open(arc)));
}
