// From chosen directions to values for every column of the model, and back.
//
// Exact by the structure's order of nodes, each after the tails of what enters it: one
// pass forward finds what open arcs reach, one pass backward what of that lies on the
// way to a demand. Bounded: each function passes over the structure at most twice.
#pragma once

#include <vector>

#include "solver/structure/reach_structure.hpp"

namespace solver {

// By choice: 0 or 1 = that gate is open, -1 = neither.
using directions = std::vector<signed char>;

// Sum of the weights of the demands that open arcs reach, without the constant.
long reached_weight(const reach_structure& structure, const directions& chosen);

// Values for every column: a gate is 1 exactly when its arc lies on an open chain
// from the root to a reached demand, be that chain redundant beside another: nothing is
// reported that no reached demand can use.
std::vector<double> values_of(const reach_structure& structure, const directions& chosen, int num_columns);

// The directions that a back end's values choose; a gate counts as open above one half.
directions directions_of(const reach_structure& structure, const std::vector<double>& values);

}  // namespace solver
