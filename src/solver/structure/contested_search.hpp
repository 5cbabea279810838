// The best directions of a contested problem, and the proof that they are.
//
// The linear program with cuts (cut_master.hpp), leaning towards what a short annealing
// (local_search.hpp) has found, gives a bound; since weights are whole, a value equal to
// the bound rounded down is proven best. Values come from rounding the program's solution
// and from annealing over the choices that it leaves fractional. What gap remains is closed on a smaller problem: a
// choice whose reduced weight exceeds the gap keeps its direction in every better answer
// (Dantzig, Fulkerson and Johnson 1954), which settles more choices in turn.
//
// Where the program stays fractional through and through, a tighter one takes over
// (chain_bound.hpp) until three rounds in a row hardly move its bound, while a second
// thread looks for values (value_search.hpp). The last resort is branch and bound over
// the choices (branch_and_bound.hpp), with twice the nodes each time: that may not end
// in anybody's lifetime, and is what a watch stops.
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

// How far a search goes. All but the first are changed by tests only.
struct search_plan {
    long goal = 0;  // only answers of at least this are of interest: a bound below it ends the search

    bool splits = true;  // searches parts that share no choice apart
    bool fixes = true;   // closes a gap on a smaller problem

    // A problem of so many choices, such a share of them fractional, is not closed by plain cuts.
    int hard_choices = 500;
    double hard_share = 0.25;
    long first_nodes = 1000;  // of a branch and bound
};

// When stopped, gives the best so far.
contested_answer search_contested(const contested_problem& problem, const search_plan& plan,
                                  const known_outside& outside, const solve_watch& watch);

}  // namespace solver
