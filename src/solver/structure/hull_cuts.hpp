// Cuts from the convex hull of all directions of a few choices.
//
// Over k choices there are 2^k directions, and each allows some of the transitions (two
// gates that must both be open). A point of the linear program that lies in no convex
// combination of them, transitions rounded down at will, is cut off by a row found as
// the dual of a small program: lambda >= 0 over directions with sum 1, matching the
// choices and falling short of no transition by more than theta; theta is minimised
// (target cuts, Buchheim, Liers and Oswald 2008). The row's right side is recomputed as
// its largest value over all directions, so whatever the small program's tolerance, the
// row is valid.
#pragma once

#include <vector>

#include "solver/structure/row_program.hpp"

namespace solver {

// Two gates of different choices that a transition needs, and its value.
struct product_value {
    int first_gate;
    int second_gate;
    double value;
};

// Multipliers of a valid row: sum over choices of choice_factor * z + sum over products
// of product_factor * t <= limit, z = 1 when gate 2c is open.
struct hull_cut {
    std::vector<double> choice_factors;
    std::vector<double> product_factors;
    double limit;
    double violation;
};

// choices: at most 10, each once; products between them only. values: of z, by choice of
// the list. No cut gives violation 0.
hull_cut find_hull_cut(const std::vector<int>& choices, const std::vector<double>& values,
                       const std::vector<product_value>& products, const solve_watch& watch);

}  // namespace solver
