// Whatever a file holds, it is read or told to be unreadable, and every row is accounted for.
#include <iostream>
#include <random>

#include "formats/foreign_rows.hpp"
#include "support/program.hpp"
#include "tables/unusable_input.hpp"

namespace {

using any_bytes = program_test;

const std::vector<std::string> files = {
    "A pp B C\nD\tpd\tE\nF\n",
    "source,target,weight,directed\nA,B,0.5,1\n\"C\nD\",E,,0\n",
    "A\tB\t0.5\tD\nC\tD\t1\tU\n",
    "#ID(s) interactor A\tx\nk:A\tk:B\tk:1(t)|\"k:2\"\t-\tu:A(gene "
    "name)\tu:\"B|(\"(display_short)\t-\t-\t-\ttaxid:1\ttaxid:1\t-\t-"
    "\t-\tintact-miscore:0.5\n",
    "source\ttarget\tis_directed\nA\tB\t1\nB\tC\t0\n",
    "#x\tOfficial Symbol Interactor A\tOfficial Symbol Interactor B\tExperimental System\tExperimental System "
    "Type\tOrganism "
    "ID Interactor A\tOrganism ID Interactor B\n1\tA\tB\tX\tphysical\t1\t1\n1\tA\tC\tX\tgenetic\t1\t1\n",
    "protein1 protein2 combined_score\n1.A 1.B 500\n1.B 1.A 500\n",
};

std::string damaged(std::string text, std::mt19937& engine) {
    static const std::vector<std::string> pieces = {"\t",
                                                    "\n",
                                                    "\r",
                                                    "\"",
                                                    "|",
                                                    ":",
                                                    "(",
                                                    ")",
                                                    ",",
                                                    ";",
                                                    " ",
                                                    "\\",
                                                    "-",
                                                    "NA",
                                                    "1e999",
                                                    "\xef\xbb\xbf",
                                                    "\xff\xfe",
                                                    "\x1f\x8b",
                                                    std::string(1, '\0'),
                                                    "#"};
    for (auto fault = 1 + engine() % 4; fault > 0; --fault) {
        const std::size_t place = engine() % (text.size() + 1);
        switch (engine() % 4) {
            case 0:
                text.erase(place, 1 + engine() % 8);
                break;
            case 1:
                text.resize(place);
                break;
            case 2:
                text += text.substr(place);
                break;
            default:
                text.insert(place, pieces[engine() % pieces.size()]);
        }
    }
    return text;
}

long dropped(const source_account& account) {
    long count = 0;
    for (const auto& [reason, tally] : account.dropped) {
        count += tally.count;
    }
    return count;
}

TEST_F(any_bytes, are_read_or_refused_with_file_and_reason) {
    std::mt19937 engine(1);
    long read_whole = 0;
    long refused = 0;
    const std::string path = folder / "file";
    for (int round = 0; round < 1500; ++round) {
        write("file", damaged(files[engine() % files.size()], engine));
        interaction_options options;
        if (round % 4 == 0) {
            options.format = std::vector<std::string>{
                "sif", "delimited", "psi-mitab", "omnipath", "biogrid", "string"}[engine() % 6];
        }
        knockout_options knockouts{.format = round % 3 == 0 ? "matrix" : ""};
        if (round % 2 == 0) {
            knockouts.conditions = {read_condition("value>0")};
        }
        for (const bool as_knockouts : {false, true}) {
            long taken = 0;
            try {
                const source_account account =
                    as_knockouts ? read_knockout_pairs(path, knockouts, [&](const knockout_row&) { ++taken; })
                                 : read_interactions(path, options, [&](const interaction_row&) { ++taken; });
                ASSERT_EQ(account.taken, taken);
                ASSERT_EQ(account.rows, taken + dropped(account));
                ++read_whole;
            } catch (const unusable_input& error) {
                ASSERT_TRUE(std::string(error.what()).starts_with(path)) << error.what();
                ++refused;
            }
        }
    }
    EXPECT_GT(read_whole, 300);
    EXPECT_GT(refused, 300);
}

}  // namespace
