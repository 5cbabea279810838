// What is recognised as reachability, what is not, and that every way of solving it
// gives the same optimum.
#include <functional>
#include <map>
#include <set>

#include <gtest/gtest.h>

#include "solver/solve_record.hpp"
#include "solver/structure/chain_bound.hpp"
#include "solver/structure/cut_master.hpp"
#include "solver/structure/neutral_order.hpp"
#include "solver/structure/random_reach.hpp"
#include "solver/structure/reduce.hpp"
#include "solver/structure/structured_back_end.hpp"

using namespace solver;

namespace {

reach_plan tiny_plan(unsigned seed) {
    reach_plan plan;
    plan.num_choices = 2 + static_cast<int>(seed % 7);
    plan.num_groups = 1 + static_cast<int>(seed % 5);
    plan.nodes_per_group = 2 + static_cast<int>(seed % 4);
    plan.arcs_per_node = 1 + static_cast<int>(seed % 3);
    plan.lone_share = 0.1 * (seed % 4);
    plan.largest_weight = seed % 2 == 0 ? 1 : 5;
    return plan;
}

std::set<std::string> names_at_one(const model_record& record, const std::vector<double>& values) {
    std::set<std::string> names;
    for (std::size_t c = 0; c < values.size(); ++c) {
        if (values[c] == 1.0 && !record.column_names[c].empty()) {
            names.emplace(record.column_names[c]);
        }
    }
    return names;
}

void expect_best(const model_record& record, const solve_answer& answer, double best) {
    EXPECT_EQ(answer.status, solve_status::optimal);
    EXPECT_EQ(answer.objective, best);
    EXPECT_EQ(answer.bound, best);
    std::vector<double> values = answer.values;
    double objective = 0.0;
    EXPECT_EQ(check_values(record, values, objective), "");
    EXPECT_EQ(objective, best);
}

}  // namespace

TEST(structured_search, equals_enumeration_whichever_step_is_left_out) {
    int contested = 0;
    for (unsigned seed = 0; seed < 2000; ++seed) {
        SCOPED_TRACE(seed);
        const model_record record = draw_reach_model(seed, tiny_plan(seed));
        const auto structure = find_reach_structure(record);
        ASSERT_TRUE(structure);
        const double best = best_by_enumeration(record);
        const settle_steps all;
        const settle_steps less[] = {
            {false, true, true}, {true, false, true}, {true, true, false}, {false, false, false}};
        for (const settle_steps& steps : {all, less[seed % 4]}) {
            expect_best(record, solve_by_structure(*structure, record.num_columns(), {}, steps), best);
        }
        contested += reduce(*structure).contested.num_choices() > 0 ? 1 : 0;
    }
    EXPECT_GT(contested, 200);  // or the search had nothing to do
}

TEST(structured_search, equals_the_plain_back_end) {
    int contested = 0;
    for (unsigned seed = 0; seed < 150; ++seed) {
        SCOPED_TRACE(seed);
        reach_plan plan;
        plan.num_choices = 55 + static_cast<int>(seed * 7 % 55);
        plan.num_groups = plan.num_choices * 3 / 5;
        plan.nodes_per_group = 6;
        plan.lone_share = 0.02;
        plan.demand_share = 0.3;
        plan.largest_weight = seed % 3 == 0 ? 3 : 1;
        model_record record = draw_reach_model(seed, plan);
        record.settings.relative_gap = 0.0;
        const solve_answer plain = solve_record(record, solve_with_highs, {});
        ASSERT_EQ(plain.status, solve_status::optimal);
        expect_best(record, solve_record(record, search_with_highs, {}), plain.objective);
        contested += reduce(*find_reach_structure(record)).contested.num_choices();
    }
    EXPECT_GT(contested, 150 * 30);
}

TEST(structured_search, never_proves_a_bound_below_the_optimum) {
    double plain = 0.0;
    double tighter = 0.0;
    for (unsigned seed = 0; seed < 500; ++seed) {
        SCOPED_TRACE(seed);
        const model_record record = draw_reach_model(seed, tiny_plan(seed));
        const settled_problem left = reduce(*find_reach_structure(record), {false, false, true});
        if (left.contested.choices.empty()) {
            continue;
        }
        const double best = best_by_enumeration(record) - static_cast<double>(left.satisfied_weight);
        const solve_watch watch;
        cut_master master(left.contested, watch);
        do {
            ASSERT_TRUE(master.solve());
            ASSERT_GE(master.program().bound(), best - 1e-9);
        } while (master.add_broken_cuts(1e-6) > 0);
        chain_bound chains(left.contested, watch);
        for (int round = 0; round < 10 && chains.improve(); ++round) {
        }
        ASSERT_GE(chains.bound(), best - 1e-9);
        plain += master.program().bound();
        tighter += std::min(chains.bound(), master.program().bound());
    }
    EXPECT_LT(tighter, plain - 1.0);
}

TEST(structured_search, stops_at_once_with_a_valid_answer) {
    reach_plan plan;
    plan.num_choices = 200;
    plan.num_groups = 150;
    plan.lone_share = 0.0;
    const model_record record = draw_reach_model(1, plan);
    solve_watch watch;
    watch.stop_requested = [] { return true; };
    const solve_answer answer = solve_record(record, search_with_highs, watch);
    EXPECT_EQ(answer.status, solve_status::feasible);
    EXPECT_LE(answer.objective, answer.bound);
    EXPECT_GT(answer.objective, 0.0);
}

