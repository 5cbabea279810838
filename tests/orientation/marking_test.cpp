// Marks, counts and rows of small networks, worked out by hand.
#include "driver/run.hpp"
#include "network_fixture.hpp"
#include "orientation/prepare_ilp.hpp"

using rows = std::vector<std::string>;

TEST_F(network_test, MarksEveryShortestPathAndNothingElse) {
    start(5);
    arc('a', 'b');
    arc('a', 'c');
    arc('b', 'd');
    arc('c', 'd');
    arc('d', 'a');  // into the source
    arc('d', 'e');  // out of the target
    arc('b', 'c');  // between vertices of the same distance
    arc('e', 'd');  // its tail lies beyond the target
    knockout('a', "d");
    prepare(true);
    EXPECT_EQ(marked(), "ab ac bd cd");
    EXPECT_EQ(counted(), "ab:1 ac:1 bd:1 cd:1");
    EXPECT_EQ(comp_arcs(), "ba ca db dc ad ed cb de");
}

TEST_F(network_test, CountsEveryTargetEntryOfEverySource) {
    start(4);
    arc('a', 'b');
    arc('b', 'c');
    arc('b', 'd');
    knockout('b', "c");  // named first, handled second: sources go by the order of their proteins
    knockout('a', "ccd");
    prepare(true);
    EXPECT_EQ(counted(), "ab:3 bc:3 bd:1");
    EXPECT_EQ(marked(), "bc") << "the marks that stay are those of the last source";
    EXPECT_EQ(num_of_pairs, 4);
    EXPECT_EQ(pairs.front().pair_source, protein('a'));
    EXPECT_EQ(pairs.back().pair_source, protein('b'));
}

TEST_F(network_test, LeavesOutTargetsThatNoPathReaches) {
    start(3);
    arc('a', 'b');
    arc('c', 'a');
    knockout('a', "ac");  // itself, and one out of reach
    num_of_pairs = 2;     // as the reader of the pairs left it
    prepare(true);
    EXPECT_EQ(counted(), "");
    EXPECT_EQ(flow_rows(), rows{});
    EXPECT_EQ(num_of_pairs, 0);
    EXPECT_TRUE(pairs.empty());
}

TEST_F(network_test, DirectArcsCountWhenAllowed) {
    start(2);
    arc('a', 'b');
    boost::put(vars_map, add_arc(protein('a'), protein('b')), IloNumVar(env, 0.0, 1.0, IloNumVar::Bool, "second"));
    knockout('a', "b");
    prepare(true);
    EXPECT_EQ(marked(), "ab ab");
    EXPECT_EQ(flow_rows(), (rows{"- o_a_b + x2 <= 0", "x3 - second <= 0", "- x2 - x3 + s_a_b <= 0"}));
}

// Capacities in arc order; then by vertex (b, c, d) propagation before pairs. The
// source has no entering arc and bounds nothing; b is a target on the way to others.
TEST_F(network_test, RowsStandInTheirOrder) {
    start(4);
    arc('b', 'd');
    arc('a', 'c');
    arc('a', 'b');
    arc('c', 'd');
    knockout('a', "db");
    prepare(true);
    EXPECT_EQ(flow_rows(), (rows{
                               "- o_b_d + x5 <= 0",
                               "- o_a_c + x6 <= 0",
                               "- o_a_b + x7 <= 0",
                               "- o_c_d + x8 <= 0",
                               "x5 - x7 <= 0",
                               "- x7 + s_a_b <= 0",
                               "- x6 + x8 <= 0",
                               "- x5 - x8 + s_a_d <= 0",
                           }));
    EXPECT_EQ(pairs[0].shortest_distance, 1);
    EXPECT_EQ(pairs[1].shortest_distance, 2);
    EXPECT_EQ(var.getSize(), 4) << "flow variables only";
    EXPECT_EQ(rational_vars.size(), 6U) << "flow and pair variables";
}

// A name table that overflows ends the loading before anything has a number.
TEST_F(network_test, WithoutSourcesNumbersAreNotNeeded) {
    for (const bool allow_one_edge_path : {true, false}) {
        start(3);
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
    start(4);
    arc('a', 'b');
    arc('a', 'c');
    arc('c', 'd');
    arc('d', 'b');
    knockout('a', "b");
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
    start(4);
    arc('a', 'b');
    arc('a', 'c');
    arc('c', 'd');
    arc('d', 'b');
    arc('b', 'd');
    knockout('a', "b");
    prepare(false);
    EXPECT_EQ(marked(), "ac cd db bd");
}

// Chain a-b-c-d, the list handled from its end.
// "dc": c first, 2 arcs, ab and bc marked; comp_graph gains ca though there is no
// arc ac. Through it d finds a after 2 arcs (d-c-a), a length that no arc fits:
// ab 0+1+2, bc 1+1+1, cd 2+1+0.
// "cd": d first, 3 arcs, all marked; then c, whom the gained da does not concern.
TEST_F(network_test, ReversedGraphGainsArcsForGood) {
    for (const bool far_one_first : {false, true}) {
        start(4);
        arc('a', 'b');
        arc('b', 'c');
        arc('c', 'd');
        knockout('a', far_one_first ? "cd" : "dc");
        prepare(false);
        EXPECT_EQ(counted(), far_one_first ? "ab:2 bc:2 cd:1" : "ab:1 bc:1");
        EXPECT_EQ(comp_arcs(), far_one_first ? "ba cb dc da ca" : "ba cb dc ca da");
        EXPECT_EQ(num_of_pairs, far_one_first ? 2 : 1);
    }
}

// b is reached by its direct arc alone: its pair marks nothing. Yet ab lies on the
// way to c, and with that b has an entering marked arc and gets its pair variable.
TEST_F(network_test, SkippedPairStillGetsItsVariable) {
    start(3);
    arc('a', 'b');
    arc('b', 'c');
    knockout('a', "bc");
    prepare(false);
    EXPECT_EQ(counted(), "ab:1 bc:1");
    EXPECT_EQ(num_of_pairs, 2);
    EXPECT_EQ(pairs.at(0).pair_target, protein('b'));
}

TEST_F(network_test, ParallelDirectArcsComeBackAsOne) {
    start(2);
    arc('a', 'b');
    add_arc(protein('a'), protein('b'));
    knockout('a', "b");
    prepare(false);
    EXPECT_EQ(counted(), "");
    EXPECT_EQ(flow_rows(), rows{});
    EXPECT_EQ(comp_arcs(), "ba");
}
