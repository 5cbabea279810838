// "test", "directed", "undirected" and "ko" as they should be.
#include "input/interaction_reader.hpp"
#include "support/network.hpp"

using network_files = network_test;

TEST_F(network_files, directed_lines_make_arcs_and_rows) {
    load_letters({{"directed", "A B 0.7\nA A 1\nA B 0.2\nB A x\nC D 0.5 word\nD E 1"}});
    EXPECT_EQ(arcs(), (lines{"AB 1 0 0 0.7", "BA 1 0 0 0", "CD 1 0 0 0.5"}));
    EXPECT_EQ(rows(model), (lines{"c1: o_A_B <= 1", "c2: o_B_A <= 1", "c3: o_C_D <= 1"}));
    EXPECT_EQ(keep_constraints_Ids.size(), 0u);
    EXPECT_EQ(printed(), "");
}

TEST_F(network_files, undirected_lines_make_pairs_of_arcs_that_exclude_each_other) {
    load_letters({{"directed", "A B 1\n"}, {"undirected", "B A 0.3\nC B 0.4\r\nB C 0.5\nE E 1\n"}});
    EXPECT_EQ(arcs(), (lines{"AB 1 0 0 1", "CB 0 0 0 0.4", "BC 0 0 0 0.4"}));
    EXPECT_EQ(rows(model), (lines{"c1: o_A_B <= 1", "c2: o_C_B + o_B_C <= 1"}));
    EXPECT_EQ(keep_constraints_Ids.size(), 1u);
    const auto reverse = --boost::edges(bi_graph).second;
    EXPECT_STREQ(boost::get(vars_map, *reverse).getName(), "o_B_C");
    EXPECT_EQ(boost::get(myindex_map, *reverse), 2);
    EXPECT_EQ(boost::get(vertex_myindex_map, boost::source(*reverse, bi_graph)), 1);
}

TEST_F(network_files, test_pairs_are_hidden_and_stand_before_all_others) {
    load_letters({{"test", "A B 0.9\nB A 1\nC C 1\nC D 0.1\nE F 1"},
                  {"directed", "B A 0.7\n"},
                  {"undirected", "D C 1\nA C 1\n"}});
    EXPECT_EQ(arcs(),
              (lines{"AB 0 1 1 0.9", "BA 0 2 0 0.9", "CD 0 1 1 0.1", "DC 0 2 0 0.1", "AC 0 0 0 1", "CA 0 0 0 1"}));
    EXPECT_EQ(rows(model),
              (lines{"keep#0: o_A_B + o_B_A <= 1", "keep#1: o_C_D + o_D_C <= 1", "c3#2:   o_A_C + o_C_A <= 1"}));
    EXPECT_EQ(keep_constraints_Ids.size(), 3u);
    EXPECT_EQ(printed(), "ERROR: duplicated test edge B A\nNotice: self loop accured\n");
}

TEST_F(network_files, knockouts_keep_file_order_and_repeats) {
    load_letters({{"ko", "D A 1\nB C \nB A \nD D x y\nD A 1\nX A 1\nA Y 1\nB E 1"}});
    EXPECT_EQ(knockouts(), (lines{"B: C A E", "D: A D A"}));
    EXPECT_EQ(num_of_pairs, 6);
    EXPECT_EQ(printed(),
              "ERROR : a knouckout pair with unrecognized proteins: XkoA\n"
              "ERROR : a knouckout pair with unrecognized proteins: AkoY\n");
}

TEST_F(network_files, unknown_names_are_reported_in_the_words_of_each_file) {
    load_letters({{"test", "X A 1\nX Y 1\nX X 1\n"}, {"directed", "A X 1\nX X 1\n"}, {"undirected", "X A 1\n"}});
    EXPECT_EQ(arcs(), lines());
    const auto not_found = [](const std::string& name) { return "ERROR: protein " + name + " not found in the list "; };
    const std::string x = not_found("X");
    const std::string x1 = x + "(in file = 1)\n";
    EXPECT_EQ(printed(),
              x + "\n" + x + "\n" + not_found("Y") + "\n" + x + "\n" + x + "\n" + x1 + x1 + x1 + x + "(in file = 2)\n");
}

TEST_F(network_files, reading_counts_lines_taken_and_removal_takes_both_directions_and_leaves_the_model) {
    load_letters({});
    const auto read = [&](const char* text, int mode) {
        text_file file{.path = "file", .text = text};
        return read_interaction(model, file, num_of_proteins, mode);
    };
    EXPECT_EQ(read("A B 1\nA B 1\nA A 1\nA X 1\nB C 1\nE D", directed_interactions), 3);
    EXPECT_EQ(read("A B 1\nC D 1\n", undirected_interactions), 2);
    printed();
    EXPECT_EQ(read("D C 1\nC B 1\nA X 1\nA A 1\nA F 1\n", removed_interactions), 0);
    EXPECT_EQ(printed(), "");
    EXPECT_EQ(arcs(), lines{"AB 1 0 0 1"});
    EXPECT_EQ(rows(model).size(), 3u);
    read("B C 0.5\n", directed_interactions);
    EXPECT_EQ(arcs(), (lines{"AB 1 0 0 1", "BC 1 0 0 0.5"}));
    text_file missing = open_text_file("no/such/file");
    EXPECT_EQ(read_interaction(model, missing, num_of_proteins, directed_interactions), 0);
    EXPECT_EQ(printed(), "ERROR: in file no/such/file not opened\n");
}
