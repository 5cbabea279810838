// The last resort for a question that its region does not settle: the whole problem is
// settled under the condition (reduce/settle.hpp) and searched (prove/contested_search.hpp).
// Exact whatever it takes.
#pragma once

#include "solver/prove/contested_search.hpp"

namespace solver {

// Of directions that turn the choice away from the answer. The search ends when none of at
// least the goal are left: then the bound is below it. No directions, if none were found.
contested_answer search_with_turned(const contested_problem& problem, const directions& answer, int choice, long goal,
                                    const solve_watch& watch);

// The same of directions that satisfy the pair. Where there are none the bound is -1.
contested_answer search_with_satisfied(const contested_problem& problem, const directions& answer, int pair, long goal,
                                       const solve_watch& watch);

}  // namespace solver
