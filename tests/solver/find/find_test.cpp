// The search for good directions against plain ways to do the same.
#include <algorithm>
#include <limits>
#include <numeric>
#include <random>
#include <thread>

#include <gtest/gtest.h>

#include "solver/find/local_search.hpp"
#include "solver/find/recombine.hpp"
#include "solver/find/shared_state.hpp"
#include "solver/find/value_search.hpp"
#include "solver/reduce/reduce.hpp"
#include "solver/structure/index.hpp"
#include "solver/support/random_reach.hpp"

using namespace solver;

TEST(shared_weight, follows_every_turn_and_is_back_after_one_that_loses_too_much) {
    int refused = 0;
    for (unsigned seed = 0; seed < 50; ++seed) {
        const contested_problem problem = draw_contested(seed);
        if (problem.num_choices() < 3) {
            continue;
        }
        std::mt19937 random(seed);
        shared_state turned(problem);
        shared_state counted(problem);
        std::vector<int> choices(problem.choices.size());
        std::iota(choices.begin(), choices.end(), 0);
        for (int turn = 0; turn < 200; ++turn) {
            std::shuffle(choices.begin(), choices.end(), random);
            const std::vector<int> some(choices.begin(), choices.begin() + 1 + turn % 3);
            directions chosen = turned.chosen();
            for (const int choice : some) {
                chosen[static_cast<std::size_t>(choice)] ^= 1;
            }
            counted.set(chosen);
            const long least = turned.weight() - turn % 4;
            const bool allowed = counted.weight() >= least;
            ASSERT_EQ(turned.turn(some, least), allowed);
            refused += allowed ? 0 : 1;
            if (allowed) {
                ASSERT_EQ(turned.chosen(), chosen);
            }
            counted.set(turned.chosen());
            ASSERT_EQ(turned.weight(), counted.weight());
            std::vector<int> missed = turned.missed();
            std::vector<int> expected = counted.missed();
            std::sort(missed.begin(), missed.end());
            std::sort(expected.begin(), expected.end());
            ASSERT_EQ(missed, expected);
        }
    }
    EXPECT_GT(refused, 1000);
}

TEST(annealing, keeps_its_best_repeats_itself_and_leaves_fixed_choices_alone) {
    const contested_problem problem = draw_contested(3);
    ASSERT_GT(problem.num_choices(), 10);
    std::vector<char> movable(problem.choices.size(), 1);
    movable[0] = movable[5] = 0;
    std::vector<directions> ends;
    for (int run = 0; run < 2; ++run) {
        shared_state state(problem);
        const long start = state.weight();
        anneal(state, movable, {20000, 1.0, 0.1, 1}, 1L << 40, {});
        EXPECT_GT(state.weight(), start);
        EXPECT_EQ(state.chosen()[0], 0);
        EXPECT_EQ(state.chosen()[5], 0);
        ends.push_back(state.chosen());
    }
    EXPECT_EQ(ends[0], ends[1]);
    // So hot that it ends far from the best it met.
    shared_state state(problem);
    state.set(ends[0]);
    const long start = state.weight();
    anneal(state, movable, {.moves = 2000, .first_temperature = 10, .last_temperature = 10}, 1L << 40, {});
    EXPECT_GE(state.weight(), start);
    anneal(state, movable, {.moves = 2000, .first_temperature = 10, .last_temperature = 10, .gives_best = false},
           1L << 40, {});
    EXPECT_LT(state.weight(), start);
}

TEST(value_search, finds_the_same_whenever_it_is_asked) {
    const contested_problem problem = reduce(*find_reach_structure(draw_reach_model(1, hard_plan(300)))).contested;
    ASSERT_GT(problem.num_choices(), 50);
    const solve_watch watch;
    shared_state state(problem);
    const found_directions start{state.chosen(), state.weight()};
    value_search one(problem, start, problem.total_weight() + 1, watch);
    value_search other(problem, start, problem.total_weight() + 1, watch);
    other.best_of(500000);  // far ahead
    EXPECT_EQ(one.best_of(0).chosen, start.chosen);
    long least = start.weight + 1;
    for (const long moves : {5000L, 40000L, 100000L, 500000L}) {
        const found_directions found = one.best_of(moves);
        EXPECT_GE(found.weight, least);
        least = found.weight;
        state.set(found.chosen);
        EXPECT_EQ(state.weight(), found.weight);
    }
    EXPECT_EQ(one.best_of(500000).chosen, other.best_of(500000).chosen);
    EXPECT_GE(value_search(problem, start, least, watch).best_of(1L << 40).weight, least);  // ends at its target
}

TEST(value_search, asks_its_watch_from_one_thread_alone_and_ends_when_it_says_so) {
    const contested_problem problem = reduce(*find_reach_structure(draw_reach_model(1, hard_plan(300)))).contested;
    const shared_state state(problem);
    const auto caller = std::this_thread::get_id();
    bool stops = false;
    solve_watch watch;
    watch.stop_requested = [&] {
        EXPECT_EQ(std::this_thread::get_id(), caller);
        return stops;
    };
    value_search search(problem, {state.chosen(), state.weight()}, problem.total_weight() + 1, watch);
    const long weight = search.best_of(100000).weight;
    stops = true;
    EXPECT_GE(search.best_of(std::numeric_limits<long>::max()).weight, weight);
}

TEST(recombination, weighs_more_than_either_of_two_drawn_at_random) {
    for (unsigned seed = 0; seed < 20; ++seed) {
        const contested_problem problem =
            reduce(*find_reach_structure(draw_reach_model(seed, hard_plan(100)))).contested;
        std::mt19937 random(seed);
        std::vector<found_directions> parents;
        shared_state state(problem);
        for (int i = 0; i < 2; ++i) {
            directions chosen(problem.choices.size());
            std::generate(chosen.begin(), chosen.end(), [&] { return static_cast<signed char>(random() % 2); });
            state.set(chosen);
            parents.push_back({state.chosen(), state.weight()});
        }
        const bool first = parents[0].weight >= parents[1].weight;
        recombine(problem, parents[first ? 0 : 1].chosen, parents[first ? 1 : 0].chosen, 1, state, {});
        EXPECT_GT(state.weight(), std::max(parents[0].weight, parents[1].weight));
    }
}
