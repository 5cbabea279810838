// The best directions of a contested problem, and the proof that they are.
//
// The linear program with cuts (cut_master.hpp) gives a bound; since weights are
// whole, a value equal to the bound rounded down is proven best. Values come from
// rounding the program's solution and from annealing (local_search.hpp), first over
// the choices that the program leaves fractional. What gap remains is closed on a
// smaller problem: a choice whose reduced weight exceeds the gap keeps its direction
// in every better answer (Dantzig, Fulkerson and Johnson 1954), which settles more
// choices in turn. Where the program stays fractional through and through, a tighter one
// takes over (chain_bound.hpp), in turns with longer annealing. The last resort is branch
// and bound over the choices (branch_and_bound.hpp).
#pragma once

#include "solver/back_end.hpp"
#include "solver/structure/contested_problem.hpp"

namespace solver {

struct contested_answer {
    directions chosen;  // 0 or 1 for every choice
    long weight = 0;    // that they reach
    long bound = 0;     // no directions reach more; equal to weight when proven best
};

// What is known outside of a part of a problem, to be added in progress reports.
struct known_outside {
    long weight = 0;
    long bound = 0;
};

// Only answers of at least goal are of interest: a bound below it ends the search.
// When stopped, gives the best so far.
contested_answer search_contested(const contested_problem& problem, long goal, const known_outside& outside,
                                  const solve_watch& watch);

}  // namespace solver
