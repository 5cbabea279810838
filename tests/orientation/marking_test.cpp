// Marks, counts and rows of small networks, worked out by hand.
#include "driver/run.hpp"
#include "network_fixture.hpp"
#include "orientation/prepare_ilp.hpp"

using rows = std::vector<std::string>;

// From a to d by b or by c. Not marked: da into the source, de out of the target, bc
// between equal distances, ed whose tail lies beyond the target.
TEST_F(network_test, MarksEveryShortestPathAndNothingElse) {
    make("ab ac bd cd da de bc ed a:d");
    prepare(true);
    EXPECT_EQ(marked(), "ab ac bd cd");
    EXPECT_EQ(counted(), "ab:1 ac:1 bd:1 cd:1");
}

// Cause b is named first and handled second: sources go by the order of proteins.
TEST_F(network_test, CountsEveryTargetEntryOfEverySource) {
    make("ab bc bd b:c a:ccd");
    prepare(true);
    EXPECT_EQ(counted(), "ab:3 bc:3 bd:1");
    EXPECT_EQ(marked(), "bc") << "the marks that stay are those of the last source";
    EXPECT_EQ(num_of_pairs, 4);
    EXPECT_EQ(pairs.front().pair_source, proteins[0]);
    EXPECT_EQ(pairs.back().pair_source, proteins[1]);
}

// The one target is the source itself, the other out of reach.
TEST_F(network_test, LeavesOutTargetsThatNoPathReaches) {
    make("ab ca a:ac");
    num_of_pairs = 2;  // as the reader of the pairs left it
    prepare(true);
    EXPECT_EQ(counted(), "");
    EXPECT_EQ(flow_rows(), rows{});
    EXPECT_EQ(num_of_pairs, 0);
}

TEST_F(network_test, DirectArcsCountWhenAllowed) {
    make("ab ab a:b");
    prepare(true);
    EXPECT_EQ(marked(), "ab ab");
    EXPECT_EQ(flow_rows(), (rows{"- o_a_b#0 + x3#2 <= 0", "- o_a_b#1 + x4#3 <= 0", "- x3#2 - x4#3 + s_a_b#4 <= 0"}));
}

// Capacities in arc order; then by vertex (b, c, d) propagation before pairs. The
// source has no entering arc and bounds nothing; b is a target on the way to d.
TEST_F(network_test, RowsStandInTheirOrder) {
    make("bd ac ab cd a:db");
    prepare(true);
    EXPECT_EQ(flow_rows(), (rows{"- o_b_d + x5 <= 0", "- o_a_c + x6 <= 0", "- o_a_b + x7 <= 0", "- o_c_d + x8 <= 0",
                                 "x5 - x7 <= 0", "- x7 + s_a_b <= 0", "- x6 + x8 <= 0", "- x5 - x8 + s_a_d <= 0"}));
    EXPECT_EQ(pairs[0].shortest_distance, 1);
    EXPECT_EQ(pairs[1].shortest_distance, 2);
    EXPECT_EQ(var.getSize(), 4) << "flow variables only";
    EXPECT_EQ(rational_vars.size(), 6U) << "flow and pair variables";
}

// A name table that overflows ends the loading before anything has a number.
TEST_F(network_test, WithoutSourcesNumbersAreNotNeeded) {
    for (const bool allow_one_edge_path : {true, false}) {
        make("");
        for (const char* name : {"a", "b", "c"}) {
            add_protein(name);
        }
        prepare_ilp(model, allow_one_edge_path, copy_network(iso_vec));
        IloCplex cplex(model);
        EXPECT_TRUE(cplex.solve());
        EXPECT_EQ(cplex.getObjValue(), 0.0);
    }
}

// ---- Pairs whose direct arc does not count ---------------------------------

// Without ab, the shortest way from a to b is a-c-d-b, 3 arcs: ac 0+1+2, cd 1+1+1,
// db 2+1+0. The arc ab itself has 0+1+0. The record keeps the distance of the whole
// network, 1. The mirror of ab, taken out for the search, comes back last.
TEST_F(network_test, DirectArcIsLeftOut) {
    make("ab ac cd db a:b");
    prepare(false);
    EXPECT_EQ(marked(), "ac cd db");
    EXPECT_EQ(comp_arcs(), "ca dc bd ba");
    EXPECT_EQ(pairs.at(0).shortest_distance, 1);
    EXPECT_EQ(flow_rows(), (rows{"- o_a_c + x5 <= 0", "- o_c_d + x6 <= 0", "- o_d_b + x7 <= 0", "- x7 + s_a_b <= 0",
                                 "- x5 + x6 <= 0", "- x6 + x7 <= 0"}));
}

// The same with an arc out of the target: b is 1 arc from a in the whole network
// and d is 1 arc from b, so bd has 1+1+1 = 3 as well, though it leaves the target.
TEST_F(network_test, ArcOutOfTheTargetCanBeMarked) {
    make("ab ac cd db bd a:b");
    prepare(false);
    EXPECT_EQ(marked(), "ac cd db bd");
}

// Chain a-b-c-d, the list handled from its end.
// "dc": c first, 2 arcs, ab and bc marked; comp_graph gains ca though there is no
// arc ac. Through it d finds a after 2 arcs (d-c-a), a length that no arc fits:
// ab 0+1+2, bc 1+1+1, cd 2+1+0.
// "cd": d first, 3 arcs, all marked; then c, whom the gained da does not concern.
TEST_F(network_test, ReversedGraphGainsArcsForGood) {
    make("ab bc cd a:dc");
    prepare(false);
    EXPECT_EQ(counted(), "ab:1 bc:1");
    EXPECT_EQ(comp_arcs(), "ba cb dc ca da");
    EXPECT_EQ(num_of_pairs, 1);
    make("ab bc cd a:cd");
    prepare(false);
    EXPECT_EQ(counted(), "ab:2 bc:2 cd:1");
    EXPECT_EQ(comp_arcs(), "ba cb dc da ca");
    EXPECT_EQ(num_of_pairs, 2);
}

// b is reached by its direct arc alone: its pair marks nothing. Yet ab lies on the
// way to c, and with that b has an entering marked arc and gets its pair variable.
TEST_F(network_test, SkippedPairStillGetsItsVariable) {
    make("ab bc a:bc");
    prepare(false);
    EXPECT_EQ(counted(), "ab:1 bc:1");
    EXPECT_EQ(num_of_pairs, 2);
    EXPECT_EQ(pairs.at(0).pair_target, proteins[1]);
}

TEST_F(network_test, ParallelDirectArcsComeBackAsOne) {
    make("ab ab a:b");
    prepare(false);
    EXPECT_EQ(counted(), "");
    EXPECT_EQ(flow_rows(), rows{});
    EXPECT_EQ(comp_arcs(), "ba");
}
