// Regrets and prices are those that counting all directions gives, and those that solving
// anew gives; ranges of what is not proven hold them.
#include <algorithm>
#include <atomic>
#include <cmath>
#include <iostream>

#include <gtest/gtest.h>

#include "solver/back_ends/back_ends.hpp"
#include "solver/bound/cut_master.hpp"
#include "solver/check/solve_record.hpp"
#include "solver/find/shared_state.hpp"
#include "solver/reduce/reduce.hpp"
#include "solver/regret/parity_cuts.hpp"
#include "solver/regret/plain_regrets.hpp"
#include "solver/structure/index.hpp"
#include "solver/structure/reach_values.hpp"
#include "solver/support/random_reach.hpp"

using namespace solver;

namespace {

bool is_demand(const model_record& record, std::size_t column) {
    return !record.column_names[column].empty() && record.column_names[column][0] == 's';
}

// Some with weights, and of these some with demands of no weight.
model_record draw_tiny_model(unsigned seed) {
    const int s = static_cast<int>(seed);
    const reach_plan plan{.num_choices = 3 + s % 7,
                          .num_groups = 1 + s % 5,
                          .nodes_per_group = 2 + s % 4,
                          .arcs_per_node = 1 + s % 3,
                          .lone_share = 0.1 * (s % 4),
                          .largest_weight = s % 2 == 0 ? 1 : 5};
    model_record record = draw_reach_model(seed, plan);
    for (std::size_t c = 0; c < record.column_objective.size(); ++c) {
        if (record.column_objective[c] == 5.0) {
            record.column_objective.set(c, 0.0);
        }
    }
    return record;
}

// Of 30 to 60 contested choices; one of far more, and one with many lost demands.
model_record draw_contested_model(unsigned seed) {
    const int s = static_cast<int>(seed);
    reach_plan plan{.num_choices = 45 + s * 37 % 50,
                    .nodes_per_group = 4,
                    .window = 5 + s % 4,
                    .lone_share = 0.05,
                    .demand_share = 0.3,
                    .largest_weight = s % 3 == 0 ? 5 : 1};
    if (s == 5) {
        plan.num_choices = 700;
        plan.window = 5;
        plan.demand_share = 0.2;
    } else if (s == 40) {
        plan.num_choices = 430;
        plan.arcs_per_node = 1;
        plan.demand_share = 0.5;
    }
    plan.num_groups = plan.num_choices * 3 / 4;
    return draw_reach_model(seed, plan);
}

// Fewer where everything takes ten times as long.
#ifdef __SANITIZE_ADDRESS__
constexpr int num_contested_models = 10;
#else
constexpr int num_contested_models = 100;
#endif

// By column: the best objective of directions that leave it at 0, and at 1; -1 = none do.
struct best_by_value {
    std::vector<double> at_zero;
    std::vector<double> at_one;
    double overall = 0.0;
};

best_by_value best_of_all(const model_record& record) {
    best_by_value best;
    best.at_zero.assign(record.column_lower.size(), -1.0);
    best.at_one = best.at_zero;
    enumerate(record, [&best](const std::vector<double>& values, double objective) {
        best.overall = std::max(best.overall, objective);
        for (std::size_t c = 0; c < values.size(); ++c) {
            double& of_column = values[c] == 0.0 ? best.at_zero[c] : best.at_one[c];
            of_column = std::max(of_column, objective);
        }
    });
    return best;
}

bool is_gate_of_two(const model_record& record, std::size_t column) {
    for (std::size_t r = 0; r < record.row_upper.size(); ++r) {
        const std::size_t first = record.row_start[r];
        if (record.row_upper[r] == 1.0 && record.row_start[r + 1] - first == 2 &&
            (record.row_column[first] == static_cast<int>(column) ||
             record.row_column[first + 1] == static_cast<int>(column))) {
            return true;
        }
    }
    return false;
}

// Every exact value lies in its range, and fills it where the answer is said to be best and
// nobody was in a hurry. Gives the number of values compared.
int expect_in_ranges(const model_record& record, const solve_answer& answer, const regret_report& found, bool exact) {
    const best_by_value best = best_of_all(record);
    int compared = 0;
    for (std::size_t c = 0; c < answer.values.size(); ++c) {
        SCOPED_TRACE(c);
        proven_range regret;
        proven_range price;
        if (answer.values[c] == 1.0 && is_gate_of_two(record, c)) {
            regret.lower = regret.upper = std::lround(best.overall - best.at_zero[c]);
            ++compared;
        }
        if (answer.values[c] == 0.0 && is_demand(record, c)) {
            price.lower = price.upper =
                best.at_one[c] < 0.0 ? unattainable : std::lround(best.overall - best.at_one[c]);
            ++compared;
        }
        EXPECT_LE(found.regret[c].lower, regret.lower);
        EXPECT_GE(found.regret[c].upper, regret.upper);
        EXPECT_LE(found.price[c].lower, price.lower);
        EXPECT_GE(found.price[c].upper, price.upper);
        double given_up = 0.0;
        for (const int other : found.against[c]) {
            EXPECT_TRUE(is_demand(record, static_cast<std::size_t>(other)));
            EXPECT_EQ(answer.values[static_cast<std::size_t>(other)], 1.0);
            given_up += record.column_objective[static_cast<std::size_t>(other)];
        }
        if (exact) {
            EXPECT_EQ(found.regret[c], regret);
            EXPECT_EQ(found.price[c], price);
            EXPECT_TRUE(price.lower == unattainable || given_up >= static_cast<double>(price.lower));
        }
    }
    return compared;
}

// Directions that are far from best, with a bound that is not met.
solve_answer poor_answer(const model_record& record, unsigned seed) {
    const reach_structure structure = *find_reach_structure(record);
    directions chosen(static_cast<std::size_t>(structure.num_choices()));
    for (std::size_t c = 0; c < chosen.size(); ++c) {
        chosen[c] = static_cast<signed char>(structure.gate_column[2 * c + 1] < 0 ? 0 : seed >> c % 8 & 1);
    }
    solve_answer answer;
    answer.status = solve_status::feasible;
    answer.values = values_of(structure, chosen, record.num_columns());
    answer.objective = static_cast<double>(reached_weight(structure, chosen));
    answer.bound = solve_record(record, search_with_highs, {}).objective + 0.5 * (seed % 5);
    return answer;
}

}  // namespace

