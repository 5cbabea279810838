// What is said of a folder of files: hazards, meant names, pairs without a path, and the
// program around it.
#include <nlohmann/json.hpp>

#include "checking/check_input.hpp"
#include "support/network.hpp"
#include "support/program.hpp"

namespace {

const std::string letters = "A\nB\nC\nD\nE\nF\n";

input_check check_texts(file_texts files) {
    files.insert({{"names.txt", letters}, {"test", ""}, {"directed", ""}, {"undirected", ""}, {"ko", ""}});
    return check_input([&](const char* name) { return text_file{.path = name, .text = files[name]}; });
}

// "reason lines" and "hazard lines" of one file, in the order in which they are told.
lines findings(const input_check& check, const std::string& name) {
    lines found;
    const auto add = [&](const std::string& what, const line_numbers& numbers) {
        std::string text = what;
        for (const long number : numbers) {
            text += " " + std::to_string(number);
        }
        found.push_back(text);
    };
    for (const file_check& file : check.files) {
        if (file.name == name) {
            for (const auto& [reason, numbers] : file.dropped) {
                add(name_of(reason), numbers);
            }
            for (const auto& [what, numbers] : file.hazards) {
                add(name_of(what), numbers);
            }
        }
    }
    return found;
}

TEST(check_test, names_the_line_and_the_fault) {
    const std::string x20(20, 'x');
    const struct {
        std::string file;
        std::string text;
        lines found;
    } cases[] = {
        {"directed", "A B 1\nB C 1\n", {}},
        {"directed", "A B 1\nB C 1", {"no_line_feed 2"}},
        {"directed", "A\tB\t1\nA B 1\nC\tD\t1\n", {"runs_on 1 2 3", "tab 1 3"}},
        {"directed", "A B 1\n\nB C 1\nC D 1\n", {"runs_on 3", "empty_line 2"}},
        {"directed", "A B 1\n\n", {"empty_line 2"}},
        {"directed", "A  B 1\n B C 1\nC D 1\n", {"unknown_name 1 2", "leading_blank 2", "doubled_blank 1"}},
        {"directed", "A B\nC D 1\n", {"runs_on 1 2", "ends_at_name 1"}},
        {"directed", "A B 1\r\n" + x20 + " B 1\n", {"name_too_long 2", "carriage_return 1"}},
        {"directed", "A B x\nA B 1\nB A 1\nC C 1\n", {"self_loop 4", "repeated 2", "no_number 1"}},
        {"directed",
         "\xef\xbb\xbf"
         "A B 1\n",
         {"unknown_name 1", "byte_order_mark 1"}},
        {"directed",
         std::string("\xff\xfe"
                     "A\0 \0B\0 \0",
                     10),
         {"no_line_feed 1", "utf16"}},
        {"undirected", "A B 1\nB A 1\n", {"repeated 2"}},
        {"ko", "A B 1\nC D\n", {"runs_on 2", "ends_at_name 2"}},
        {"ko", "A B 1\nC D\nE F 1\n", {"runs_on 2 3", "ends_at_name 2"}},
        {"ko", "A B 1\nC D 1", {}},
        {"ko", "A B 1\nC D", {"no_line_feed 2", "ends_at_name 2"}},
        {"names.txt",
         "A\nB\r\nC D\nnode\nA\n\nx\\\nE",
         {"no_line_feed 8", "empty_line 6", "carriage_return 2", "blank_in_name 3", "repeated_name 5",
          "not_drawable 4 7"}},
        {"names.txt", "A\nB\n", {"first_name_missed"}},
    };
    for (const auto& expected : cases) {
        EXPECT_EQ(findings(check_texts({{expected.file, expected.text}}), expected.file), expected.found)
            << expected.text;
    }
}

TEST(check_test, tells_which_line_overrules_another) {
    const input_check check = check_texts(
        {{"test", "A B 1\nB A 1\n"}, {"directed", "B A 1\nC D 1\n"}, {"undirected", "A B 1\nD C 1\nE F 1\n"}});
    EXPECT_EQ(findings(check, "test"), lines{"repeated 2"});
    EXPECT_EQ(findings(check, "directed"), lines{"test_interaction 1"});
    EXPECT_EQ(findings(check, "undirected"), (lines{"test_interaction 1", "directed_interaction 2"}));
    EXPECT_TRUE(check.is_clean());
}

TEST(check_test, finds_the_name_that_is_meant) {
    const input_check check = check_texts(
        {{"names.txt", "HOG1\nPBS2\nSHO1\nA \nA1"}, {"directed", "HOG1 pbs2 1\nSH01 HOG1 1\nA1 SHO1 1\nXYZ pbs2 1\n"}});
    ASSERT_EQ(check.unknown_names.size(), 4u);
    EXPECT_EQ(check.unknown_names[0].name, "pbs2");
    EXPECT_EQ(check.unknown_names[0].mentions.size(), 2u);
    EXPECT_EQ(check.unknown_names[0].meant.names, lines{"PBS2"});
    EXPECT_EQ(check.unknown_names[1].meant.names, lines{"SHO1"});
    EXPECT_EQ(check.unknown_names[2].meant.how, likeness::same);
    EXPECT_EQ(check.unknown_names[3].meant.how, likeness::none);
    const std::string text = check_text(check, 10);
    EXPECT_NE(text.find("pbs2 (directed line 1, 2 times in all): is PBS2 meant? They differ in letter case\n"),
              std::string::npos)
        << text;
    EXPECT_NE(text.find("Lost: 5 lines; 4 unknown names."), std::string::npos) << text;
}

TEST(check_test, says_why_a_pair_has_no_path_and_what_stands_twice) {
    const input_check check = check_texts({{"names.txt", letters + "G\nA_A\nA_B\n"},
                                           {"directed", "A B 1\nC B 1\nC D 1\nA_A B 1\nA A_B 1\n"},
                                           {"undirected", "E F 1\n"},
                                           {"ko", "A B 1\nB A 1\nA A 1\nA C 1\nA D 1\nE D 1\nF E 1\nA B 2\n"}});
    lines told;
    for (const pathless_pair& pair : check.pathless_pairs) {
        told.push_back(std::to_string(pair.line) + pair.cause + pair.effect + " " + name_of(pair.why));
    }
    EXPECT_EQ(told, (lines{"2BA no_outgoing", "3AA same_protein", "4AC no_entering", "5AD no_directed_path",
                           "6ED different_components"}));
    ASSERT_EQ(check.repeated_pairs.size(), 1u);
    EXPECT_EQ(check.repeated_pairs[0].lines, (line_numbers{1, 8}));
    ASSERT_EQ(check.unmentioned.size(), 1u);
    EXPECT_EQ(check.unmentioned[0].name, "G");
    ASSERT_EQ(check.shared_variables.size(), 1u);
    EXPECT_EQ(check.shared_variables[0].variable, "o_A_A_B");
    EXPECT_TRUE(check.is_clean());
}

using check_command = program_test;

TEST_F(check_command, has_three_for_losses_and_two_for_no_input) {
    write("in/names.txt", letters);
    write("in/directed", "A B 1\nB C 1\n");
    write("in/undirected", "");
    write("in/ko", "A C 1\n");
    EXPECT_EQ(run_program({"check", "in/"}, tools_program()).exit_status, 0);
    std::string text;
    for (int i = 0; i < 12; ++i) {
        text += "X\xff A 1\n";
    }
    write("in/undirected", text);
    const program_result cut = run_program({"check", "in"}, tools_program());
    EXPECT_EQ(cut.exit_status, 3);
    EXPECT_NE(cut.out.find("(lines 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, and 2 more)"), std::string::npos) << cut.out;
    EXPECT_NE(run_program({"check", "in/", "--all"}, tools_program()).out.find("9, 10, 11, 12)"), std::string::npos);
    const auto json = nlohmann::json::parse(run_program({"check", "in/", "--json"}, tools_program()).out);
    EXPECT_EQ(json["lines_lost"], 12);
    EXPECT_EQ(json["files"][3]["dropped"][0]["lines"].size(), 10u);
    EXPECT_EQ(json["unknown_names"]["first"][0]["name"], "X\xef\xbf\xbd");
    const program_result none = run_program({"check", "none/"}, tools_program());
    EXPECT_EQ(none.exit_status, 2);
    EXPECT_EQ(none.err, "netorient-tools: none/: none of the five input files can be opened\n");
}

}  // namespace
