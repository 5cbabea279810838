// The back end for models that are seen to be reachability.
#pragma once

#include "solver/back_end.hpp"
#include "solver/structure/reach_structure.hpp"
#include "solver/structure/settle.hpp"

namespace solver {

// Values for all columns of the model that the structure was found in. Status optimal
// when proven, feasible when the watch stopped the search before.
solve_answer solve_by_structure(const reach_structure& structure, int num_columns, const solve_watch& watch,
                                const settle_steps& steps = {});

}  // namespace solver
