// Parts of a problem that share no choice.
#include <algorithm>

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