// An answer holds no more than its reached demands need, and does not depend on which
// end of a choice is named first; both for the search and for a plain back end.
TEST(answers, need_all_they_hold_and_do_not_depend_on_the_order_of_ends) {
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        reach_plan plan = tiny_plan(seed);
        plan.num_choices += 10;
        plan.demand_share = 0.3;
        const model_record record = draw_reach_model(seed, plan);
        plan.swapped = true;
        const model_record swapped = draw_reach_model(seed, plan);
        for (const back_end_function back_end : {search_with_highs, solve_with_highs}) {
            const solve_answer answer = solve_record(record, back_end, {});
            const solve_answer other = solve_record(swapped, back_end, {});
            EXPECT_EQ(names_at_one(record, answer.values), names_at_one(swapped, other.values));
            // Without any one of its gates, an arc of some chain to a reached demand is shut.
            std::vector<double> less = answer.values;
            double objective = 0.0;
            for (std::size_t c = 0; c < less.size(); ++c) {
                if (record.column_integral[c] != 0 && answer.values[c] == 1.0) {
                    less[c] = 0.0;
                    EXPECT_NE(check_values(record, less, objective), "") << record.column_names[c];
                    less[c] = 1.0;
                }
            }
        }
    }
}

TEST(recognition, refuses_models_just_off_the_shape_and_solves_them_all_the_same) {
    // x and x' opposite, z alone; root -x-> a -z-> b, and root -x'-> c; demands at b and c.
    const auto draw = [] {
        model_record record;
        const int x = add_column(record, "x", true, 0);
        const int opposite = add_column(record, "x'", true, 0);
        const int z = add_column(record, "z", true, 0);
        const int to_a = add_column(record, "", false, 0);
        const int to_b = add_column(record, "", false, 0);
        const int to_c = add_column(record, "", false, 0);
        add_row(record, x, {opposite}, 1, 1);
        add_row(record, z, {}, 1, 1);
        add_row(record, to_a, {x}, 0, -1);
        add_row(record, to_b, {z}, 0, -1);
        add_row(record, to_c, {opposite}, 0, -1);
        add_row(record, to_b, {to_a}, 0, -1);
        add_row(record, add_column(record, "at b", false, 3), {to_b}, 0, -1);
        add_row(record, add_column(record, "at c", false, 2), {to_c}, 0, -1);
        return record;
    };
    ASSERT_TRUE(find_reach_structure(draw()));
    const std::map<std::string, std::pair<double, std::function<void(model_record&)>>> changes = {
        {"an extra row", {2, [](model_record& m) { add_row(m, 0, {2}, 0.5, 1); }}},
        {"a gate in two packing rows", {3, [](model_record& m) { add_row(m, 1, {2}, 1, 1); }}},
        {"a gate in no packing row",
         {3, [](model_record& m) { add_row(m, add_column(m, "", false, 0), {add_column(m, "w", true, 0)}, 0, -1); }}},
        {"a negative coefficient", {5, [](model_record& m) { m.row_value[0] = -1; }}},
        {"a coefficient of 2", {3, [](model_record& m) { m.row_value[1] = 2; }}},
        {"a negative weight", {3, [](model_record& m) { m.column_objective.back() = -1; }}},
        {"a fractional weight", {3, [](model_record& m) { m.column_objective.back() = 2.5; }}},
        {"a weight on a gate", {4, [](model_record& m) { m.column_objective[0] = 1; }}},
        {"a weight on a flow", {4, [](model_record& m) { m.column_objective[3] = 1; }}},
        {"another upper bound", {6, [](model_record& m) { m.column_upper[6] = 2, m.row_value[m.row_start[6]] = -2; }}},
        {"another lower bound", {2, [](model_record& m) { m.column_lower[1] = 1; }}},
        {"an integral flow", {3, [](model_record& m) { m.column_integral[4] = 1; }}},
        {"an equality", {3, [](model_record& m) { m.row_lower[0] = 1; }}},
        {"a second capacity", {3, [](model_record& m) { add_row(m, 4, {2}, 0, -1); }}},
        {"a second propagation", {2, [](model_record& m) { add_row(m, 4, {5}, 0, -1); }}},
        {"a second cover", {2, [](model_record& m) { add_row(m, 6, {5}, 0, -1); }}},
        {"overlapping sums",
         {3,
          [](model_record& m) {
              add_row(m, add_column(m, "", false, 0), {3, 5}, 0, -1);
          }}},
        {"a column in no row", {4, [](model_record& m) { add_column(m, "", false, 1); }}},
        {"minimised", {0, [](model_record& m) { m.maximize = false; }}},
        // The flow into b feeds the arc into a: a chain that begins nowhere.
        {"a cycle of flows", {3, [](model_record& m) { add_row(m, 3, {4}, 0, -1); }}},
    };
    for (const auto& [name, change] : changes) {
        SCOPED_TRACE(name);
        model_record record = draw();
        change.second(record);
        EXPECT_FALSE(find_reach_structure(record));
        const solve_answer answer = solve_record(record, search_with_highs, {});
        EXPECT_EQ(answer.status, solve_status::optimal) << answer.reason;
        EXPECT_EQ(answer.objective, change.first);
    }
}
