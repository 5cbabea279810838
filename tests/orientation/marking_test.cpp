// Marks, counts and rows of small networks, worked out by hand.
#include "support/network.hpp"

TEST_F(network_test, marks_and_counts_shortest_paths) {
    struct {
        const char* network;
        bool allow_one_edge_path;
        const char* counted;
        const char* marked;  // those of the last source stay
        const char* comp_arcs;
        int num_of_pairs;
    } const cases[] = {
        // From a to d by b or by c. Not marked: da into the source, de out of the target, bc
        // between equal distances, ed whose tail lies beyond the target.
        {"ab ac bd cd da de bc ed a:d", true, "ab:1 ac:1 bd:1 cd:1", "ab ac bd cd", "", 1},
        // Cause b is named first and handled second: sources go by the order of proteins.
        {"ab bc bd b:c a:ccd", true, "ab:3 bc:3 bd:1", "bc", "", 4},
        // The one target is the source itself, the other out of reach.
        {"ab ca a:ac", true, "", "", "", 0},
        // Without ab, the shortest way from a to b is a-c-d-b, 3 arcs: ac 0+1+2, cd 1+1+1,
        // db 2+1+0. The mirror of ab, taken out for the search, comes back last.
        {"ab ac cd db a:b", false, "ac:1 cd:1 db:1", "ac cd db", "ca dc bd ba", 1},
        // The same with an arc out of the target: b is 1 arc from a in the whole network
        // and d is 1 arc from b, so bd has 1+1+1 = 3 as well, though it leaves the target.
        {"ab ac cd db bd a:b", false, "ac:1 cd:1 db:1 bd:1", "ac cd db bd", "ca dc bd db ba", 1},
        // Chain a-b-c-d, the list handled from its end.
        // "dc": c first, 2 arcs, ab and bc marked; comp_graph gains ca though there is no
        // arc ac. Through it d finds a after 2 arcs (d-c-a), a length that no arc fits:
        // ab 0+1+2, bc 1+1+1, cd 2+1+0.
        {"ab bc cd a:dc", false, "ab:1 bc:1", "ab bc", "ba cb dc ca da", 1},
        // "cd": d first, 3 arcs, all marked; then c, whom the gained da does not concern.
        {"ab bc cd a:cd", false, "ab:2 bc:2 cd:1", "ab bc cd", "ba cb dc da ca", 2},
        // b is reached by its direct arc alone: its pair marks nothing. Yet ab lies on the
        // way to c, and with that b has an entering marked arc and gets its pair variable.
        {"ab bc a:bc", false, "ab:1 bc:1", "ab bc", "cb ca ba", 2},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.network);
        load_words(expected.network);
        prepare(expected.allow_one_edge_path);
        EXPECT_EQ(counted(), expected.counted);
        EXPECT_EQ(marked(), expected.marked);
        EXPECT_EQ(comp_arcs(), expected.comp_arcs);
        EXPECT_EQ(num_of_pairs, expected.num_of_pairs);
    }
}

TEST_F(network_test, makes_rows_in_their_order) {
    struct {
        const char* network;
        bool allow_one_edge_path;
        lines expected;
        std::vector<int> distances;
    } const cases[] = {
        // Capacities in arc order; then by vertex (b, c, d) propagation before pairs. The
        // source has no entering arc and bounds nothing; b is a target on the way to d.
        {"bd ac ab cd a:db",
         true,
         {"- o_b_d + x5 <= 0", "- o_a_c + x6 <= 0", "- o_a_b + x7 <= 0", "- o_c_d + x8 <= 0", "x5 - x7 <= 0",
          "- x7 + s_a_b <= 0", "- x6 + x8 <= 0", "- x5 - x8 + s_a_d <= 0"},
         {1, 2}},
        // The record keeps the distance of the whole network.
        {"ab ac cd db a:b",
         false,
         {"- o_a_c + x5 <= 0", "- o_c_d + x6 <= 0", "- o_d_b + x7 <= 0", "- x7 + s_a_b <= 0", "- x5 + x6 <= 0",
          "- x6 + x7 <= 0"},
         {1}},
    };
    for (const auto& expected : cases) {
        SCOPED_TRACE(expected.network);
        load_words(expected.network);
        prepare(expected.allow_one_edge_path);
        EXPECT_EQ(flow_rows(), expected.expected);
        std::vector<int> distances;
        for (const pair_data& pair : pairs) {
            distances.push_back(pair.shortest_distance);
            EXPECT_EQ(boost::get(names_map, pair.pair_source), "a");
        }
        EXPECT_EQ(distances, expected.distances);
    }
}
