// What a search begins from, and what it leaves when it is ended early.
#include <algorithm>
#include <ctime>

#include <gtest/gtest.h>

#include "solver/bound/cut_master.hpp"
#include "solver/check/solve_record.hpp"
#include "solver/prove/contested_search.hpp"
#include "solver/prove/structured_back_end.hpp"
#include "solver/reduce/reduce.hpp"
#include "solver/reduce/split.hpp"
#include "solver/structure/first_answer.hpp"
#include "solver/structure/index.hpp"
#include "solver/support/random_reach.hpp"

using namespace solver;

namespace {

// Proteins in a row, and pairs from near one end to near the other, in turn this way and
// that way: of the pairs of the two directions one kind is satisfied, the other lost.
model_record path_model(int num_choices, int num_pairs) {
    model_record record;
    std::vector<int> gates;
    for (int c = 0; c < num_choices; ++c) {
        const int there = add_column(record, {0.0}, "o_there_" + std::to_string(c));
        const int back = add_column(record, {0.0}, "o_back_" + std::to_string(c));
        gates.insert(gates.end(), {there, back});
        add_row(record, -infinity, {{there, 1.0}, {back, 1.0}}, 1.0);
    }
    for (int pair = 0; pair < num_pairs; ++pair) {
        std::vector<int> chain;
        for (int c = pair % 8; c < num_choices - pair % 8; ++c) {
            chain.push_back(gates[at(2 * c + pair % 2)]);
        }
        if (pair % 2 == 1) {
            std::reverse(chain.begin(), chain.end());
        }
        int last_flow = -1;
        for (const int gate : chain) {
            const int flow = add_column(record, {0.0, 0.0, 1.0, false});
            add_bound(record, flow, {gate});
            if (last_flow >= 0) {
                add_bound(record, flow, {last_flow});
            }
            last_flow = flow;
        }
        add_bound(record, add_column(record, {1.0, 0.0, 1.0, false}), {last_flow});
    }
    return record;
}

// Processor seconds of this thread for reducing a model and laying out its program.
double time_to_lay_out(const model_record& record) {
    const reach_structure structure = *find_reach_structure(record);
    const auto now = [] {
        timespec time{};
        clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
        return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
    };
    const double start = now();
    first_directions(structure);
    const settled_problem reduced = reduce(structure);
    const solve_watch watch;
    const cut_master master(reduced.contested, watch);
    EXPECT_GT(master.program().num_rows(), 0);
    return now() - start;
}

}  // namespace

// Whatever is done with the choices that no chain needed, no pair more is reached.
TEST(first_answer, leaves_no_pair_that_could_still_be_reached) {
    int undecided = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        SCOPED_TRACE(seed);
        const reach_plan plan{.num_choices = 9, .num_groups = 4, .nodes_per_group = 3, .window = 5, .one_side = true};
        const model_record record = draw_reach_model(seed, plan);
        const reach_structure structure = *find_reach_structure(record);
        const directions first = first_directions(structure);
        const long weight = reached_weight(structure, first);
        for (int mask = 0; mask < 1 << plan.num_choices; ++mask) {
            directions chosen = first;
            for (int c = 0; c < plan.num_choices; ++c) {
                if (chosen[at(c)] < 0) {
                    chosen[at(c)] = static_cast<signed char>(mask >> c & 1);
                    ++undecided;
                }
            }
            ASSERT_EQ(reached_weight(structure, chosen), weight);
        }
    }
    EXPECT_GT(undecided, 0);
}

// Ended at any moment, a search has what it began from or more.
TEST(early_end, never_loses_the_first_answer) {
    const model_record record = draw_reach_model(1, hard_plan(120));
    const reach_structure structure = *find_reach_structure(record);
    const auto first = static_cast<double>(reached_weight(structure, first_directions(structure)));
    EXPECT_GT(first, 0.0);
    double last = 0.0;
    for (long questions = 0; questions < 3000; questions = 1 + questions + questions / 20) {
        SCOPED_TRACE(questions);
        long asked = 0;
        solve_watch watch;
        watch.stop_requested = [&] { return asked++ >= questions; };
        solve_answer answer = solve_by_structure(structure, record.num_columns(), watch);
        EXPECT_GE(answer.objective, first);
        EXPECT_LE(answer.objective, answer.bound);
        double objective = 0.0;
        ASSERT_EQ(check_values(record, answer.values, objective), "");
        EXPECT_EQ(objective, answer.objective);
        last = answer.objective;
    }
    EXPECT_GT(last, first);
}

TEST(early_end, of_a_long_path_has_the_pairs_of_one_direction) {
    const model_record record = path_model(3000, 9);
    solve_watch watch;
    watch.stop_requested = [] { return true; };
    const reach_structure structure = *find_reach_structure(record);
    EXPECT_GE(solve_by_structure(structure, record.num_columns(), watch).objective, 4.0);
    const solve_answer answer = solve_by_structure(structure, record.num_columns(), {});
    EXPECT_EQ(answer.status, solve_status::optimal);
    EXPECT_EQ(answer.objective, 5.0);
}

// The same number of rows, in few long paths or in many short ones. Work that grows with
// the square of the length would take 32 times as long.
TEST(reducing, follows_the_arcs_of_long_paths) {
    const model_record long_paths = path_model(16000, 10);
    const model_record short_paths = path_model(500, 320);
    EXPECT_LT(time_to_lay_out(long_paths), 6.0 * time_to_lay_out(short_paths));
}

// A goal out of reach ends the search of the parts as soon as that shows; one within reach
// is reached.
TEST(goal, is_passed_on_to_the_parts_of_a_problem) {
    int problems = 0;
    long reports_in_vain = 0;
    long reports_of_all = 0;
    for (unsigned seed = 0; seed < 60; ++seed) {
        SCOPED_TRACE(seed);
        const reach_plan plan{.num_choices = 60, .num_groups = 25, .nodes_per_group = 4, .window = 6};
        const contested_problem problem = reduce(*find_reach_structure(draw_reach_model(seed, plan))).contested;
        if (split(problem).size() < 2) {
            continue;
        }
        ++problems;
        const auto search = [&problem](long goal, long& reports) {
            solve_watch watch;
            watch.report = [&reports](const solve_progress&) { ++reports; };
            const directions start(problem.choices.size(), 0);
            return search_contested(problem, start, {.goal = goal}, {}, watch);
        };
        long all = 0;
        const contested_answer best = search(0, all);
        EXPECT_EQ(best.weight, best.bound);
        long reports = 0;
        const contested_answer reached = search(best.weight, reports);
        EXPECT_EQ(reached.weight, best.weight);
        reports = 0;
        const contested_answer missed = search(best.weight + 1, reports);
        EXPECT_LE(missed.bound, best.weight);
        EXPECT_LE(missed.weight, missed.bound);
        reports_in_vain += reports;
        reports_of_all += all;
        reports = 0;
        EXPECT_LT(search(problem.total_weight() + 1, reports).bound, problem.total_weight() + 1);
        EXPECT_EQ(reports, 0);
    }
    EXPECT_GT(problems, 10);
    EXPECT_LT(reports_in_vain, reports_of_all / 2);
}
