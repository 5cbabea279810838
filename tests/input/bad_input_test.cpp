// Files that are not what they should be: each costs a line at most, and none
// brings the reader to a stop.
#include <algorithm>

#include "input/text_file.hpp"
#include "support/network.hpp"

using bad_input = network_test;

namespace {

const std::string x20(20, 'x');
const std::string megabytes(10'000'000, 'x');

std::string unknown(const std::string& name) {
    return "ERROR: protein " + name + " not found in the list (in file = 1)\n";
}

std::string too_long(int line, const std::string& field) {
    return "ERROR: in file directed line " + std::to_string(line) + ": name " + field +
           " is longer than 19 characters\n";
}

}  // namespace

TEST_F(bad_input, in_a_network_file_costs_the_line_it_is_on) {
    const std::string cd = "CD 1 0 0 1";
    struct {
        std::string text;
        std::string message;
        lines network;
    } const cases[] = {
        {"A\tB\t" + x20 + "\nC D 1\nB\tC\t" + x20, too_long(1, "A?B?" + x20 + "?C") + too_long(3, "B?C?" + x20), {cd}},
        {"A\tB\t0.7\nB\tC\t1\n", "", {}},
        {"A B 0.7\r\nB C 1\r\n", "", {"AB 1 0 0 0.7", "BC 1 0 0 1"}},
        {"A B 1\n\nB C 1\nC D 1\n", unknown("\nB"), {"AB 1 0 0 1", cd}},
        {"A  B 1\nC D 1\n", unknown(""), {cd}},
        {" A B 1\nC D 1\n", unknown(""), {cd}},
        {"A B\nC D 1\nD E 1\n", unknown("B\nC"), {"DE 1 0 0 1"}},
        {"A B 1\n" + x20 + " B 1\nC D 1\n", too_long(2, x20), {"AB 1 0 0 1", cd}},
        {"A " + x20 + "\nB 1\nC D 1\nD E 1\n", too_long(1, x20 + "?B") + unknown("1\nC"), {"DE 1 0 0 1"}},
        {"A\n" + x20 + " B 1\nC D 1\n", too_long(1, "A?" + x20) + too_long(2, x20), {cd}},
        {"A\nB " + x20 + "\nC D 1\n", too_long(1, x20 + "?C") + too_long(2, x20 + "?C"), {cd}},
        {x20.substr(1) + " B 1\n", unknown(x20.substr(1)), {}},
        {megabytes, too_long(1, megabytes.substr(0, 40)), {}},
        {megabytes + "\nC D 1\n", too_long(1, megabytes.substr(0, 40)), {cd}},
        {"A B 0.5" + megabytes + "\nC D 1\n", "", {"AB 1 0 0 0.5", cd}},
        {std::string("A\0zz B\0 1\0009\nC D 2\n", 18), "", {"AB 1 0 0 1", "CD 1 0 0 2"}},
        {"\xff\xfe B 1\nC D 1\n", unknown("\xff\xfe"), {cd}},
        {"A B 1\nC D", "", {"AB 1 0 0 1"}},  // cut short
        {"A B  -2e1x\nB C .\nC D 0x10\n", "", {"AB 1 0 0 -20", "BC 1 0 0 0", "CD 1 0 0 16"}},
    };
    for (const auto& expected : cases) {
        load_letters({{"directed", expected.text}});
        EXPECT_EQ(printed(), expected.message) << expected.text.substr(0, 80);
        EXPECT_EQ(arcs(), expected.network) << expected.text.substr(0, 80);
    }
}

TEST_F(bad_input, in_knockouts_costs_the_line_it_is_on) {
    load_letters({{"ko", "A B\nC D 1\nC D 1\nE\tF\t0.1\nE F 1\nE\tF\t0.12345678901234567\nD C 1\n"}});
    EXPECT_EQ(printed(),
              "ERROR : a knouckout pair with unrecognized proteins: AkoB\nC\n"
              "ERROR : a knouckout pair with unrecognized proteins: E\tF\t0.1\nEkoF\n"
              "ERROR: in file ko line 6: name E?F?0.12345678901234567?D is longer than 19 characters\n");
    EXPECT_EQ(knockouts(), (lines{"C: D", "D: C"}));
}

TEST_F(bad_input, folders_and_unreadable_files_do_not_open) {
    EXPECT_FALSE(open_text_file("/").opened);
    EXPECT_FALSE(open_text_file("/no/such/file").opened);
    EXPECT_FALSE(open_text_file("/proc/self/mem").opened);  // opens, but its first byte cannot be read
    EXPECT_TRUE(open_text_file("/dev/null").opened);
}

TEST_F(bad_input, of_many_refused_lines_is_read_in_linear_time) {
    std::string text;
    for (int i = 0; i < 400'000; ++i) {
        text += "A\tB\t0.12345\n";
    }
    load_letters({{"directed", text}});
    const std::string messages = printed();
    EXPECT_EQ(std::count(messages.begin(), messages.end(), '\n'), 399'999);
}
