// Which names mean the same, beside the plain definitions; and which names Graphviz
// reads, beside Graphviz.
#include <algorithm>
#include <random>

#include <boost/algorithm/string/replace.hpp>
#include <boost/graph/graphviz.hpp>

#include "naming/drawable.hpp"
#include "naming/likeness.hpp"
#include "support/program.hpp"

namespace {

using names = std::vector<std::string>;

int edits_between(const std::string& left, const std::string& right) {
    std::vector<std::vector<int>> edits(left.size() + 1, std::vector<int>(right.size() + 1));
    for (std::size_t i = 0; i <= left.size(); ++i) {
        for (std::size_t j = 0; j <= right.size(); ++j) {
            if (i == 0 || j == 0) {
                edits[i][j] = static_cast<int>(i + j);
                continue;
            }
            edits[i][j] = std::min({edits[i - 1][j] + 1, edits[i][j - 1] + 1,
                                    edits[i - 1][j - 1] + (left[i - 1] == right[j - 1] ? 0 : 1)});
            if (i > 1 && j > 1 && left[i - 1] == right[j - 2] && left[i - 2] == right[j - 1]) {
                edits[i][j] = std::min(edits[i][j], edits[i - 2][j - 2] + 1);
            }
        }
    }
    return edits[left.size()][right.size()];
}

TEST(likeness_test, says_how_names_differ_and_takes_the_closest) {
    const name_matcher matcher({"HOG1", "Hog1", "NF-kB", "YAL001C", "P04637.2", "FUS1", "FUS3", "FUS3", "A"});
    const struct {
        std::string name;
        likeness how;
        names meant;
    } cases[] = {
        {"HOG1", likeness::same, {"HOG1"}},
        {" HOG1\r", likeness::surroundings, {"HOG1"}},
        {"\xef\xbb\xbfHOG1", likeness::surroundings, {"HOG1"}},
        {"\"FUS1\"", likeness::surroundings, {"FUS1"}},
        {"hoG1", likeness::letter_case, {"HOG1", "Hog1"}},
        {"nf_KB", likeness::separators, {"NF-kB"}},
        {"yal001c.1", likeness::version, {"YAL001C"}},
        {"P04637", likeness::version, {"P04637.2"}},
        {"p04637.11", likeness::version, {"P04637.2"}},
        {"FUS2", likeness::one_edit, {"FUS1", "FUS3"}},
        {"YAL01C", likeness::one_edit, {"YAL001C"}},
        {"YAL0001C", likeness::one_edit, {"YAL001C"}},
        {"YLA001C", likeness::one_edit, {"YAL001C"}},
        {"YAL001.1", likeness::none, {}},
        {"FUS", likeness::one_edit, {"FUS1", "FUS3"}},
        {"STE20", likeness::none, {}},
        {" ", likeness::none, {}},
        {"", likeness::none, {}},
    };
    for (const auto& expected : cases) {
        const name_matcher::match found = matcher.closest(expected.name, likeness::one_edit);
        EXPECT_EQ(found.how, expected.how) << expected.name;
        EXPECT_EQ(found.names, expected.meant) << expected.name;
    }
    EXPECT_EQ(matcher.closest("FUS2", likeness::version).how, likeness::none);
}

TEST(likeness_test, one_edit_is_what_counting_edits_says) {
    std::mt19937 engine(1);
    const auto any_name = [&] {
        std::string name;
        for (std::size_t length = 1 + engine() % 5; name.size() < length;) {
            name += static_cast<char>('A' + engine() % 3);
        }
        return name;
    };
    for (int round = 0; round < 200; ++round) {
        names list;
        for (int i = 0; i < 6; ++i) {
            list.push_back(any_name());
        }
        const name_matcher matcher(list);
        const std::string wanted = any_name();
        names near;
        std::copy_if(list.begin(), list.end(), std::back_inserter(near),
                     [&](const std::string& name) { return edits_between(name, wanted) == 1; });
        std::sort(near.begin(), near.end());
        near.erase(std::unique(near.begin(), near.end()), near.end());
        if (std::find(list.begin(), list.end(), wanted) == list.end()) {
            ASSERT_EQ(matcher.closest(wanted, likeness::one_edit).names, near) << wanted;
        }
    }
}

using drawable_test = program_test;

// Every name is drawn as the drawings do it, and what dot reads back is compared.
TEST_F(drawable_test, is_what_dot_shows_as_it_is) {
    const auto drawn_as_it_is = [&](const std::string& name) {
        write("drawing", "digraph G {\n0[label=" + boost::escape_dot_string(name) + "];\n}\n");
        program_result result = run_program({"-Tsvg", "drawing"}, "/usr/bin/dot");
        boost::algorithm::replace_all(result.out, "&#45;", "-");
        return result.exit_status == 0 && result.err.empty() &&
               result.out.find(">" + name + "</text>") != std::string::npos;
    };
    for (const std::string name :
         {"HOG1", "_",    "A-1",   "12",      "-1.5",     "-",      "1a", "NODES", "nod", "A.1",  "A b", ":",
          "node", "Edge", "GRAPH", "digraph", "subgraph", "Strict", ".",  "-.",    "\\",  "A\\n", "A\\", "\\N"}) {
        EXPECT_EQ(is_drawable(name), drawn_as_it_is(name)) << name;
    }
}

}  // namespace
