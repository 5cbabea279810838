// Cuts from the convex hull of all directions of a few choices.
//
// Over k choices there are 2^k directions. A variable is conditional on them when it can
// be 1 with some of them only: a transition, whose two gates must be open, or a pair, whose
// network they may leave without a chain. A point of the linear program that lies in no
// convex combination of the directions, conditionals rounded down at will, is cut off by a
// row found as the dual of a small program: lambda >= 0 over directions with sum 1, matching
// the choices and falling short of no conditional by more than theta; theta is minimised
// (target cuts, Buchheim, Liers and Oswald 2008). The row's right side is recomputed as
// its largest value over all directions, so whatever the small program's tolerance, the
// row is valid. Bounded: by 2^most_hull_choices columns.
#pragma once

#include <bitset>
#include <vector>

#include "solver/highs/highs_handle.hpp"

namespace solver {

inline constexpr int most_hull_choices = 8;

// Directions of a list of choices, by number: bit i of the number is 1 where choice i has
// its gate 2c open.
using direction_set = std::bitset<std::size_t{1} << most_hull_choices>;

struct conditional {
    direction_set allowed;  // where it can be 1
    double value;
};

// Multipliers of a valid row: sum over choices of choice_factor * z + sum over conditionals
// of conditional_factor * value <= limit, z = 1 when gate 2c is open.
struct hull_cut {
    std::vector<double> choice_factors;
    std::vector<double> conditional_factors;
    double limit = 0.0;
    double violation = 0.0;
};

class hull_separator {
 public:
    // The watch must outlive this.
    explicit hull_separator(const solve_watch& watch);

    // values: of z, in [0, 1], for most_hull_choices choices at most. No cut, no factors.
    hull_cut find(const std::vector<double>& values, const std::vector<conditional>& conditionals);

 private:
    void pass_program(const std::vector<double>& values, const std::vector<conditional>& conditionals);

    highs_handle highs_;
};

}  // namespace solver
