// The best directions of a contested problem, and the proof that they are.
//
// Parts that share no choice are searched apart, each as part_search.hpp says. May not
// end in anybody's lifetime, and then is what a watch stops.
#pragma once

#include "solver/record/back_end.hpp"
#include "solver/reduce/contested_problem.hpp"

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

// How far a search goes. All but the first are changed by tests only.
struct search_plan {
    long goal = 0;  // only answers of at least this are of interest: a bound below it ends the search

    bool splits = true;  // searches parts that share no choice apart
    bool fixes = true;   // closes a gap on a smaller problem

    // A problem of so many choices, such a share of them fractional, is not closed by plain cuts.
    int hard_choices = 500;
    double hard_share = 0.25;
    long first_nodes = 1000;  // of a branch and bound

    // A problem of so many pairs is wide: part_search.hpp says what is done for it.
    int many_pairs = 50000;
    double simplex_work = 5e8;  // of a solve; what takes more is left to a first-order method
    // From an arc to a next one, in the networks of all pairs: with more, the tighter program
    // and branch and bound would take gigabytes.
    double most_steps = 1e6;
};

// Never worse than the start, which has a direction for every choice. When stopped, gives the
// best so far.
contested_answer search_contested(const contested_problem& problem, const directions& start, const search_plan& plan,
                                  const known_outside& outside, const solve_watch& watch);

}  // namespace solver
