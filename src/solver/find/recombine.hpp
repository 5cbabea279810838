// One set of directions made from two.
//
// What two good answers agree on is mostly right. So the choices on which they differ
// are freed, all others keep their direction, which settles much of the problem
// (settle.hpp), and the rest is annealed from the better of the two: a small problem,
// in which a move costs little (fix-and-recombine, Rothberg 2007, with annealing in
// the place of branch and bound).
//
// Never worse than the better one. Bounded by a number of moves per choice on which
// the two differ.
#pragma once

#include <cstdint>

#include "solver/find/shared_state.hpp"
#include "solver/record/back_end.hpp"

namespace solver {

// Leaves the result in the state. Gives the number of moves that it was given.
long recombine(const contested_problem& problem, const directions& better, const directions& other, std::uint64_t seed,
               shared_state& state, const solve_watch& watch);

}  // namespace solver
