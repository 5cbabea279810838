// Triangle inequalities between transitions (chain_layout.hpp).
//
// Two transitions exclude each other when they need the two directions of one choice;
// three that do so pairwise are at most one (for products of 0-1 variables these are the
// triangle inequalities of the boolean quadric polytope, Padberg 1989). A transition over
// gates a and b needs "not a" to be followed by b, and "not b" by a: three at most one are
// the cycles of three in the graph of these arcs. Bounded: by the pairs of arcs in it that
// follow one another, transitions of next to no value left out.
#pragma once

#include <array>
#include <vector>

#include "solver/bound/chain_layout.hpp"

namespace solver {

// Threes of transitions, in ascending order and each once, whose values sum to more than
// 1 + tolerance. Values by transition, in [0, 1].
std::vector<std::array<int, 3>> find_triangles(const std::vector<transition>& transitions, int num_gates,
                                               const std::vector<double>& values, double tolerance);

}  // namespace solver
