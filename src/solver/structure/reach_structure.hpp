// A model seen as reachability: gates that open arcs, and demands that count when
// a chain of open arcs leads to them.
//
// What is looked for in the rows (all variables in [0, 1]):
//   packing      o + o' <= 1, or o <= 1     gates o, o' of one choice; integral
//   capacity     f <= o                     flow f on an arc that gate o opens
//   propagation  f <= sum of f'             what enters the tail of f's arc
//   cover        y <= sum of f'             what enters the node of demand y
// With maximise sum of w y, w whole and >= 0. If no flow can feed itself, then with
// the gates at 0 and 1 a demand reaches 1 exactly if a chain of open arcs leads from
// an arc without a propagation row to its node. With a cycle it could do so without
// a chain, so such a model does not fit.
//
// Looking for a network in the rows of a program is an old idea (Bixby and Fourer 1988,
// for rows of flow conservation); these four kinds are our own model's. Bounded: a few
// passes over the rows, and a sort of what enters each node.
//
// Nothing here depends on the order in which the two gates of a choice, or the arcs
// of a node, stand in the rows: gates stand in the order of a hash of their names,
// arcs in the order of their gates. Of many best answers the one that is found then
// says nothing about the order in which an input file names two ends.
#pragma once

#include <optional>
#include <vector>

#include "solver/record/model_record.hpp"

namespace solver {

struct reach_structure {
    // Choice c has gates 2c and 2c+1; the column of a gate that is not there is -1.
    std::vector<int> gate_column;

    // Arcs in the order of their head, then of their gate. Tail -1 = the root.
    std::vector<int> arc_tail;
    std::vector<int> arc_head;
    std::vector<int> arc_gate;
    std::vector<int> arc_column;

    // Nodes are numbered as the rows first sum what enters them.
    std::vector<int> node_first_arc;  // entering arcs of node v: node_first_arc[v] .. [v + 1] - 1
    std::vector<int> node_order;      // every node after the tails of its entering arcs

    std::vector<int> demand_node;
    std::vector<long> demand_weight;
    std::vector<int> demand_column;

    std::vector<int> idle_columns;  // flows that no row sums: 0 will do
    double objective_constant = 0.0;

    int num_choices() const { return static_cast<int>(gate_column.size() / 2); }
    int num_nodes() const { return static_cast<int>(node_order.size()); }
    int num_arcs() const { return static_cast<int>(arc_tail.size()); }
    int num_demands() const { return static_cast<int>(demand_node.size()); }
};

// Nothing, when the model does not fit in any point.
std::optional<reach_structure> find_reach_structure(const model_record& record);

}  // namespace solver
