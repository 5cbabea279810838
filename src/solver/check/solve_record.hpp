// From a record to an answer that may be believed.
#pragma once

#include <optional>
#include <string>

#include "solver/record/back_end.hpp"
#include "solver/structure/reach_structure.hpp"

namespace solver {

// How far a back end's values may stray from a bound, a row or an integer.
inline constexpr double feasibility_tolerance = 1e-6;
inline constexpr double integrality_tolerance = 1e-5;

// Makes values exact where the record says so (integers, bounds), checks every
// row, and recomputes the objective. Returns what is wrong, empty if nothing is.
std::string check_values(const model_record& record, std::vector<double>& values, double& objective);

// Solves with the back end and believes nothing: an answer whose values do not
// pass check_values, or fall short of the objective claimed for them, becomes
// status error with the reason. A record without columns is optimal.
//
// A model that is seen to be reachability (solver/structure) is handed to
// the back end in an order that does not depend on which end of an interaction its
// file names first, and of the answer only what a reached demand can use is kept.
// Of such a model a solve that is asked to stop always leaves a solution.
solve_answer solve_record(const model_record& record, const back_end& solver, const solve_watch& watch);
// The same, of a record whose structure, or that it has none, was found out before.
solve_answer solve_record(const model_record& record, const std::optional<reach_structure>& structure,
                          const back_end& solver, const solve_watch& watch);

}  // namespace solver
