#include "solver/reduce/reduce.hpp"

#include <algorithm>
#include <utility>

#include "solver/structure/index.hpp"

namespace solver {
namespace {

class reducer {
 public:
    reducer(const reach_structure& structure, const settle_steps& steps, const solve_watch& watch)
        : structure_(structure), steps_(steps), watch_(watch) {}

    std::optional<settled_problem> run() {
        gates_.assign(structure_.gate_column.size(), gate_state::contested);
        left_.assign(at(structure_.num_demands()), 1);
        do {
            if (watch_.stop_requested()) {
                return std::nullopt;
            }
            find_reached();
            find_useful();
        } while (force_choices());

        contested_problem problem;
        for (int c = 0; c < structure_.num_choices(); ++c) {
            problem.choices.push_back(c);
        }
        make_pairs(problem);
        if (watch_.stop_requested()) {
            return std::nullopt;  // some pairs may be missing
        }
        make_shared(problem);
        std::optional<settled_problem> result = settle(std::move(problem), gates_, steps_, watch_);
        if (result) {
            result->satisfied_weight += satisfied_;
            tell_by_demand(result->pair_of);
        }
        return result;
    }

 private:
    template <typename visitor>
    void for_entering(int node, const visitor& visit) const {
        for (int a = structure_.node_first_arc[at(node)]; a < structure_.node_first_arc[at(node) + 1]; ++a) {
            visit(structure_.arc_tail[at(a)], gates_[at(structure_.arc_gate[at(a)])], at(a));
        }
    }

    // What open arcs reach, and what arcs that are not closed could; pairs whose fate
    // that settles leave.
    void find_reached() {
        sure_.assign(at(structure_.num_nodes()), 0);
        possible_.assign(at(structure_.num_nodes()), 0);
        for (const int node : structure_.node_order) {
            for_entering(node, [&](int tail, gate_state gate, std::size_t) {
                if (gate == gate_state::open && (tail < 0 || sure_[at(tail)] != 0)) {
                    sure_[at(node)] = 1;
                }
                if (gate != gate_state::closed && (tail < 0 || possible_[at(tail)] != 0)) {
                    possible_[at(node)] = 1;
                }
            });
        }
        for (int d = 0; d < structure_.num_demands(); ++d) {
            const int node = structure_.demand_node[at(d)];
            if (left_[at(d)] != 0 && sure_[at(node)] != 0) {
                left_[at(d)] = 0;
                satisfied_ += structure_.demand_weight[at(d)];
            } else if (possible_[at(node)] == 0 || (steps_.drop_worthless && structure_.demand_weight[at(d)] == 0)) {
                left_[at(d)] = 0;
            }
        }
    }

    // Arcs on a chain from what is surely reached to a remaining pair.
    void find_useful() {
        std::vector<char> wanted(at(structure_.num_nodes()), 0);
        for (int d = 0; d < structure_.num_demands(); ++d) {
            if (left_[at(d)] != 0) {
                wanted[at(structure_.demand_node[at(d)])] = 1;
            }
        }
        useful_.assign(at(structure_.num_arcs()), 0);
        uses_.assign(gates_.size(), 0);
        for (auto node = structure_.node_order.rbegin(); node != structure_.node_order.rend(); ++node) {
            if (wanted[at(*node)] == 0 || sure_[at(*node)] != 0) {
                continue;
            }
            for_entering(*node, [&](int tail, gate_state gate, std::size_t arc) {
                if (gate == gate_state::closed || (tail >= 0 && possible_[at(tail)] == 0)) {
                    return;
                }
                useful_[arc] = 1;
                ++uses_[at(structure_.arc_gate[arc])];
                if (tail >= 0) {
                    wanted[at(tail)] = 1;
                }
            });
        }
    }

    bool force_choices() {
        bool decided = false;
        for (int gate = 0; gate < static_cast<int>(gates_.size()); ++gate) {
            const bool no_rival = steps_.force_choices && uses_[at(gate ^ 1)] == 0;
            if (gates_[at(gate)] == gate_state::contested && uses_[at(gate)] > 0 &&
                (no_rival || structure_.gate_column[at(gate ^ 1)] < 0)) {
                open_and_close(gates_, gate);
                decided = true;
            }
        }
        return decided;
    }

