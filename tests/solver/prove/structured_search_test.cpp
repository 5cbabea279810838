// Every way of solving a model that is recognised as reachability gives the same optimum.
#include <algorithm>
#include <functional>
#include <iostream>
#include <random>
#include <set>

#include "solver/bound/chain_bound.hpp"
#include "solver/bound/cut_master.hpp"
#include "solver/check/solve_record.hpp"
#include "solver/prove/contested_search.hpp"
#include "solver/prove/structured_back_end.hpp"
#include "solver/reduce/reduce.hpp"
#include "solver/structure/neutral_order.hpp"
#include "solver/support/back_ends.hpp"
#include "solver/support/random_reach.hpp"

using namespace solver;

namespace {

reach_plan tiny_plan(unsigned seed) {
    const int s = static_cast<int>(seed);
    return {.num_choices = 2 + s % 7,
            .num_groups = 1 + s % 5,
            .nodes_per_group = 2 + s % 4,
            .arcs_per_node = 1 + s % 3,
            .lone_share = 0.1 * (s % 4),
            .largest_weight = s % 2 == 0 ? 1 : 5};
}

int num_contested(const model_record& record) {
    return reduce(*find_reach_structure(record)).contested.num_choices();
}

std::set<std::string> names_at_one(const model_record& record, const std::vector<double>& values) {
    std::set<std::string> names;
    for (std::size_t c = 0; c < values.size(); ++c) {
        names.emplace(values[c] == 1.0 ? record.column_names[c] : "");
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
        std::mt19937 random(seed);
        const auto either = [&random] { return random() % 2 == 0; };
        for (const settle_steps& steps : {settle_steps{}, settle_steps{either(), either(), either(), either()}}) {
            expect_best(record, solve_by_structure(*structure, record.num_columns(), {}, steps), best);
        }
        contested += num_contested(record) > 0 ? 1 : 0;
    }
    EXPECT_GT(contested, 200);  // or the search had nothing to do
}

TEST(structured_search, equals_the_plain_back_end) {
    int most = 0;
    unsigned seed = 0;
    for (int tested = 0; tested < 200; ++seed) {
        SCOPED_TRACE(seed);
        reach_plan plan = hard_plan(40 + static_cast<int>(seed * 7 % 24));
        if (seed % 8 == 0) {  // more choices, less at odds
            plan.num_choices = 60 + static_cast<int>(seed * 7 % 420);
            plan.num_groups = plan.num_choices * 3 / 4;
            plan.nodes_per_group = 4;
            plan.window = 5;
            plan.demand_share = 0.4;
        }
        plan.largest_weight = seed % 3 == 0 ? 5 : 1;
        model_record record = draw_reach_model(seed, plan);
        const int contested = num_contested(record);
        if (contested < 30) {
            continue;
        }
        ++tested;
        most = std::max(most, contested);
        record.settings.relative_gap = 0.0;
        const solve_answer plain = solve_record(record, solve_with_highs, {});
        ASSERT_EQ(plain.status, solve_status::optimal);
        expect_best(record, solve_record(record, search_with_highs, {}), plain.objective);
    }
    EXPECT_GT(most, 250);
    std::cout << "compared 200 optima of the search with HiGHS's on the full model\n";
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
        const auto cut_until_none_is_broken = [&](cut_master& master) {
            do {
                ASSERT_TRUE(master.solve());
                ASSERT_GE(master.program().bound(), best - 1e-9);
            } while (master.add_broken_cuts(1e-6) > 0);
        };
        cut_master master(left.contested, watch);
        cut_until_none_is_broken(master);
        // Whatever directions it leans towards, the bound is the same but for a trifle.
        cut_master leaning(left.contested, watch);
        leaning.lean_towards(directions(left.contested.choices.size(), static_cast<signed char>(seed % 2)));
        cut_until_none_is_broken(leaning);
        ASSERT_NEAR(leaning.program().bound(), master.program().bound(), 1e-3);
        chain_bound chains(left.contested, watch);
        for (int round = 0; round < 10 && chains.improve(); ++round) {
        }
        ASSERT_GE(chains.bound(), best - 1e-9);
        plain += master.program().bound();
        tighter += std::min(chains.bound(), master.program().bound());
    }
    EXPECT_LT(tighter, plain - 1.0);
}

