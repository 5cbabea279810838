// What the tighter program (chain_bound.hpp) is about: its columns, and of every pair the
// network whose nodes are the arcs of the pair's own, entered and left through the arc's
// gate, and whose arcs are the transitions from one arc to a next.
#pragma once

#include <vector>

#include "solver/bound/pair_rows.hpp"

namespace solver {

// Two gates that must both be open, first < second.
struct transition {
    int first_gate;
    int second_gate;
};

struct chain_layout {
    // Columns: a choice each, then the pairs that have one, then a transition each.
    std::vector<double> weights;
    double constant = 0.0;
    std::vector<int> pair_columns;  // -1 = the pair is one gate, and counts through its choice
    int num_choices = 0;
    int first_transition = 0;
    std::vector<transition> transitions;  // each once

    // By pair; empty where the pair has no column. Gate 2 * num_choices + k is transition k.
    std::vector<pair_net> nets;

    int num_gates() const { return 2 * num_choices; }
    int num_transitions() const { return static_cast<int>(transitions.size()); }
    int transition_column(int index) const { return first_transition + index; }
};

// Ways from an arc to a next one, over the networks of all pairs: more than there are transitions.
double count_steps(const contested_problem& problem);

chain_layout lay_out_chains(const contested_problem& problem);

}  // namespace solver
