#include "solver/support/random_reach.hpp"

#include <algorithm>
#include <numeric>
#include <random>

#include "solver/reduce/reduce.hpp"

using solver::model_record;

namespace {

constexpr column gate_column{0.0};
constexpr column flow_column{0.0, 0.0, 1.0, false};

std::string numbered(const char* prefix, int number, const char* suffix = "") {
    return std::string(prefix).append(std::to_string(number)).append(suffix);
}

}  // namespace

reach_plan hard_plan(int num_choices) {
    return {.num_choices = num_choices,
            .num_groups = num_choices * 3 / 5,
            .nodes_per_group = 6,
            .lone_share = 0.02,
            .demand_share = 0.3};
}

model_record draw_reach_model(unsigned seed, const reach_plan& plan) {
    std::mt19937 random(seed);
    const auto below = [&random](int limit) { return static_cast<int>(random() % static_cast<unsigned>(limit)); };
    const auto chance = [&random](double share) { return random() < share * 4294967296.0; };
    model_record record;
    std::vector<std::vector<int>> gates;  // by choice
    for (int c = 0; c < plan.num_choices; ++c) {
        if (chance(plan.lone_share)) {
            gates.push_back({add_column(record, gate_column, numbered("o_", c))});
            add_row(record, -solver::infinity, {{gates.back()[0], 1.0}}, 1.0);
            continue;
        }
        // Names by meaning, columns by the order in which the ends are named.
        const int one = add_column(record, gate_column, numbered("o_", c, plan.swapped ? "_back" : "_there"));
        const int other = add_column(record, gate_column, numbered("o_", c, plan.swapped ? "_there" : "_back"));
        gates.push_back({plan.swapped ? other : one, plan.swapped ? one : other});
        add_row(record, -solver::infinity, {{one, 1.0}, {other, 1.0}}, 1.0);
    }
    for (int group = 0; group < plan.num_groups; ++group) {
        struct drawn_arc {
            int tail, head, gate, flow;
        };
        std::vector<int> free_gates;
        const int first_choice = plan.window > 0 ? below(plan.num_choices) : 0;
        for (int c = 0; c < (plan.window > 0 ? plan.window : plan.num_choices); ++c) {
            const std::vector<int>& of_choice = gates[static_cast<std::size_t>((first_choice + c) % plan.num_choices)];
            const int skipped = plan.one_side ? below(static_cast<int>(of_choice.size())) : 0;
            free_gates.insert(free_gates.end(), of_choice.begin() + skipped,
                              plan.one_side ? of_choice.begin() + skipped + 1 : of_choice.end());
        }
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
            arc.flow = add_column(record, flow_column);
            add_bound(record, arc.flow, {arc.gate});
        }
        for (int node = 0; node < plan.nodes_per_group; ++node) {
            std::vector<int> entering;
            for (const drawn_arc& arc : arcs) {
                if (arc.head == node) {
                    entering.push_back(arc.flow);
                }
            }
            const bool wanted = chance(plan.demand_share);
            const double weight = 1 + below(plan.largest_weight);
            const int repeats = wanted ? 1 + below(5) / 4 : 0;
            if (entering.empty()) {
                continue;
            }
            for (const drawn_arc& arc : arcs) {
                if (arc.tail == node) {
                    add_bound(record, arc.flow, entering);
                }
            }
            for (int k = 0; k < repeats; ++k) {
                const std::string name = numbered(numbered("s_", group, "_").c_str(), node);
                add_bound(record, add_column(record, {weight, 0.0, 1.0, false}, name), entering);
            }
        }
    }
    return record;
}

solver::contested_problem draw_contested(unsigned seed) {
    return solver::reduce(*solver::find_reach_structure(draw_reach_model(seed, hard_plan(40)))).contested;
}

void enumerate(const model_record& record, const value_visitor& visit) {
    const std::vector<double> weights = record.column_objective.plain();
    std::vector<std::pair<int, int>> choices;
    for (std::size_t r = 0; r < record.row_upper.size(); ++r) {
        if (record.row_upper[r] == 1.0 && record.row_start[r + 1] - record.row_start[r] == 2) {
            choices.emplace_back(record.row_column[record.row_start[r]], record.row_column[record.row_start[r] + 1]);
        }
    }
    for (long mask = 0; mask < 1L << choices.size(); ++mask) {
        std::vector<double> values(record.column_objective.size(), 1.0);
        for (std::size_t c = 0; c < choices.size(); ++c) {
            const auto& [one, other] = choices[c];
            values[static_cast<std::size_t>((mask >> c & 1) != 0 ? one : other)] = 0.0;
        }
        for (bool changed = true; changed;) {
            changed = false;
            for (std::size_t r = 0; r < record.row_upper.size(); ++r) {
                double* bounded = nullptr;
                double others = record.row_upper[r];
                for (std::size_t t = record.row_start[r]; t < record.row_start[r + 1]; ++t) {
                    double& value = values[static_cast<std::size_t>(record.row_column[t])];
                    if (record.row_value[t] > 0.0) {
                        bounded = &value;
                    } else {
                        others += value;
                    }
                }
                if (*bounded > others) {
                    *bounded = others;
                    changed = true;
                }
            }
        }
        visit(values, std::inner_product(values.begin(), values.end(), weights.begin(), 0.0));
    }
}

double best_by_enumeration(const model_record& record) {
    double best = 0.0;
    enumerate(record, [&best](const auto&, double objective) { best = std::max(best, objective); });
    return best;
}
