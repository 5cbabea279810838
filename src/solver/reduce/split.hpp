// The parts of a problem that share no choice can be searched one by one: the best of
// the whole is the best of each. Bounded: a union of what each pair joins, and a pass
// over the problem for every part.
#pragma once

#include <vector>

#include "solver/record/back_end.hpp"
#include "solver/reduce/contested_problem.hpp"

namespace solver {

int count_parts(const contested_problem& problem);

// In the order of their first choices, which are called by their position in the problem.
// None when stopped.
std::vector<contested_problem> split(const contested_problem& problem, const solve_watch& watch = {});

}  // namespace solver
