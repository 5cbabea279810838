// A tighter bound where the program of cut_master stays far above what is reached.
//
// With all choices at one half, two parallel chains already count as a satisfied pair.
// So besides z per choice and y per pair there is a variable t per two consecutive
// arcs of a network: t <= x and t <= x' for their gates. A pair's cuts are minimum cuts
// over its arcs and over the transitions between them. Two transitions exclude each
// other when they need the two directions of one choice; three that do so pairwise, in
// a cycle x' -> y -> z -> x' of "t needs not-x and y", are at most one (the triangle
// inequalities of the boolean quadric polytope, Padberg 1989, in terms of products).
//
// Every row holds for every choice of directions, so any multipliers prove a bound;
// rows are found in rounds, and the program solved by HiGHS's first-order method to a
// loose tolerance, which the bound recomputed from clipped duals (row_program.hpp)
// does not inherit. Bounded by rounds that no longer pay.
#pragma once

#include "solver/highs_handle.hpp"
#include "solver/structure/contested_problem.hpp"

namespace solver {

struct chain_bound_plan {
    int max_rounds = 1000;
};

}  // namespace solver