// With all thresholds at their ends, tiny problems go the ways of large ones.
TEST(structured_search, equals_enumeration_on_the_ways_of_hard_problems) {
    int closed = 0;
    for (unsigned seed = 0; seed < 400; ++seed) {
        SCOPED_TRACE(seed);
        const model_record record = draw_reach_model(seed, tiny_plan(seed));
        const settled_problem left = reduce(*find_reach_structure(record), {false, false, true});
        const long best = static_cast<long>(best_by_enumeration(record)) - left.satisfied_weight;
        const search_plan hard{.hard_choices = 0, .hard_share = -1.0, .first_nodes = 1};
        const search_plan branching{.hard_choices = 0, .hard_share = 2.0, .first_nodes = 1};
        const search_plan whole{.splits = seed % 3 == 0, .fixes = false};
        const directions start(left.contested.choices.size(), static_cast<signed char>(seed % 2));
        const search_plan wide{.first_nodes = 1, .many_pairs = 0, .simplex_work = -1.0};
        for (const search_plan& plan : {hard, branching, whole, wide}) {
            const contested_answer answer = search_contested(left.contested, start, plan, {}, {});
            ASSERT_EQ(answer.weight, best);
            ASSERT_EQ(answer.bound, best);
        }
        // Too large for all but plain cuts: what these leave open is open when it is stopped.
        const search_plan huge{.many_pairs = 0, .simplex_work = -1.0, .most_steps = -1.0};
        int questions = 0;
        solve_watch watch;
        watch.stop_requested = [&questions] { return ++questions > 300; };
        const contested_answer answer = search_contested(left.contested, start, huge, {}, watch);
        ASSERT_LE(answer.weight, best);
        ASSERT_GE(answer.bound, best);
        closed += answer.weight == answer.bound ? 1 : 0;
    }
    EXPECT_GT(closed, 200);
}

TEST(structured_search, stops_at_once_with_a_valid_answer) {
    const model_record record = draw_reach_model(1, hard_plan(200));
    solve_watch watch;
    watch.stop_requested = [] { return true; };
    const solve_answer answer = solve_record(record, search_with_highs, watch);
    EXPECT_EQ(answer.status, solve_status::feasible);
    EXPECT_LE(answer.objective, answer.bound);
    EXPECT_GT(answer.objective, 0.0);
}

// Whichever back end gives it, an answer is as good, holds no more than its reached
// demands can use, and does not depend on which end of a choice is named first.
TEST(answers, agree_hold_only_what_is_usable_and_do_not_depend_on_the_order_of_ends) {
    int contested = 0;
    for (unsigned seed = 0; seed < 100; ++seed) {
        SCOPED_TRACE(seed);
        reach_plan plan = hard_plan(15 + static_cast<int>(seed % 25));
        model_record record = draw_reach_model(seed, plan);
        plan.swapped = true;
        model_record swapped = draw_reach_model(seed, plan);
        record.settings.relative_gap = swapped.settings.relative_gap = 0.0;
        const double best = solve_record(record, search_with_highs, {}).objective;
        contested += num_contested(record) > 0 ? 1 : 0;
        for (const named_back_end& back_end : every_back_end) {
            if (back_end.solve.of_record == solve_with_test_cplex && test_cplex_library.empty()) {
                continue;
            }
            const solve_answer answer = solve_record(record, back_end.solve, {});
            const solve_answer other = solve_record(swapped, back_end.solve, {});
            ASSERT_EQ(answer.status, solve_status::optimal) << back_end.name << answer.reason;
            EXPECT_EQ(answer.objective, best) << back_end.name;
            EXPECT_EQ(names_at_one(record, answer.values), names_at_one(swapped, other.values)) << back_end.name;
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
    EXPECT_GT(contested, 80);
    std::cout << "compared 100 optima and their directions, ends named either way: search, HiGHS"
              << (test_cplex_library.empty() ? "\n" : ", CPLEX\n");
}
