// The networks of the tighter program (chain_bound.hpp): of every pair, the network whose
// nodes are the arcs of the pair's own, entered and left through the arc's gate, and whose
// arcs are the transitions from one arc to a next.
#pragma once

#include <vector>

#include "solver/structure/cut_master.hpp"

namespace solver {

// Two gates that must both be open, first < second.
struct transition {
    int first_gate;
    int second_gate;
};

struct chain_layout {
    pair_layout pairs;                    // with a column for every transition behind those of the pairs
    std::vector<pair_net> nets;           // by pair; empty where the pair has no column
    std::vector<transition> transitions;  // each once; transition k is gate 2 * num_choices + k of the nets
};

chain_layout lay_out_chains(const contested_problem& problem);

}  // namespace solver
