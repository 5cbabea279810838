#include <filesystem>
#include <fstream>
#include <system_error>

#include "support/program.hpp"
#include "tables/name_lists.hpp"
#include "tables/read_table.hpp"
#include "tables/sha256.hpp"
#include "tables/table_text.hpp"
#include "tables/unusable_input.hpp"
#include "tables/whole_file.hpp"

namespace {

std::string told(const std::string& path) {
    try {
        read_table(path);
    } catch (const unusable_input& error) {
        return error.what();
    }
    return "nothing";
}

class table_test : public program_test {};

// Everything that a protein's name may hold comes back, and no line is broken by it.
TEST_F(table_test, any_cell_comes_back) {
    const std::vector<std::vector<std::string>> rows = {
        {"plain", "", "two\tcells"}, {"a\\tb", "line\nfeed", "\r"}, {"\\", "\\\\n", "\xff\x01<&\">"}};
    std::string text = "x\ty\tz\n";
    for (const auto& row : rows) {
        append_row(text, row);
    }
    write("t.tsv", text);
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 4);
    EXPECT_EQ(read_table(folder / "t.tsv").rows, rows);
}

TEST_F(table_test, lists_come_back_whatever_their_items_hold) {
    const std::vector<std::vector<std::string>> lists = {{}, {"A"}, {"A", "B>C"}, {"A\\", ">", ""}, {"\\>", "\\\\"}};
    for (const auto& list : lists) {
        EXPECT_EQ(split_list(unescape_cell(escape_cell(join_list(list, '>'))), '>'), list);
    }
}

TEST_F(table_test, paths_and_pairs_come_back_whatever_their_names_hold) {
    const std::vector<std::vector<std::string>> paths = {{}, {"A", "B", "C"}, {"a>b", "\\", ";"}, {"x\\", "\\>", ""}};
    for (const auto& path : paths) {
        EXPECT_EQ(read_path_cell(unescape_cell(escape_cell(path_cell(path)))), path);
    }
    const std::pair<pair_list, std::string> lists[] = {
        {{}, ""},
        {{{{"A", "B"}, {"C", "D"}}, 3}, "A>B;C>D;+3"},
        {{{{"a;b", ">"}, {"\\", "+2"}}, 0}, "a\\;b>\\>;\\\\>+2"},
    };
    for (const auto& [list, cell] : lists) {
        EXPECT_EQ(pair_list_cell(list), cell);
        EXPECT_EQ(read_pair_list_cell(cell), list);
    }
}

// The digests that the standard itself gives for these texts.
TEST_F(table_test, digests_are_those_of_the_standard) {
    EXPECT_EQ(sha256(""), "e3b0c44298fc1c149afbf4c8996fb92427ae41e4649b934ca495991b7852b855");
    EXPECT_EQ(sha256("abc"), "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad");
}

TEST_F(table_test, damaged_tables_are_told_with_file_and_line) {
    const std::string path = folder / "t.tsv";
    EXPECT_EQ(told(path), path + ": cannot be opened");
    write("t.tsv", "");
    EXPECT_EQ(told(path), path + ": has no header line");
    write("t.tsv", "a\tb\n1\t2\n3\n");
    EXPECT_EQ(told(path), path + ":3: 1 cells, but the header has 2");
    write("t.tsv", "a\tb\n");
    EXPECT_THROW(read_table(path).column("c"), unusable_input);
}

// A disk that is full, and a folder that is not there: what stood there stays.
TEST_F(table_test, a_file_is_whole_or_as_it_was) {
    write("old", "as it was");
    std::filesystem::create_symlink("/dev/full", folder / "old.part");
    EXPECT_THROW(write_whole_file(folder / "old", "new"), std::system_error);
    EXPECT_EQ(read("old"), "as it was");
    EXPECT_FALSE(std::filesystem::is_symlink(folder / "old.part"));
    write_whole_file(folder / "old", "new");
    EXPECT_EQ(read("old"), "new");
    EXPECT_THROW(write_whole_file(folder / "none/there", "new"), std::system_error);
}

}  // namespace
