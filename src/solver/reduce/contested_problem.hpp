// What is left of a model once everything that can be decided is: choices whose two
// directions both serve some pair, and the pairs (demands) that are still open.
#pragma once

#include <vector>

#include "solver/structure/reach_values.hpp"

namespace solver {

inline constexpr int open_gate = -1;  // an arc that is open for good

// An arc of a network. Gate 2c + side opens when choice c takes that side.
struct net_arc {
    int tail;
    int head;
    int gate;  // of a contested choice, or open_gate
    bool operator==(const net_arc&) const = default;
};

inline constexpr int net_root = 0;
inline constexpr int net_target = 1;

// Satisfied when open arcs lead from net_root to net_target. Every arc lies on some
// chain between the two.
struct pair_net {
    int num_nodes;
    long weight;
    std::vector<net_arc> arcs;
};

// The networks of all pairs that share a root, laid over one another: one evaluation
// serves them all. Nodes stand in an order in which tails come before heads, and
// arcs in the order of their heads; tail -1 = the root.
struct shared_network {
    struct node {
        int pair;     // that is satisfied when the node is reached, -1 = none
        long weight;  // several nodes may share a pair, each with its part of the weight
    };
    std::vector<net_arc> arcs;
    std::vector<node> nodes;
    int num_nodes() const { return static_cast<int>(nodes.size()); }
};

struct contested_problem {
    std::vector<int> choices;  // what each choice is called where the problem came from
    std::vector<pair_net> pairs;
    shared_network shared;

    int num_choices() const { return static_cast<int>(choices.size()); }
    long total_weight() const;
};

// The problem of some of the pairs alone (1 = kept), with all choices.
contested_problem with_pairs(const contested_problem& problem, const std::vector<char>& kept);

// The directions nearest to values in [0, 1] of the choices, 1 = gate 2c; of what follows
// the choices nothing is read.
directions nearest_directions(const std::vector<double>& values, int num_choices);

// The directions of some choices among many, as a smaller problem numbers them; 0 where there is none.
directions picked(const directions& chosen, const std::vector<int>& choices);

// What is decided about a gate.
enum class gate_state : char { contested, open, closed };

// Opens a gate and closes its opposite.
void open_and_close(std::vector<gate_state>& gates, int gate);

}  // namespace solver
