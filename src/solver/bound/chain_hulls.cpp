#include "solver/bound/chain_hulls.hpp"

#include <algorithm>
#include <set>
#include <utility>

#include "solver/bound/group_directions.hpp"
#include "solver/structure/index.hpp"
#include "solver/structure/topological_order.hpp"

namespace solver {
namespace {

constexpr std::size_t most_groups = 6000;  // in a round
constexpr std::size_t most_pairs = 30;     // that are conditional in a group
constexpr double least_multiplier = 0.01;
constexpr double least_value = 0.01;  // of what is conditional
constexpr double least_violation = 0.005;

pair_net with_arcs_in_order(pair_net net) {
    std::vector<int> tails;
    std::vector<int> heads;
    for (const net_arc& arc : net.arcs) {
        tails.push_back(arc.tail);
        heads.push_back(arc.head);
    }
    const std::vector<int> order = topological_order(net.num_nodes, tails, heads);
    std::vector<int> position(order.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        position[at(order[i])] = static_cast<int>(i);
    }
    std::stable_sort(net.arcs.begin(), net.arcs.end(), [&position](const net_arc& one, const net_arc& other) {
        return position[at(one.tail)] < position[at(other.tail)];
    });
    return net;
}

}  // namespace

chain_hulls::chain_hulls(const contested_problem& problem, const chain_layout& layout, const solve_watch& watch)
    : layout_(layout), watch_(watch), separator_(watch), pairs_of_(at(layout.num_choices)) {
    for (std::size_t p = 0; p < problem.pairs.size(); ++p) {
        nets_.push_back(with_arcs_in_order(problem.pairs[p]));
        std::set<int> choices;
        for (const net_arc& arc : nets_.back().arcs) {
            if (arc.gate != open_gate && layout.pair_columns[p] >= 0 && choices.insert(arc.gate / 2).second) {
                pairs_of_[at(arc.gate / 2)].push_back(static_cast<int>(p));
            }
        }
        num_choices_of_.push_back(static_cast<int>(choices.size()));
    }
}

std::vector<program_row> chain_hulls::broken_rows(const row_program& program, const std::vector<int>& cuts,
                                                  int group_size) {
    ++round_;
    read_transitions(program);
    std::vector<std::pair<double, int>> order;  // the multiplier, negative, and the row
    for (const int cut : cuts) {
        if (program.multiplier(cut) >= least_multiplier) {
            order.emplace_back(-program.multiplier(cut), cut);
        }
    }
    std::sort(order.begin(), order.end());
    std::vector<program_row> rows;
    std::set<group> tried;
    for (std::size_t i = 0; i < order.size() && tried.size() < most_groups && !watch_.stop_requested(); ++i) {
        group choices = choices_of(program.rows()[at(order[i].second)]);
        if (choices.size() < 2 || static_cast<int>(choices.size()) > group_size) {
            continue;
        }
        enlarge(choices, group_size);
        const auto idle = idle_since_.find(choices);
        if (choices.size() < 3 || (idle != idle_since_.end() && idle->second == round_ - 1) ||
            !tried.insert(choices).second) {
            continue;
        }
        if (!add_row(program, choices, rows)) {
            idle_since_[choices] = round_;
        }
    }
    return rows;
}

void chain_hulls::read_transitions(const row_program& program) {
    transitions_of_.assign(at(layout_.num_choices), {});
    shared_.assign(at(layout_.num_choices), {});
    for (int k = 0; k < layout_.num_transitions(); ++k) {
        const int first = layout_.transitions[at(k)].first_gate / 2;
        const int second = layout_.transitions[at(k)].second_gate / 2;
        const double value = program.value(layout_.transition_column(k));
        if (value > least_value) {
            shared_[at(first)][second] += value;
            shared_[at(second)][first] += value;
            transitions_of_[at(first)].push_back(k);
            transitions_of_[at(second)].push_back(k);
        }
    }
}

chain_hulls::group chain_hulls::choices_of(const program_row& cut) const {
    std::set<int> choices;
    for (const int column : cut.columns) {
        if (column < layout_.num_choices) {
            choices.insert(column);
        } else if (column >= layout_.first_transition) {
            const transition& both = layout_.transitions[at(column - layout_.first_transition)];
            choices.insert({both.first_gate / 2, both.second_gate / 2});
        }
    }
    return {choices.begin(), choices.end()};
}

void chain_hulls::enlarge(group& choices, int size) const {
    choice_pulls pulls;
    const auto pull_neighbours_of = [&](int choice) {
        for (const auto& [other, value] : shared_[at(choice)]) {
            pulls[other] += value;
        }
    };
    std::for_each(choices.begin(), choices.end(), pull_neighbours_of);
    for (const int choice : choices) {
        pulls.erase(choice);
    }
    while (static_cast<int>(choices.size()) < size && !pulls.empty()) {
        const auto next = std::max_element(
            pulls.begin(), pulls.end(), [](const auto& one, const auto& other) { return one.second < other.second; });
        choices.push_back(next->first);
        pull_neighbours_of(choices.back());
        for (const int choice : choices) {
            pulls.erase(choice);
        }
    }
    std::sort(choices.begin(), choices.end());
}

bool chain_hulls::add_row(const row_program& program, const group& choices, std::vector<program_row>& rows) {
    const group_directions opened(choices);
    std::vector<double> values;
    std::vector<int> columns = choices;
    std::vector<conditional> conditionals;
    const auto add = [&](int column, const direction_set& allowed) {
        columns.push_back(column);
        conditionals.push_back({allowed, program.value(column)});
    };
    for (const int choice : choices) {
        values.push_back(std::clamp(program.value(choice), 0.0, 1.0));
        for (const int k : transitions_of_[at(choice)]) {
            const auto [first, second] = layout_.transitions[at(k)];
            if (choice == first / 2 && std::binary_search(choices.begin(), choices.end(), second / 2)) {
                add(layout_.transition_column(k), opened.opening(first) & opened.opening(second));
            }
        }
    }
    std::size_t num_pairs = 0;
    for (const int pair : pairs_touched_by(choices)) {
        const int column = layout_.pair_columns[at(pair)];
        const direction_set allowed = opened.satisfying(nets_[at(pair)]);
        if (program.value(column) > least_value && allowed != opened.all()) {
            add(column, allowed);
            if (++num_pairs == most_pairs) {
                break;
            }
        }
    }
    const hull_cut cut = separator_.find(values, conditionals);
    if (cut.violation < least_violation) {
        return false;
    }
    std::vector<double> factors = cut.choice_factors;
    factors.insert(factors.end(), cut.conditional_factors.begin(), cut.conditional_factors.end());
    program_row& row = rows.emplace_back(program_row{{}, {}, cut.limit});
    for (std::size_t i = 0; i < factors.size(); ++i) {
        if (factors[i] != 0.0) {
            row.columns.push_back(columns[i]);
            row.values.push_back(factors[i]);
        }
    }
    return true;
}

// With two of the choices at least; those first that have the fewest choices outside.
std::vector<int> chain_hulls::pairs_touched_by(const group& choices) const {
    std::map<int, int> outside;
    for (const int choice : choices) {
        for (const int pair : pairs_of_[at(choice)]) {
            --outside.try_emplace(pair, num_choices_of_[at(pair)]).first->second;
        }
    }
    std::vector<int> pairs;
    for (const auto& [pair, num_outside] : outside) {
        if (num_outside + 2 <= num_choices_of_[at(pair)]) {
            pairs.push_back(pair);
        }
    }
    std::stable_sort(pairs.begin(), pairs.end(),
                     [&outside](int one, int other) { return outside.at(one) < outside.at(other); });
    return pairs;
}

}  // namespace solver
