#include "solver/structure/reach_values.hpp"

#include "solver/structure/index.hpp"

namespace solver {
namespace {

bool is_open(int gate, const directions& chosen) {
    return chosen[at(gate / 2)] == gate % 2;
}

std::vector<char> reached_nodes(const reach_structure& structure, const directions& chosen) {
    std::vector<char> reached(at(structure.num_nodes()), 0);
    for (const int node : structure.node_order) {
        for (int a = structure.node_first_arc[at(node)]; a < structure.node_first_arc[at(node) + 1]; ++a) {
            const int tail = structure.arc_tail[at(a)];
            if ((tail < 0 || reached[at(tail)] != 0) && is_open(structure.arc_gate[at(a)], chosen)) {
                reached[at(node)] = 1;
                break;
            }
        }
    }
    return reached;
}

}  // namespace

long reached_weight(const reach_structure& structure, const directions& chosen) {
    const std::vector<char> reached = reached_nodes(structure, chosen);
    long weight = 0;
    for (int d = 0; d < structure.num_demands(); ++d) {
        weight += reached[at(structure.demand_node[at(d)])] != 0 ? structure.demand_weight[at(d)] : 0;
    }
    return weight;
}

std::vector<double> values_of(const reach_structure& structure, const directions& chosen, int num_columns) {
    const std::vector<char> reached = reached_nodes(structure, chosen);
    std::vector<char> needed(at(structure.num_nodes()), 0);
    std::vector<double> values(at(num_columns), 0.0);
    for (int d = 0; d < structure.num_demands(); ++d) {
        const int node = structure.demand_node[at(d)];
        if (reached[at(node)] != 0) {
            needed[at(node)] = 1;
            values[at(structure.demand_column[at(d)])] = 1.0;
        }
    }
    for (auto node = structure.node_order.rbegin(); node != structure.node_order.rend(); ++node) {
        if (needed[at(*node)] == 0) {
            continue;
        }
        for (int a = structure.node_first_arc[at(*node)]; a < structure.node_first_arc[at(*node) + 1]; ++a) {
            const int tail = structure.arc_tail[at(a)];
            const int gate = structure.arc_gate[at(a)];
            if ((tail >= 0 && reached[at(tail)] == 0) || !is_open(gate, chosen)) {
                continue;
            }
            values[at(structure.arc_column[at(a)])] = 1.0;
            values[at(structure.gate_column[at(gate)])] = 1.0;
            if (tail >= 0) {
                needed[at(tail)] = 1;
            }
        }
    }
    return values;
}

directions directions_of(const reach_structure& structure, const std::vector<double>& values) {
    directions chosen(at(structure.num_choices()), -1);
    for (int c = 0; c < structure.num_choices(); ++c) {
        for (int side = 0; side < 2; ++side) {
            const int column = structure.gate_column[at(2 * c + side)];
            if (column >= 0 && values[at(column)] > 0.5) {
                chosen[at(c)] = static_cast<signed char>(side);
            }
        }
    }
    return chosen;
}

}  // namespace solver
