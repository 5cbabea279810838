// Minimum cuts in a pair's network.
//
// A pair is satisfied only if every set of arcs that separates its target from its
// root holds an open one: y <= sum of the set's gates. Given fractional gates, the
// set with the smallest sum is a minimum cut (Ford and Fulkerson 1956), found by the
// graph library's maximum flow. Of all minimum cuts the one nearest the root and the
// one nearest the target are taken: they differ most.
//
// Bounded: a call of find_cuts costs one maximum flow at most (Boykov and Kolmogorov
// 2004), over the arcs of one network, and none where a single chain has all that is
// needed; find_bottlenecks, a few passes over the network in an order of its nodes: a
// gate is a bottleneck where it alone passes from the nodes so far to those to come.
#pragma once

#include <vector>

#include "solver/reduce/contested_problem.hpp"

namespace solver {

// Gates, each once; at least one of them open is what the pair needs.
using gate_cut = std::vector<int>;

// Appends the minimum cuts whose gates sum to less than needed - tolerance; none or
// one or two. Gate values in [0, 1].
void find_cuts(const pair_net& net, const std::vector<double>& gate_values, double needed, double tolerance,
               std::vector<gate_cut>& cuts);

// The cuts of a single gate: those that every chain of the net must pass.
void find_bottlenecks(const pair_net& net, std::vector<gate_cut>& cuts);

}  // namespace solver
