// Regrets and prices are those that counting all directions gives.
#include <algorithm>
#include <cmath>
#include <iostream>

#include <gtest/gtest.h>

#include "solver/back_ends/back_ends.hpp"
#include "solver/check/solve_record.hpp"
#include "solver/regret/find_regrets.hpp"
#include "solver/support/random_reach.hpp"

using namespace solver;

namespace {

reach_plan tiny_plan(unsigned seed) {
    const int s = static_cast<int>(seed);
    return {.num_choices = 3 + s % 7,
            .num_groups = 1 + s % 5,
            .nodes_per_group = 2 + s % 4,
            .arcs_per_node = 1 + s % 3,
            .lone_share = 0.1 * (s % 4),
            .largest_weight = s % 2 == 0 ? 1 : 5};
}

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

bool is_demand(const model_record& record, std::size_t column) {
    return !record.column_names[column].empty() && record.column_names[column][0] == 's';
}

// Every exact value lies in its range. Gives the number of values compared.
int expect_in_ranges(const model_record& record, const solve_answer& answer, const regret_report& found) {
    const best_by_value best = best_of_all(record);
    int compared = 0;
    for (std::size_t c = 0; c < answer.values.size(); ++c) {
        SCOPED_TRACE(c);
        const auto contains = [](const proven_range& range, long exact) {
            return range.lower <= exact && exact <= range.upper;
        };
        long regret = 0;
        long price = 0;
        if (answer.values[c] == 1.0 && is_gate_of_two(record, c)) {
            regret = std::lround(best.overall - best.at_zero[c]);
            ++compared;
        }
        if (answer.values[c] == 0.0 && is_demand(record, c)) {
            price = best.at_one[c] < 0.0 ? unattainable : std::lround(best.overall - best.at_one[c]);
            ++compared;
        }
        EXPECT_TRUE(contains(found.regret[c], regret)) << regret;
        EXPECT_TRUE(contains(found.price[c], price)) << price;
        if (answer.status == solve_status::optimal) {
            EXPECT_EQ(found.regret[c].lower, found.regret[c].upper);
            EXPECT_EQ(found.price[c].lower, found.price[c].upper);
        }
        double given_up = 0.0;
        for (const int other : found.against[c]) {
            EXPECT_TRUE(is_demand(record, static_cast<std::size_t>(other)));
            EXPECT_EQ(answer.values[static_cast<std::size_t>(other)], 1.0);
            given_up += record.column_objective[static_cast<std::size_t>(other)];
        }
        if (answer.status == solve_status::optimal && price != unattainable) {
            EXPECT_GE(given_up, static_cast<double>(price));
        }
    }
    return compared;
}

}  // namespace

TEST(regrets, equal_enumeration) {
    int compared = 0;
    for (unsigned seed = 0; seed < 600; ++seed) {
        SCOPED_TRACE(seed);
        const model_record record = draw_reach_model(seed, tiny_plan(seed));
        const solve_answer answer = solve_record(record, search_with_highs, {});
        const auto found = find_regrets(record, answer, {}, {});
        ASSERT_TRUE(found);
        compared += expect_in_ranges(record, answer, *found);
        ASSERT_FALSE(HasFailure());
    }
    EXPECT_GT(compared, 2500);
    std::cout << "compared " << compared << " regrets and prices with those of all directions, of 600 models\n";
}
