// Parts of a problem that share no choice.
#include <algorithm>
#include <utility>

#include <gtest/gtest.h>

#include "solver/find/shared_state.hpp"
#include "solver/reduce/reduce.hpp"
#include "solver/reduce/split.hpp"
#include "solver/support/random_reach.hpp"

using namespace solver;

TEST(splitting, parts_share_nothing_and_lose_nothing) {
    for (unsigned seed = 0; seed < 100; ++seed) {
        const reach_plan plan{.num_choices = 60, .num_groups = 12, .nodes_per_group = 4, .arcs_per_node = 1};
        const contested_problem problem = reduce(*find_reach_structure(draw_reach_model(seed, plan))).contested;
        shared_state whole(problem);
        long weight = 0;
        long total = 0;
        std::vector<int> seen(problem.choices.size(), 0);
        for (const contested_problem& part : split(problem)) {
            shared_state state(part);
            weight += state.weight();
            total += part.total_weight();
            for (const int choice : part.choices) {
                ++seen[static_cast<std::size_t>(choice)];
            }
        }
        EXPECT_EQ(weight, whole.weight());
        EXPECT_EQ(total, problem.total_weight());
        EXPECT_EQ(std::count(seen.begin(), seen.end(), 1), problem.num_choices());
    }
}

// A large problem must not be finished first, neither its reducing nor its splitting.
TEST(splitting, ends_soon_when_stopped) {
    int problems = 0;
    for (unsigned seed = 0; seed < 100; ++seed) {
        const reach_plan plan{.num_choices = 60, .num_groups = 25, .nodes_per_group = 4, .window = 6};
        const reach_structure structure = *find_reach_structure(draw_reach_model(seed, plan));
        const contested_problem problem = reduce(structure).contested;
        if (count_parts(problem) < 2) {
            continue;
        }
        ++problems;
        long asked = 0;
        long last = 1'000'000;  // the question that is answered with a stop
        solve_watch watch;
        watch.stop_requested = [&] { return ++asked >= last; };
        EXPECT_TRUE(reduce(structure, {}, watch));
        const long in_reduce = std::exchange(asked, 0);
        EXPECT_FALSE(split(problem, watch).empty());
        const long in_split = std::exchange(asked, 0);
        // Each pair is made, simplified and gathered; and the last two again in its part.
        const auto num_pairs = static_cast<long>(problem.pairs.size());
        EXPECT_GT(in_reduce, 3 * num_pairs);
        EXPECT_GT(in_split, 2 * num_pairs);
        for (last = 1; last <= in_split; ++last) {
            EXPECT_TRUE(split(problem, watch).empty());
            EXPECT_LE(std::exchange(asked, 0), last + 1);  // who is around asks again
        }
        for (last = 1; last <= in_reduce; ++last) {
            EXPECT_FALSE(reduce(structure, {}, watch));
            EXPECT_LE(std::exchange(asked, 0), last + 1);
        }
    }
    EXPECT_GT(problems, 10);
}
