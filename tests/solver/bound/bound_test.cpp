// Cuts and the rows of both programs against plain ways to find and to check them.
#include <algorithm>
#include <cmath>
#include <random>

#include <gtest/gtest.h>

#include "solver/bound/chain_bound.hpp"
#include "solver/bound/cut_master.hpp"
#include "solver/bound/separate.hpp"
#include "solver/find/shared_state.hpp"
#include "solver/structure/index.hpp"
#include "solver/support/random_reach.hpp"

using namespace solver;

namespace {

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

TEST(tighter_program, has_no_row_that_any_directions_break) {
    std::mt19937 random(7);
    int num_hull_rows = 0;
    for (unsigned seed = 0; seed < 10; ++seed) {
        SCOPED_TRACE(seed);
        const contested_problem problem = draw_contested(seed);
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
