// The back end for models that are seen to be reachability.
#pragma once

#include "solver/record/back_end.hpp"
#include "solver/reduce/settle.hpp"
#include "solver/structure/reach_structure.hpp"

namespace solver {

// Values for all columns of the model that the structure was found in. Status optimal
// when proven, feasible when the watch stopped the search before.
solve_answer solve_by_structure(const reach_structure& structure, int num_columns, const solve_watch& watch,
                                const settle_steps& steps = {});

// The same with all steps, as a back end takes it.
solve_answer search_structure(const reach_structure& structure, int num_columns, const solve_watch& watch);

}  // namespace solver
