// Knockout pairs from tables and matrices, and the thresholds on them.
#include <boost/algorithm/string.hpp>

#include "formats/foreign_rows.hpp"
#include "support/program.hpp"
#include "tables/unusable_input.hpp"

namespace {

class knockouts_test : public program_test {
 protected:
    // "A>B" for each pair, then what was left out or the error, without the folder.
    std::string imported(const std::string& text, const std::vector<std::string>& conditions = {},
                         knockout_options options = {}) {
        write("ko", text);
        std::string told;
        try {
            for (const std::string& threshold : conditions) {
                options.conditions.push_back(read_condition(threshold));
            }
            const source_account account = read_knockout_pairs(folder / "ko", options, [&](const knockout_row& row) {
                told += std::string(row.cause) + ">" + std::string(row.effect) + " ";
            });
            for (const auto& [reason, tally] : account.dropped) {
                told += "; " + reason + ": " + std::to_string(tally.count);
            }
        } catch (const unusable_input& error) {
            told += boost::replace_all_copy(std::string(error.what()), folder.string() + "/", "");
        }
        return told;
    }
};

TEST_F(knockouts_test, come_from_two_columns_or_named_ones) {
    EXPECT_EQ(imported("cause\teffect\nA\tB\nA\tC\n"), "A>B A>C ");
    EXPECT_EQ(imported("A,B\nA,C\n"), "A>B A>C ");
    EXPECT_EQ(imported("TF,B\nTF,C\n"), "TF>B TF>C ");  // a protein, and a word for a cause
    EXPECT_EQ(imported("gene,padj,deletion\nB,0.1,A\nA,0.1,A\nB,1,\n"),
              "A>B ; a name is missing: 1; cause and effect are one protein: 1");
    EXPECT_EQ(imported("x;y;z\n1;B;A\n", {}, {.columns = {{"cause", "z"}, {"effect", "y"}}}), "A>B ");
    EXPECT_EQ(imported("1;B;A\n", {}, {.columns = {{"cause", "3"}, {"effect", "2"}}}), "A>B ");
    EXPECT_EQ(
        imported("x,y,z\nA,B,C\n"),
        "ko:1: no column is known to name the cause; name them by --knockout-columns cause=...,effect=... There are "
        "x, y and z");
}

TEST_F(knockouts_test, meet_all_thresholds) {
    const std::string table =
        "cause,effect,padj,log2fc,method\nA,B,0.05,-1,x\nA,C,0.051,2,x\nA,D,NA,2,x\nA,E,1e-400,0.99,x\nA,F,0.01,1.5,y "
        "z\n";
    EXPECT_EQ(imported(table, {"padj<=0.05", "|log2fc|>=1"}),
              "A>B A>F ; no value in 'padj': 1; not padj<=0.05: 1; not |log2fc|>=1: 1");
    EXPECT_EQ(imported(table, {"padj < 0.05"}), "A>E A>F ; no value in 'padj': 1; not padj < 0.05: 2");
    EXPECT_EQ(imported(table, {"log2fc>1", "method!=x"}), "A>F ; not log2fc>1: 2; not method!=x: 2");
    EXPECT_EQ(imported(table, {"method = y z"}), "A>F ; not method = y z: 4");
    EXPECT_EQ(imported(table, {"log2fc==2.0"}), "A>C A>D ; not log2fc==2.0: 3");
    EXPECT_EQ(imported(table, {"method>1"}), "ko:2: field 'method': 'x' is not a number");
    EXPECT_EQ(imported(table, {"p<1"}),
              "ko:1: there is no column 'p' for 'p<1'; there are cause, effect, padj, log2fc and method");
    EXPECT_EQ(imported(table, {"padj"}), "condition 'padj': holds none of <, <=, >=, >, = and !=");
    EXPECT_EQ(imported(table, {"padj<x"}), "condition 'padj<x': 'x' is not a number");
    EXPECT_EQ(imported(table, {"<1"}), "condition '<1': names no column");
}

TEST_F(knockouts_test, come_from_a_matrix_of_effects_by_causes) {
    const std::string matrix = "gene\tA\tB\nA\t3\t-2\nB\t0.5\t4\nC\tNA\t1.5\n";
    const knockout_options options{.format = "matrix"};
    EXPECT_EQ(imported(matrix, {"|value|>=1"}, options),
              "B>A B>C ; cause and effect are one protein: 2; no value in 'value': 1; not |value|>=1: 1");
    EXPECT_EQ(imported("A\tB\nC\t1\t0\n", {"value>0"}, options), "A>C ; not value>0: 1");  // as R writes it
    EXPECT_EQ(imported("gene\tA\nB\tx\n", {"value>0"}, options), "ko:2: field 'A': 'x' is not a number");
    EXPECT_EQ(imported(matrix, {}, options), "ko: a matrix needs a threshold, such as --where '|value|>=1'");
    EXPECT_EQ(imported(matrix, {"padj<1"}, options), "condition 'padj<1': the cells of a matrix are called 'value'");
}

}  // namespace