TEST(regrets, equal_enumeration) {
    int compared = 0;
    for (unsigned seed = 0; seed < 600; ++seed) {
        SCOPED_TRACE(seed);
        const model_record record = draw_tiny_model(seed);
        const solve_answer answer = solve_record(record, search_with_highs, {});
        const auto found = find_regrets(record, answer, {}, {});
        ASSERT_TRUE(found);
        compared += expect_in_ranges(record, answer, *found, true);
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_GT(compared, 2500);
    std::cout << "compared " << compared << " regrets and prices with those of all directions, of 600 models\n";
}

TEST(regrets, lie_in_their_ranges_when_stopped_or_of_a_poor_answer) {
    int open = 0;
    for (unsigned seed = 0; seed < 400; ++seed) {
        SCOPED_TRACE(seed);
        const model_record record = draw_tiny_model(seed);
        const solve_answer answer =
            seed % 2 == 0 ? poor_answer(record, seed) : solve_record(record, search_with_highs, {});
        int asked = 0;
        const int stop_after = static_cast<int>(seed / 2 % 8 * seed % 50);
        const auto found = find_regrets(record, answer, {},
                                        {.stop_requested = [&] { return (seed % 4 != 2) && ++asked > stop_after; }});
        ASSERT_TRUE(found);
        expect_in_ranges(record, answer, *found, false);
        ASSERT_FALSE(HasFailure());
        open += static_cast<int>(std::count_if(found->regret.begin(), found->regret.end(),
                                               [](const auto& range) { return range.lower < range.upper; }));
    }
    EXPECT_GT(open, 100);
}

TEST(regrets, equal_plain_solving) {
    int compared = 0;
    int most = 0;
    unsigned seed = 0;
    for (int tested = 0; tested < num_contested_models; ++seed) {
        SCOPED_TRACE(seed);
        const model_record record = draw_contested_model(seed);
        const int contested = reduce(*find_reach_structure(record)).contested.num_choices();
        if (contested < 30) {
            continue;
        }
        ++tested;
        most = std::max(most, contested);
        const solve_answer answer = solve_record(record, search_with_highs, {});
        ASSERT_EQ(answer.status, solve_status::optimal);
        const auto found = find_regrets(record, answer, {}, {});
        ASSERT_TRUE(found);
        const regret_report plain = plain_regrets(record, answer);
        ASSERT_EQ(found->regret, plain.regret);
        ASSERT_EQ(found->price, plain.price);
        for (std::size_t c = 0; c < answer.values.size(); ++c) {
            const bool is_asked =
                is_demand(record, c) ? answer.values[c] == 0.0 : answer.values[c] == 1.0 && is_gate_of_two(record, c);
            compared += is_asked ? 1 : 0;
        }
    }
    EXPECT_GT(most, 200);
    std::cout << "compared " << compared << " regrets and prices with plain solving, of " << num_contested_models
              << " models\n";
}

TEST(parity_cuts, are_broken_and_kept_by_all_directions) {
    int num_cuts = 0;
    for (unsigned seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        const settled_problem left = reduce(*find_reach_structure(draw_reach_model(seed, hard_plan(14))));
        const contested_problem& problem = left.contested;
        if (problem.choices.empty()) {
            continue;
        }
        const solve_watch watch;
        cut_master master(problem, watch);
        do {
            ASSERT_TRUE(master.solve());
        } while (master.add_broken_cuts(1e-6) > 0);
        std::vector<const program_row*> rows;
        for (const program_row& row : master.program().rows()) {
            rows.push_back(&row);
        }
        const std::vector<program_row> cuts = find_parity_cuts(rows, master.program().values());
        num_cuts += static_cast<int>(cuts.size());
        const auto sum = [](const program_row& row, const std::vector<double>& values) {
            double total = 0.0;
            for (std::size_t t = 0; t < row.columns.size(); ++t) {
                total += row.values[t] * values[at(row.columns[t])];
            }
            return total;
        };
        for (const program_row& cut : cuts) {
            EXPECT_NEAR(sum(cut, master.program().values()), cut.upper + 0.5, 1e-4);
        }
        shared_state state(problem);
        for (long mask = 0; mask < 1L << problem.num_choices(); mask += 1 + seed % 3) {
            directions chosen(problem.choices.size());
            std::vector<double> values(at(master.program().num_columns()), 0.0);
            for (int c = 0; c < problem.num_choices(); ++c) {
                chosen[at(c)] = static_cast<signed char>(mask >> c & 1);
                values[at(c)] = chosen[at(c)] == 0 ? 1.0 : 0.0;
            }
            state.set(chosen);
            for (int node = 0; node < problem.shared.num_nodes(); ++node) {
                const int pair = problem.shared.nodes[at(node)].pair;
                if (pair >= 0 && master.pair_column(pair) >= 0 && state.reached(node)) {
                    values[at(master.pair_column(pair))] = 1.0;
                }
            }
            for (const program_row& cut : cuts) {
                ASSERT_LE(sum(cut, values), cut.upper + 1e-9);
            }
        }
    }
    EXPECT_GT(num_cuts, 30);
}

TEST(regrets, do_not_depend_on_jobs) {
    for (unsigned seed = 1; seed < 13; ++seed) {
        SCOPED_TRACE(seed);
        const model_record record = draw_contested_model(seed);
        const solve_answer answer = solve_record(record, search_with_highs, {});
        int reports = 0;
        int last = 0;
        const auto one = find_regrets(record, answer, {}, {});
        const auto many = find_regrets(record, answer,
                                       {.jobs = 4,
                                        .report =
                                            [&](int settled, int all) {
                                                EXPECT_EQ(settled, ++reports);
                                                last = all;
                                            }},
                                       {});
        EXPECT_EQ(reports, last);
        ASSERT_TRUE(one && many);
        EXPECT_EQ(one->regret, many->regret);
        EXPECT_EQ(one->price, many->price);
        EXPECT_EQ(one->against, many->against);
    }
}
