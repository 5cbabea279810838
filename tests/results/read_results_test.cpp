#include "results/read_results.hpp"
#include "support/program.hpp"
#include "tables/unusable_input.hpp"

namespace {

const std::string interaction_header =
    "first\tsecond\tfile\tline\tconfidence\tdirection\tpairs\tregret_min\tregret_max\tstatus\n";
const std::string pair_header =
    "cause\teffect\tline\tstatus\twhy\tdistance\tpaths\topen_paths\tpath\tprice_min\tprice_max\tagainst\n";

class read_results_test : public program_test {
 protected:
    read_results_test() {
        write("interactions.tsv", interaction_header +
                                      "A\tB\ttest\t3\t0.5\tsecond_to_first\t7\t1\t4\tdecided\n"
                                      "B\tP1\tdirected\t1\t1\tknown\t0\t\t\tknown\n");
        write("pairs.tsv", pair_header +
                               "B\tA\t1\texplained\t\t1\t1\t1\tB>A\t\t\t\n"
                               "A\tP1\t2\tlost\t\t2\t>1e15\t0\t\t1\t2\tB>A;B\\\\>\\\\;>A;+3\n"
                               "A\tXYZ\t3\tunknown_name\t\t\t\t\t\t\t\t\n");
    }

    std::string told() const {
        try {
            results::read_answer(folder);
        } catch (const unusable_input& error) {
            return std::string(error.what()).substr(folder.string().size() + 1);
        }
        return "nothing";
    }
};

TEST_F(read_results_test, every_cell_is_read) {
    const results::answer answer = results::read_answer(folder.string() + "/");
    ASSERT_EQ(answer.interactions.size(), 2U);
    const results::interaction_row& interaction = answer.interactions[0];
    EXPECT_EQ(answer.proteins[interaction.first].name, "A");
    EXPECT_EQ(interaction.file, results::interaction_file::test);
    EXPECT_EQ(interaction.line, 3);
    EXPECT_EQ(interaction.confidence, "0.5");
    EXPECT_EQ(interaction.num_pairs, 7);
    EXPECT_EQ(interaction.regret.min, 1);
    EXPECT_EQ(interaction.regret.max, 4);
    EXPECT_EQ(interaction.status, results::interaction_status::decided);
    EXPECT_EQ(open_arc(interaction), results::named_pair(interaction.second, interaction.first));
    EXPECT_EQ(answer.interactions[1].regret.min, std::nullopt);

    ASSERT_EQ(answer.pairs.size(), 3U);
    EXPECT_EQ(answer.pairs[0].path, (std::vector{interaction.second, interaction.first}));
    const results::pair_row& lost = answer.pairs[1];
    EXPECT_EQ(lost.num_paths, ">1e15");
    EXPECT_EQ(lost.distance, 2);
    EXPECT_EQ(lost.price.max, 2);
    ASSERT_EQ(lost.against.size(), 2U);
    EXPECT_EQ(answer.proteins[lost.against[1].first].name, "B>;");
    EXPECT_EQ(lost.more_against, 3);
    EXPECT_TRUE(results::read_json(folder / "run.json").is_null());
}

TEST_F(read_results_test, proteins_are_found_by_their_own_names_and_by_aliases) {
    write("aliases.tsv", "alias\tname\nP1\tinterleukin 1 receptor\n");
    const results::answer answer = results::read_answer(folder);
    const std::size_t protein = results::find_protein(answer, "interleukin 1 receptor");
    EXPECT_EQ(results::find_protein(answer, "P1"), protein);
    EXPECT_EQ(answer.proteins[protein].name, "interleukin 1 receptor");
    for (const auto& [name, message] : {std::pair("interleukin_1_receptor", "; is meant \"interleukin 1 receptor\"?"),
                                        std::pair("XYZ", ""), std::pair("somewhere else", "")}) {
        try {
            results::find_protein(answer, name);
            ADD_FAILURE() << name;
        } catch (const unusable_input& error) {
            EXPECT_EQ(error.what(), "there is no protein \"" + std::string(name) + "\" in the network" + message);
        }
    }
}

TEST_F(read_results_test, what_is_no_answer_is_told_with_file_and_line) {
    write("run.json", "{\"value\": ");
    EXPECT_THROW(results::read_json(folder / "run.json"), unusable_input);
    write("pairs.tsv", pair_header + "A\tB\t1\tfound\t\t1\t1\t1\tA>B\t\t\t\n");
    EXPECT_EQ(told(), "pairs.tsv:2: \"found\" is no status");
    write("interactions.tsv", interaction_header + "A\tB\ttest\t3x\t1\tnone\t0\t\t\tunused\n");
    EXPECT_EQ(told(), "interactions.tsv:2: \"3x\" is no number of column line");
    write("interactions.tsv", "first\tsecond\nA\tB\n");
    EXPECT_EQ(told(), "interactions.tsv:1: there is no column file");
    std::filesystem::remove(folder / "interactions.tsv");
    EXPECT_EQ(told(), "interactions.tsv: cannot be opened");
}

TEST_F(read_results_test, the_export_command_says_what_it_cannot_do_and_writes_nothing) {
    const auto exported = [&](std::vector<std::string> arguments) {
        arguments.insert(arguments.begin(), {"export", "."});
        return run_program(arguments, tools_program());
    };
    EXPECT_EQ(exported({"out.txt"}).exit_status, 1);
    EXPECT_EQ(exported({"out.sif", "--neighbourhood", "1"}).exit_status, 1);
    EXPECT_EQ(exported({"out.sif", "--pair", "A"}).exit_status, 1);
    EXPECT_EQ(exported({"none/out.sif"}).exit_status, 2);
    const program_result no_path = exported({"out.sif", "--pair", "A", "P1"});
    EXPECT_EQ(no_path.exit_status, 2);
    EXPECT_EQ(no_path.err, "netorient-tools: the pair from \"A\" to \"P1\" has no open shortest path: it is lost\n");
    EXPECT_EQ(exported({"out.sif", "--pair", "A", "B"}).exit_status, 2);
    EXPECT_EQ(exported({"out.sif", "--part", "XYZ"}).exit_status, 2);
    EXPECT_FALSE(exists("out.sif"));

    EXPECT_EQ(exported({"out.sif"}).exit_status, 0);
    EXPECT_EQ(read("out.sif"), "B\tdecided\tA\nB\tknown\tP1\n");
    EXPECT_EQ(exported({"-", "--format", "sif", "--part", "P1", "A"}).out, "A\nP1\n");
}

}  // namespace
