// Branch and bound over the contested choices, through HiGHS.
//
// The program of cut_master with its choices whole and the cuts found so far is a
// relaxation: its best value bounds the problem's. The directions that it finds are
// counted for what they really reach; where they fall short, the cuts that they break
// are added, and it is solved again. Ends when the two meet: there are finitely many
// cuts. There are few where each round looks near the best directions known, so of
// equals the program prefers those (cut_master.hpp). Rounds are bounded by a number of
// nodes where the caller asks for it.
#pragma once

#include "solver/bound/cut_master.hpp"
#include "solver/find/shared_state.hpp"
#include "solver/prove/known_answer.hpp"

namespace solver {

// Improves what is known until it is done or the limit on nodes ends it. The state is used
// for counting. False when more nodes would not help: the solver failed, or has no more to say.
bool branch_and_bound(const contested_problem& problem, cut_master& master, shared_state& state, long max_nodes,
                      const solve_watch& watch, known_answer& known);

}  // namespace solver
