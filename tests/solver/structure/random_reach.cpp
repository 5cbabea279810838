#include "solver/structure/random_reach.hpp"

#include <algorithm>
#include <numeric>

using solver::model_record;

int add_column(model_record& record, const std::string& name, bool integral, double weight) {
    record.column_lower.push_back(0.0);
    record.column_upper.push_back(1.0);
    record.column_integral.push_back(integral ? 1 : 0);
    record.column_objective.push_back(weight);
    record.column_priority.push_back(0.0);
    record.column_names.push_back(name);
    return record.num_columns() - 1;
}

void add_row(model_record& record, int first, const std::vector<int>& others, double upper, double others_value) {
    std::vector<std::pair<int, double>> terms{{first, 1.0}};
    for (const int other : others) {
        terms.emplace_back(other, others_value);
    }
    std::sort(terms.begin(), terms.end());
    for (const auto& [column, value] : terms) {
        record.row_column.push_back(column);
        record.row_value.push_back(value);
    }
    record.row_start.push_back(record.row_column.size());
    record.row_lower.push_back(-solver::infinity);
    record.row_upper.push_back(upper);
    record.row_names.push_back({});
}

model_record draw_reach_model(unsigned seed, const reach_plan& plan) {
    std::mt19937 random(seed);
    const auto below = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const auto chance = [&random](double share) { return random() < share * 4294967296.0; };
    model_record record;
    std::vector<int> gates;
    for (int c = 0; c < plan.num_choices; ++c) {
        const std::string name = "o_" + std::to_string(c);
        if (chance(plan.lone_share)) {
            gates.push_back(add_column(record, name, true, 0.0));
            add_row(record, gates.back(), {}, 1.0, 1.0);
            continue;
        }
        // Names by meaning, columns by the order in which the ends are named.
        int there = -1;
        int back = -1;
        if (plan.swapped) {
            back = add_column(record, name + "_back", true, 0.0);
            there = add_column(record, name + "_there", true, 0.0);
        } else {
            there = add_column(record, name + "_there", true, 0.0);
            back = add_column(record, name + "_back", true, 0.0);
        }
        gates.insert(gates.end(), {there, back});
        add_row(record, there, {back}, 1.0, 1.0);
    }
    for (int group = 0; group < plan.num_groups; ++group) {
        struct drawn_arc {
            int tail, head, gate, flow;
        };
        std::vector<int> free_gates = gates;
        std::shuffle(free_gates.begin(), free_gates.end(), random);
        std::vector<drawn_arc> arcs;
        for (int node = 0; node < plan.nodes_per_group; ++node) {
            for (int a = 0; a < plan.arcs_per_node && !free_gates.empty(); ++a) {
                arcs.push_back({below(node + 1) - 1, node, free_gates.back(), -1});
                free_gates.pop_back();
            }
        }
        if (plan.swapped) {
            std::reverse(arcs.begin(), arcs.end());
        }
        for (drawn_arc& arc : arcs) {
            arc.flow = add_column(record, "", false, 0.0);
            add_row(record, arc.flow, {arc.gate}, 0.0, -1.0);
        }
        for (int node = 0; node < plan.nodes_per_group; ++node) {
            std::vector<int> entering;
            for (const drawn_arc& arc : arcs) {
                if (arc.head == node) {
                    entering.push_back(arc.flow);
                }
            }
            const bool wanted = chance(plan.demand_share);
            const int weight = 1 + below(plan.largest_weight);
            const int repeats = wanted ? 1 + below(5) / 4 : 0;
            if (entering.empty()) {
                continue;
            }
            for (const drawn_arc& arc : arcs) {
                if (arc.tail == node) {
                    add_row(record, arc.flow, entering, 0.0, -1.0);
                }
            }
            for (int k = 0; k < repeats; ++k) {
                const std::string name = "s_" + std::to_string(group) + "_" + std::to_string(node);
                add_row(record, add_column(record, name, false, weight), entering, 0.0, -1.0);
            }
        }
    }
    return record;
}

double best_by_enumeration(const model_record& record) {
    std::vector<std::vector<int>> choices;
    for (int r = 0; r < record.num_rows(); ++r) {
        const auto begin = record.row_column.begin();
        if (record.row_upper[static_cast<std::size_t>(r)] == 1.0) {
            choices.emplace_back(begin + static_cast<long>(record.row_start[static_cast<std::size_t>(r)]),
                                 begin + static_cast<long>(record.row_start[static_cast<std::size_t>(r) + 1]));
        }
    }
    double best = 0.0;
    std::vector<double> values(static_cast<std::size_t>(record.num_columns()), 0.0);
    const auto count = [&] {
        for (std::size_t c = 0; c < values.size(); ++c) {
            values[c] = record.column_integral[c] != 0 ? values[c] : 1.0;
        }
        for (bool changed = true; changed;) {
            changed = false;
            for (std::size_t r = 0; r < record.row_upper.size(); ++r) {
                int first = -1;
                double others = 0.0;
                for (std::size_t t = record.row_start[r]; t < record.row_start[r + 1]; ++t) {
                    const auto column = static_cast<std::size_t>(record.row_column[t]);
                    if (record.row_value[t] > 0.0 && record.row_upper[r] == 0.0) {
                        first = record.row_column[t];
                    } else {
                        others += values[column];
                    }
                }
                if (first >= 0 && values[static_cast<std::size_t>(first)] > std::min(1.0, others)) {
                    values[static_cast<std::size_t>(first)] = std::min(1.0, others);
                    changed = true;
                }
            }
        }
        best = std::max(best, std::inner_product(values.begin(), values.end(), record.column_objective.begin(), 0.0));
    };
    for (long mask = 0; mask < 1L << choices.size(); ++mask) {
        for (std::size_t c = 0; c < choices.size(); ++c) {
            const bool second = (mask >> c & 1) != 0;
            values[static_cast<std::size_t>(choices[c].front())] = second && choices[c].size() > 1 ? 0.0 : 1.0;
            if (choices[c].size() > 1) {
                values[static_cast<std::size_t>(choices[c].back())] = second ? 1.0 : 0.0;
            }
        }
        count();
    }
    return best;
}
