// The search of one part of a contested problem.
//
// The linear program with cuts (cut_master.hpp), leaning towards what a short annealing
// (local_search.hpp) has found, gives a bound; since weights are whole, a value equal to
// the bound rounded down is proven best. Values come from rounding the program's solution
// and from annealing over the choices that it leaves fractional. What gap remains is
// closed on a smaller problem (fix_choices.hpp).
//
// In a wide problem, of very many pairs, every round of cuts brings thousands of rows. There
// the first annealing is followed by one of twelve times its moves, for cuts are fewer the
// better the directions are that the program leans towards; it leans towards those
// throughout, since rows and weights that both change leave the simplex method without a
// start; and where a solve by it has cost much, the first-order method takes over.
//
// Where the program stays fractional through and through, a tighter one takes over
// (chain_bound.hpp) until three rounds in a row hardly move its bound, while a second
// thread looks for values (value_search.hpp). The last resort is branch and bound over
// the choices (branch_and_bound.hpp), with twice the nodes each time. Where the networks of
// the pairs are too large for both, only the second thread goes on, until it is stopped.
#pragma once

#include "solver/prove/contested_search.hpp"

namespace solver {

// Never worse than the start. When stopped, gives the best so far.
contested_answer search_part(const contested_problem& problem, const directions& start, const search_plan& plan,
                             const known_outside& outside, const solve_watch& watch);

}  // namespace solver