    void make_pairs(contested_problem& problem) {
        std::vector<int> number(at(structure_.num_nodes()), -1);
        std::vector<int> nodes;
        std::vector<net_arc> backwards;
        for (int d = 0; d < structure_.num_demands() && !watch_.stop_requested(); ++d) {
            if (left_[at(d)] == 0) {
                continue;
            }
            pair_net net{2, structure_.demand_weight[at(d)], {}};
            nodes.assign(1, structure_.demand_node[at(d)]);
            backwards.clear();
            number[at(nodes.front())] = net_target;
            for (std::size_t i = 0; i < nodes.size(); ++i) {
                for_entering(nodes[i], [&](int tail, gate_state, std::size_t arc) {
                    if (useful_[arc] == 0) {
                        return;
                    }
                    const bool at_root = tail < 0 || sure_[at(tail)] != 0;
                    if (!at_root && number[at(tail)] < 0) {
                        number[at(tail)] = net.num_nodes++;
                        nodes.push_back(tail);
                    }
                    backwards.push_back(
                        {at_root ? net_root : number[at(tail)], number[at(nodes[i])], structure_.arc_gate[arc]});
                });
            }
            for (const int node : nodes) {
                number[at(node)] = -1;
            }
            // Found from the target backwards; passes over them go from the root on.
            net.arcs.assign(backwards.rbegin(), backwards.rend());
            problem.pairs.push_back(std::move(net));
        }
    }

    void make_shared(contested_problem& problem) const {
        shared_network& shared = problem.shared;
        std::vector<int> number(at(structure_.num_nodes()), -1);
        for (const int node : structure_.node_order) {
            for_entering(node, [&](int tail, gate_state, std::size_t arc) {
                if (useful_[arc] == 0) {
                    return;
                }
                if (number[at(node)] < 0) {
                    number[at(node)] = shared.num_nodes();
                    shared.nodes.push_back({-1, 0});
                }
                shared.arcs.push_back({tail < 0 || sure_[at(tail)] != 0 ? -1 : number[at(tail)], number[at(node)],
                                       structure_.arc_gate[arc]});
            });
        }
        int pair = 0;
        for (int d = 0; d < structure_.num_demands(); ++d) {
            if (left_[at(d)] == 0) {
                continue;
            }
            shared_network::node& node = shared.nodes[at(number[at(structure_.demand_node[at(d)])])];
            // Demands of one node have one network between them, so one pair stands for all.
            node.pair = node.pair < 0 ? pair : node.pair;
            node.weight += structure_.demand_weight[at(d)];
            ++pair;
        }
    }

    // The pairs were made of the demands that were left, in their order.
    void tell_by_demand(std::vector<int>& pair_of) const {
        std::vector<int> by_demand(left_.size(), -1);
        std::size_t pair = 0;
        for (std::size_t d = 0; d < left_.size(); ++d) {
            by_demand[d] = left_[d] != 0 ? pair_of[pair++] : -1;
        }
        pair_of = std::move(by_demand);
    }

    const reach_structure& structure_;
    const settle_steps steps_;
    const solve_watch& watch_;
    std::vector<gate_state> gates_;
    std::vector<char> left_;      // by demand: not yet satisfied or lost
    std::vector<char> sure_;      // by node: open arcs lead to it
    std::vector<char> possible_;  // by node: arcs that are not closed lead to it
    std::vector<char> useful_;    // by arc
    std::vector<int> uses_;       // by gate: useful arcs
    long satisfied_ = 0;
};

}  // namespace

settled_problem reduce(const reach_structure& structure, const settle_steps& steps) {
    return *reducer(structure, steps, {}).run();
}

std::optional<settled_problem> reduce(const reach_structure& structure, const settle_steps& steps,
                                      const solve_watch& watch) {
    return reducer(structure, steps, watch).run();
}

}  // namespace solver
