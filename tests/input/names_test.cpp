#include "input/name_table.hpp"
#include "support/network.hpp"

using names = network_test;

namespace {

lines table() {
    lines sorted;
    for (int i = 0; i < num_of_proteins; ++i) {
        sorted.push_back(protein_names_map[i].name.get());
        EXPECT_EQ(sorted.back(), boost::get(names_map, protein_names_map[i].protein));
    }
    return sorted;
}

const std::string long_name(20, 'x');
const std::string longest_name(19, 'x');

}  // namespace

TEST_F(names, make_vertices_in_file_order_and_a_sorted_table) {
    struct {
        std::string text;
        lines vertices;
        lines searchable;
    } const cases[] = {
        {"B\na\nA\n", {"B", "a", "A", ""}, {"A", "B", "a"}},
        {"B\nA", {"B", "A"}, {"B"}},
        {"", {""}, {}},
        {"A", {"A"}, {}},
        {"A\r\n\nB C\n", {"A\r", "", "B C", ""}, {"", "A\r", "B C"}},
        {longest_name + "\n", {longest_name, ""}, {longest_name}},
        {std::string("A\0B\n", 4), {"A", ""}, {"A"}},
        {"B\n" + long_name + "\nA\n", {"B", "A", ""}, {"A", "B"}},
        {"A\n" + long_name, {"A", ""}, {"A"}},
    };
    for (const auto& expected : cases) {
        load({{"names.txt", expected.text}});
        EXPECT_EQ(proteins(), expected.vertices) << expected.text;
        EXPECT_EQ(table(), expected.searchable) << expected.text;
        EXPECT_EQ(num_of_proteins, static_cast<int>(expected.searchable.size()));
    }
}

TEST_F(names, that_repeat_stand_in_file_order) {
    std::string text;
    for (int i = 0; i < 100; ++i) {
        text += i % 2 == 0 ? "B\n" : "A\n";
    }
    load({{"names.txt", text}});
    for (int i = 0; i < 50; ++i) {
        EXPECT_EQ(boost::get(vertex_myindex_map, protein_names_map[i].protein), 2 * i + 1);
        EXPECT_EQ(boost::get(vertex_myindex_map, protein_names_map[i + 50].protein), 2 * i);
    }
}

TEST_F(names, that_are_too_long_are_reported_by_line) {
    load({{"names.txt", "A\n\n" + std::string(60, 'x') + "\nB\n\tab\x7f" + long_name + "\n"}});
    const std::string error = "ERROR: in file names.txt line ";
    const std::string reason = " is longer than 19 characters\n";
    EXPECT_TRUE(printed().starts_with(error + "3: name " + std::string(40, 'x') + reason + error + "5: name ?ab?" +
                                      long_name + reason));
}
