#include "solver/structure/reach_structure.hpp"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <utility>

#include "solver/structure/index.hpp"
#include "solver/structure/name_order.hpp"
#include "solver/structure/topological_order.hpp"

namespace solver {
namespace {

constexpr int none = -1;
constexpr double largest_weight = 1e9;  // sums of weights stay exact in a double

// Reads the rows once to tell gates, flows and demands apart, and a second time to
// tie them to one another. Every step returns false when the model does not fit.
class structure_finder {
 public:
    explicit structure_finder(const model_record& record) : record_(record) {}

    std::optional<reach_structure> find() {
        if (check_columns() && read_packing_and_capacity() && read_sums() && all_columns_placed() && order_arcs() &&
            order_nodes()) {
            return std::move(found_);
        }
        return std::nullopt;
    }

 private:
    bool check_columns() {
        if (!record_.maximize) {
            return false;
        }
        for (int c = 0; c < record_.num_columns(); ++c) {
            const double weight = record_.column_objective[at(c)];
            if (record_.column_lower[at(c)] != 0.0 || record_.column_upper[at(c)] != 1.0 || weight < 0.0 ||
                weight != std::floor(weight) || weight > largest_weight ||
                (record_.column_integral[at(c)] != 0 && weight != 0.0)) {
                return false;
            }
        }
        found_.objective_constant = record_.objective_constant;
        link_.assign(at(record_.num_columns()), none);
        return true;
    }

    // A row of gates with coefficients 1 and right side 1, or one flow below one gate.
    bool read_packing_and_capacity() {
        for (int r = 0; r < record_.num_rows(); ++r) {
            const std::size_t first = record_.row_start[at(r)];
            const std::size_t size = record_.row_start[at(r) + 1] - first;
            if (record_.row_lower[at(r)] != -infinity || size == 0) {
                return false;
            }
            const int* columns = record_.row_column.data() + first;
            const double upper = record_.row_upper[at(r)];
            if (upper == 1.0) {
                if (size > 2 || !add_choice(first, size)) {
                    return false;
                }
            } else if (upper != 0.0) {
                return false;
            } else if (size == 2 && integral(columns[0]) != integral(columns[1])) {
                const std::size_t gate = integral(columns[0]) ? 0 : 1;
                int& gate_column = link_[at(columns[1 - gate])];
                if (record_.row_value[first + gate] != -1.0 || record_.row_value[first + 1 - gate] != 1.0 ||
                    gate_column != none) {
                    return false;
                }
                gate_column = columns[gate];
            }
        }
        return true;
    }

    bool add_choice(std::size_t first, std::size_t size) {
        const int* columns = record_.row_column.data() + first;
        std::array<int, 2> gates = {none, none};
        for (std::size_t i = 0; i < size; ++i) {
            if (record_.row_value[first + i] != 1.0 || !integral(columns[i]) || link_[at(columns[i])] != none) {
                return false;
            }
            gates[i] = columns[i];
            link_[at(columns[i])] = 0;
        }
        if (size == 2) {
            if (stands_before(record_.column_names[at(gates[1])], record_.column_names[at(gates[0])])) {
                std::swap(gates[0], gates[1]);
            }
        }
        for (const int column : gates) {
            if (column != none) {
                link_[at(column)] = static_cast<int>(found_.gate_column.size());
            }
            found_.gate_column.push_back(column);
        }
        return true;
    }

    // A flow or a demand below the sum of what enters one node.
    bool read_sums() {
        node_.assign(at(record_.num_columns()), none);
        tail_of_flow_.assign(at(record_.num_columns()), none);
        node_size_.reserve(at(record_.num_columns()));  // at most; what is not used is not touched
        for (int r = 0; r < record_.num_rows(); ++r) {
            if (record_.row_upper[at(r)] != 0.0 || is_capacity(r)) {
                continue;
            }
            int bounded = none;
            entering_.clear();
            for (std::size_t t = record_.row_start[at(r)]; t < record_.row_start[at(r) + 1]; ++t) {
                const int column = record_.row_column[t];
                if (record_.row_value[t] == 1.0 && bounded == none && !integral(column)) {
                    bounded = column;
                } else if (record_.row_value[t] == -1.0 && is_flow(column)) {
                    entering_.push_back(column);
                } else {
                    return false;
                }
            }
            const int node = bounded == none || entering_.empty() ? none : node_entered_by_all();
            if (node == none || !place(bounded, node)) {
                return false;
            }
        }
        return true;
    }

