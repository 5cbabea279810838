// The part of a network on which an answer rests: what lies on a shortest path of a pair.
#pragma once

#include <functional>

#include "importing/import_plan.hpp"

// Leaves out every interaction and protein that lies on no shortest path of any pair, and
// every pair without a path; gives the number of these. Undirected and test interactions
// are passed both ways, as a run does.
//
// All shortest paths of all pairs remain, and leaving something out makes no path shorter,
// so distances are what they were, the shortest paths are the same, and with them the rows
// of the integer program: what was left out had a variable in no row but its own.
//
// `watch` is told after each cause how many pairs, of all, are done.
long keep_shortest_paths(imported_network& network, const std::function<void(int done, int all)>& watch = {});
