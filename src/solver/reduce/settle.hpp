// Decides what can be decided about a contested problem without a search.
//
// To a fixpoint: a choice that a pair can use in one direction, and no pair in the
// other, takes that direction for good. A chain of arcs so opened satisfies its pair,
// which leaves; networks shrink (simplify_net), and more choices are decided. Besides,
// a direction whose sole arc is the whole network of pairs that weigh as much as all
// pairs that could use the other is taken: turning the choice that way in any answer
// loses nothing. Pairs with equal networks become one with the sum of their weights.
//
// Exact: some best answer of the whole agrees with every decision. A direction is
// fixed, not merely freed: had both been free once nobody contests them, a pair
// leaving later would make both usable at the same time.
//
// Bounded: each round but the last decides a choice; a round costs the arcs of the
// networks that its decisions touch.
#pragma once

#include <optional>

#include "solver/record/back_end.hpp"
#include "solver/reduce/contested_problem.hpp"

namespace solver {

// Which steps are taken: each can be switched off to test the others.
struct settle_steps {
    bool force_choices = true;    // fix what only one direction can use
    bool take_majorities = true;  // fix what no other direction can outweigh
    bool merge_equal_pairs = true;
    bool contract_networks = true;
    bool drop_worthless = true;  // pairs of no weight (reduce.hpp)
};

struct settled_problem {
    directions decided;           // by choice of the problem given; -1 = contested still, or of no use
    contested_problem contested;  // its choices are called by their position in the problem given
    std::vector<int> pair_of;     // by pair of the problem given: its pair here; -1 = its fate is known
    long satisfied_weight = 0;    // of the pairs that the decisions satisfy
};

// Gates: what is decided beforehand.
settled_problem settle(contested_problem problem, std::vector<gate_state> gates, const settle_steps& steps = {});
// The same; nothing when stopped.
std::optional<settled_problem> settle(contested_problem problem, std::vector<gate_state> gates,
                                      const settle_steps& steps, const solve_watch& watch);

// Directions for the problem given: what is decided, the contested rest's, and for what is of
// no use those around.
directions complete(const settled_problem& settled, const directions& of_rest, directions around);

}  // namespace solver