    // The node that exactly these flows enter; made anew when none of them enters one yet.
    int node_entered_by_all() {
        const int node = node_[at(entering_.front())];
        for (const int flow : entering_) {
            if (node_[at(flow)] != node) {
                return none;
            }
        }
        if (node != none) {
            return node_size_[at(node)] == static_cast<int>(entering_.size()) ? node : none;
        }
        const int made = static_cast<int>(node_size_.size());
        node_size_.push_back(static_cast<int>(entering_.size()));
        for (const int flow : entering_) {
            node_[at(flow)] = made;
        }
        return made;
    }

    bool place(int bounded, int node) {
        if (is_flow(bounded)) {
            if (tail_of_flow_[at(bounded)] != none || record_.column_objective[at(bounded)] != 0.0) {
                return false;
            }
            tail_of_flow_[at(bounded)] = node;
            return true;
        }
        if (node_[at(bounded)] != none) {
            return false;
        }
        node_[at(bounded)] = node;
        found_.demand_node.push_back(node);
        found_.demand_weight.push_back(static_cast<long>(record_.column_objective[at(bounded)]));
        found_.demand_column.push_back(bounded);
        return true;
    }

    bool all_columns_placed() const {
        for (int c = 0; c < record_.num_columns(); ++c) {
            const bool is_placed = link_[at(c)] != none || (!integral(c) && node_[at(c)] != none);
            if (!is_placed ||
                (is_flow(c) && (link_[at(link_[at(c)])] == none || record_.column_objective[at(c)] != 0.0))) {
                return false;
            }
        }
        return true;
    }

    // By head first, which is a matter of counting, and then the few arcs of each head.
    bool order_arcs() {
        const auto gate_of_flow = [this](int flow) { return link_[at(link_[at(flow)])]; };
        const auto by_gate = [&](int one, int other) {
            return std::pair(gate_of_flow(one), one) < std::pair(gate_of_flow(other), other);
        };
        // Two places on, so that each head's place in it can move up to where the next begins.
        std::vector<int>& first_arc = found_.node_first_arc;
        first_arc.assign(node_size_.size() + 2, 0);
        std::partial_sum(node_size_.begin(), node_size_.end(), first_arc.begin() + 2);
        std::vector<int>& flows = found_.arc_column;
        flows.resize(at(first_arc.back()));
        for (int c = 0; c < record_.num_columns(); ++c) {
            if (is_flow(c) && node_[at(c)] == none) {
                found_.idle_columns.push_back(c);
            } else if (is_flow(c)) {
                flows[at(first_arc[at(node_[at(c)]) + 1]++)] = c;
            }
        }
        first_arc.pop_back();
        std::sort(found_.idle_columns.begin(), found_.idle_columns.end(), by_gate);
        found_.arc_gate.resize(flows.size());
        found_.arc_tail.resize(flows.size());
        found_.arc_head.resize(flows.size());
        for (std::size_t v = 0; v < node_size_.size(); ++v) {
            std::sort(flows.begin() + first_arc[v], flows.begin() + first_arc[v + 1], by_gate);
            for (int a = first_arc[v]; a < first_arc[v + 1]; ++a) {
                const int flow = flows[at(a)];
                found_.arc_gate[at(a)] = gate_of_flow(flow);
                found_.arc_tail[at(a)] = tail_of_flow_[at(flow)];
                found_.arc_head[at(a)] = static_cast<int>(v);
            }
        }
        return true;
    }

    // False when some flow can feed itself.
    bool order_nodes() {
        found_.node_order = topological_order(static_cast<int>(node_size_.size()), found_.arc_tail, found_.arc_head);
        return found_.node_order.size() == node_size_.size();
    }

    bool integral(int column) const { return record_.column_integral[at(column)] != 0; }
    bool is_flow(int column) const { return !integral(column) && link_[at(column)] != none; }
    bool is_capacity(int row) const {
        const std::size_t first = record_.row_start[at(row)];
        return record_.row_start[at(row) + 1] - first == 2 &&
               integral(record_.row_column[first]) != integral(record_.row_column[first + 1]);
    }

    const model_record& record_;
    reach_structure found_;
    std::vector<int> link_;          // by column: of a gate, its number; of a flow, the gate's column that bounds it
    std::vector<int> node_;          // by column: the node that a flow enters, or a demand counts
    std::vector<int> tail_of_flow_;  // by column: the node that the flow leaves
    std::vector<int> node_size_;     // by node: flows that enter it
    std::vector<int> entering_;
};

}  // namespace

std::optional<reach_structure> find_reach_structure(const model_record& record) {
    return structure_finder(record).find();
}

}  // namespace solver
