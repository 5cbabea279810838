// The search's parts against plain ways to do the same.
#include <algorithm>
#include <cmath>
#include <numeric>
#include <random>

#include <gtest/gtest.h>

#include "solver/structure/chain_bound.hpp"
#include "solver/structure/cut_master.hpp"
#include "solver/structure/index.hpp"
#include "solver/structure/local_search.hpp"
#include "solver/structure/random_reach.hpp"
#include "solver/structure/recombine.hpp"
#include "solver/structure/reduce.hpp"
#include "solver/structure/separate.hpp"
#include "solver/structure/shared_state.hpp"
#include "solver/structure/split.hpp"
#include "solver/structure/value_search.hpp"

using namespace solver;

namespace {

contested_problem draw_problem(unsigned seed) {
    return reduce(*find_reach_structure(draw_reach_model(seed, hard_plan(40)))).contested;
}

// Nets of nodes 2 .. num_nodes - 1 in topological order between root and target.
pair_net draw_net(std::mt19937& random) {
    pair_net net{6, 1, {}};
    const int order[] = {net_root, 2, 3, 4, 5, net_target};
    for (int gate = 0; gate < 12; ++gate) {
        const auto one = random() % 6;
        const auto other = random() % 6;
        if (one != other) {
            net.arcs.push_back({order[std::min(one, other)], order[std::max(one, other)], gate});
        }
    }
    return net;
}

// The smallest sum of gates over all ways to part the nodes.
double least_cut(const pair_net& net, const std::vector<double>& values) {
    double least = 1e9;
    for (int side = 0; side < 1 << net.num_nodes; ++side) {
        const auto on_side = [side](int node) { return (side >> node & 1) != 0; };
        double sum = on_side(net_root) && !on_side(net_target) ? 0.0 : 1e9;
        for (const net_arc& arc : net.arcs) {
            sum += on_side(arc.tail) && !on_side(arc.head) ? values[static_cast<std::size_t>(arc.gate)] : 0.0;
        }
        least = std::min(least, sum);
    }
    return least;
}

bool separates(const pair_net& net, const gate_cut& cut) {
    std::vector<double> values(12, 1.0);
    for (const int gate : cut) {
        values[static_cast<std::size_t>(gate)] = 0.0;
    }
    return least_cut(net, values) == 0.0;
}

}  // namespace

TEST(cuts, are_least_and_separate) {
    std::mt19937 random(7);
    int found = 0;
    for (int round = 0; round < 2000; ++round) {
        const pair_net net = draw_net(random);
        std::vector<double> values(12);
        for (double& value : values) {
            value = static_cast<double>(random() % 5) / 4.0;
        }
        const double least = least_cut(net, values);
        std::vector<gate_cut> cuts;
        find_cuts(net, values, 1.0, 1e-6, cuts);
        EXPECT_EQ(cuts.empty(), least >= 1.0);
        for (const gate_cut& cut : cuts) {
            double sum = 0.0;
            for (const int gate : cut) {
                sum += values[static_cast<std::size_t>(gate)];
            }
            EXPECT_NEAR(sum, least, 1e-6);
            EXPECT_TRUE(separates(net, cut));
            ++found;
        }
        if (least_cut(net, std::vector<double>(12, 1.0)) > 0.0) {
            cuts.clear();
            find_bottlenecks(net, cuts);
            for (int gate = 0; gate < 12; ++gate) {
                EXPECT_EQ(std::count(cuts.begin(), cuts.end(), gate_cut{gate}), separates(net, {gate}) ? 1 : 0);
            }
        }
    }
    EXPECT_GT(found, 1000);
}

// A pair whose root has arcs of both directions of choice 0, and one that needs gate 0.
TEST(cuts, of_both_directions_of_a_choice_are_no_rows) {
    contested_problem problem;
    problem.choices = {0, 1};
    problem.pairs = {
        {4, 1, {{net_root, 2, 0}, {net_root, 3, 1}, {2, net_target, open_gate}, {3, net_target, open_gate}}},
        {3, 1, {{net_root, 2, 0}, {2, net_target, 2}}}};
    const solve_watch watch;
    cut_master master(problem, watch);
    const int bottlenecks = master.program().num_rows();
    EXPECT_EQ(bottlenecks, 2);
    // Both pairs are asked for more than the cuts are worth: 1, by either direction, and 1/4.
    EXPECT_EQ(master.add_cuts_broken_by({0.25, 0.75, 1.5, 1.0}, 1e-6), 1);
    ASSERT_TRUE(master.solve());
    EXPECT_NEAR(master.program().bound(), 2.0, 1e-6);
}

// The values that directions give to every column of the tighter program.
std::vector<double> columns_of(const contested_problem& problem, const chain_layout& layout,
                               const shared_state& state) {
    std::vector<double> values(layout.weights.size(), 1.0);
    for (int c = 0; c < layout.num_choices; ++c) {
        values[at(c)] = state.is_open(2 * c) ? 1.0 : 0.0;
    }
    for (const int node : state.missed()) {
        const int column = layout.pair_columns[at(problem.shared.nodes[at(node)].pair)];
        if (column >= 0) {
            values[at(column)] = 0.0;
        }
    }
    for (int k = 0; k < layout.num_transitions(); ++k) {
        const auto [first, second] = layout.transitions[at(k)];
        values[at(layout.transition_column(k))] = state.is_open(first) && state.is_open(second) ? 1.0 : 0.0;
    }
    return values;
}

TEST(tighter_program, has_no_row_that_any_directions_break) {
    std::mt19937 random(7);
    int num_hull_rows = 0;
    for (unsigned seed = 0; seed < 10; ++seed) {
        SCOPED_TRACE(seed);
        const contested_problem problem = draw_problem(seed);
        const chain_layout layout = lay_out_chains(problem);
        const solve_watch watch;
        chain_bound chains(problem, watch);
        for (int round = 0; round < 8 && chains.improve(); ++round) {
        }
        shared_state state(problem);
        directions chosen(problem.choices.size());
        for (int draw = 0; draw < 200; ++draw) {
            std::generate(chosen.begin(), chosen.end(), [&random] { return static_cast<signed char>(random() % 2); });
            state.set(chosen);
            const std::vector<double> values = columns_of(problem, layout, state);
            for (const program_row& row : chains.program().rows()) {
                double sum = 0.0;
                for (std::size_t i = 0; i < row.columns.size(); ++i) {
                    sum += row.values[i] * values[at(row.columns[i])];
                }
                ASSERT_LE(sum, row.upper + 1e-9);
            }
        }
        num_hull_rows += static_cast<int>(
            std::count_if(chains.program().rows().begin(), chains.program().rows().end(), [](const program_row& row) {
                return std::any_of(row.values.begin(), row.values.end(),
                                   [](double value) { return value != std::round(value); });
            }));
    }
    EXPECT_GT(num_hull_rows, 100);
}

TEST(shared_weight, follows_every_turn_and_is_back_after_one_that_loses_too_much) {
    int refused = 0;
    for (unsigned seed = 0; seed < 50; ++seed) {
        const contested_problem problem = draw_problem(seed);
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
    const contested_problem problem = draw_problem(3);
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
