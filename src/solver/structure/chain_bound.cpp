#include "solver/structure/chain_bound.hpp"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "solver/structure/hull_cuts.hpp"
#include "solver/structure/index.hpp"

namespace solver {
namespace {

constexpr double cut_tolerance = 0.01;
// Of the solver, relative: tightened where a round gains less than 0.4 of it.
constexpr double loosest = 2e-3;
constexpr double tightest = 1e-4;
constexpr double tightening = 0.25;
constexpr int hull_choices = 8;
constexpr int rounds_without_hulls = 4;

}  // namespace

chain_bound::chain_bound(const contested_problem& problem, const solve_watch& watch)
    : chain_bound(problem, lay_out_chains(problem), watch) {}

chain_bound::chain_bound(const contested_problem& problem, chain_layout made, const solve_watch& watch)
    : watch_(watch),
      num_gates_(2 * problem.num_choices()),
      pair_columns_(std::move(made.pairs.pair_columns)),
      nets_(std::move(made.nets)),
      transitions_(std::move(made.transitions)),
      first_transition_(static_cast<int>(made.pairs.weights.size() - transitions_.size())),
      program_(std::move(made.pairs.weights), made.pairs.constant, watch),
      tolerance_(loosest) {
    for (std::size_t k = 0; k < transitions_.size(); ++k) {
        for (const int gate : {transitions_[k].first_gate, transitions_[k].second_gate}) {
            program_row row{{transition_column(static_cast<int>(k))}, {1.0}, 0.0};
            subtract_gate(row, gate);
            program_.add_row(std::move(row));
        }
    }
    program_.solve_loosely(tolerance_);
    const std::vector<double> half(at(num_gates_) + transitions_.size(), 0.5);
    add_cuts(half);
}

void chain_bound::add_cut(int pair, const gate_cut& cut) {
    program_row row{{pair_columns_[at(pair)]}, {1.0}, 0.0};
    for (std::size_t i = 0; i < cut.size(); ++i) {
        if (cut[i] >= num_gates_) {
            row.columns.push_back(transition_column(cut[i] - num_gates_));
            row.values.push_back(-1.0);
            continue;
        }
        if (i + 1 < cut.size() && cut[i + 1] < num_gates_ && cut[i] / 2 == cut[i + 1] / 2) {
            return;  // both directions of a choice: one is always open
        }
        subtract_gate(row, cut[i]);
    }
    program_.add_row(std::move(row));
}

int chain_bound::add_cuts(const std::vector<double>& gate_values) {
    const int before = program_.num_rows();
    std::vector<gate_cut> cuts;
    for (std::size_t p = 0; p < nets_.size(); ++p) {
        if (pair_columns_[p] < 0) {
            continue;
        }
        const double needed = program_.values().empty() ? 1.0 : program_.value(pair_columns_[p]);
        cuts.clear();
        find_cuts(nets_[p], gate_values, needed, cut_tolerance, cuts);
        for (const gate_cut& cut : cuts) {
            add_cut(static_cast<int>(p), cut);
        }
    }
    return program_.num_rows() - before;
}

// A transition over gates a and b needs "not a" to be followed by b, and "not b" by a:
// three at most one are the cycles of three in the graph of these arcs.
int chain_bound::add_triangles() {
    struct followed {
        int gate;
        int index;  // of the transition
        double value;
    };
    std::vector<std::vector<followed>> followers(at(num_gates_));
    std::map<std::pair<int, int>, std::pair<int, double>> transition_between;
    for (std::size_t k = 0; k < transitions_.size(); ++k) {
        const auto [a, b] = transitions_[k];
        const double value = program_.value(transition_column(static_cast<int>(k)));
        if (value > cut_tolerance) {
            followers[at(a ^ 1)].push_back({b, static_cast<int>(k), value});
            followers[at(b ^ 1)].push_back({a, static_cast<int>(k), value});
            transition_between[{a ^ 1, b}] = transition_between[{b ^ 1, a}] = {static_cast<int>(k), value};
        }
    }
    std::set<std::vector<int>> found;
    for (int first = 0; first < num_gates_; ++first) {
        for (const followed& second : followers[at(first)]) {
            for (const followed& third : followers[at(second.gate)]) {
                if (second.value + third.value <= cut_tolerance) {
                    continue;
                }
                const auto closing = transition_between.find({third.gate, first});
                if (closing == transition_between.end() ||
                    second.value + third.value + closing->second.second <= 1.0 + cut_tolerance) {
                    continue;
                }
                std::vector<int> three{second.index, third.index, closing->second.first};
                std::sort(three.begin(), three.end());
                if (three[0] != three[1] && three[1] != three[2] && found.insert(three).second) {
                    program_row row{{}, {1.0, 1.0, 1.0}, 1.0};
                    for (const int index : three) {
                        row.columns.push_back(transition_column(index));
                    }
                    program_.add_row(std::move(row));
                }
            }
        }
    }
    return static_cast<int>(found.size());
}

// Groups of choices grow from each choice in turn by the neighbour that shares the most
// transition value with the group.
int chain_bound::add_hull_cuts() {
    std::vector<std::map<int, double>> shared(at(num_gates_ / 2));
    std::vector<std::vector<int>> transitions_of(at(num_gates_ / 2));
    for (std::size_t k = 0; k < transitions_.size(); ++k) {
        const auto [a, b] = transitions_[k];
        const double value = program_.value(transition_column(static_cast<int>(k)));
        if (value > cut_tolerance) {
            shared[at(a / 2)][b / 2] += value;
            shared[at(b / 2)][a / 2] += value;
            transitions_of[at(a / 2)].push_back(static_cast<int>(k));
            transitions_of[at(b / 2)].push_back(static_cast<int>(k));
        }
    }
    std::set<std::vector<int>> tried;
    int added = 0;
    for (int seed = 0; seed < num_gates_ / 2 && !watch_.stop_requested(); ++seed) {
        std::vector<int> group{seed};
        std::map<int, double> pull = shared[at(seed)];
        while (static_cast<int>(group.size()) < hull_choices && !pull.empty()) {
            const auto next = std::max_element(pull.begin(), pull.end(),
                                               [](const auto& a, const auto& b) { return a.second < b.second; });
            const int choice = next->first;
            group.push_back(choice);
            pull.erase(next);
            for (const auto& [other, value] : shared[at(choice)]) {
                if (std::find(group.begin(), group.end(), other) == group.end()) {
                    pull[other] += value;
                }
            }
        }
        std::sort(group.begin(), group.end());
        if (group.size() < 3 || !tried.insert(group).second) {
            continue;
        }
        std::vector<double> values;
        std::vector<product_value> products;
        std::vector<int> columns;
        for (const int choice : group) {
            values.push_back(std::clamp(program_.value(choice), 0.0, 1.0));
            columns.push_back(choice);
        }
        for (const int choice : group) {
            for (const int k : transitions_of[at(choice)]) {
                const auto [a, b] = transitions_[at(k)];
                if (choice == std::min(a, b) / 2 &&
                    std::binary_search(group.begin(), group.end(), std::max(a, b) / 2)) {
                    products.push_back({a, b, program_.value(transition_column(k))});
                    columns.push_back(transition_column(k));
                }
            }
        }
        const hull_cut cut = find_hull_cut(group, values, products, watch_);
        if (cut.violation < cut_tolerance / 2) {
            continue;
        }
        program_row row{{}, {}, cut.limit};
        for (std::size_t c = 0; c < columns.size(); ++c) {
            const double factor = c < group.size() ? cut.choice_factors[c] : cut.product_factors[c - group.size()];
            if (factor != 0.0) {
                row.columns.push_back(columns[c]);
                row.values.push_back(factor);
            }
        }
        program_.add_row(std::move(row));
        ++added;
    }
    return added;
}

bool chain_bound::improve() {
    if (!program_.solve()) {
        return false;
    }
    const double before = bound_;
    bound_ = std::min(bound_, program_.bound());
    std::vector<double> gate_values(at(num_gates_) + transitions_.size());
    for (int gate = 0; gate < num_gates_; ++gate) {
        const double value = std::clamp(program_.value(gate / 2), 0.0, 1.0);
        gate_values[at(gate)] = gate % 2 == 0 ? value : 1.0 - value;
    }
    for (std::size_t k = 0; k < transitions_.size(); ++k) {
        gate_values[at(num_gates_) + k] = std::clamp(program_.value(transition_column(static_cast<int>(k))), 0.0, 1.0);
    }
    int added = add_cuts(gate_values) + add_triangles();
    if (++rounds_ > rounds_without_hulls || added == 0) {
        added += add_hull_cuts();
    }
    if (tolerance_ > tightest && (added == 0 || before - bound_ < 0.4 * tolerance_ * bound_)) {
        tolerance_ *= tightening;
        program_.solve_loosely(tolerance_);
        return true;
    }
    return added > 0;
}

}  // namespace solver
