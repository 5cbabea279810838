// From files to the five files: what becomes of rows that contradict each other, of names
// that differ or do not fit, and what is left when something cannot be read.
#include <algorithm>
#include <random>

#include <boost/algorithm/string.hpp>
#include <nlohmann/json.hpp>

#include "checking/check_input.hpp"
#include "importing/import_network.hpp"
#include "naming/alias.hpp"
#include "support/network.hpp"
#include "support/program.hpp"

namespace {

class import_test : public program_test {
 protected:
    // The command's exit status; "in/" is what it writes.
    int imported(const std::string& arguments) {
        std::vector<std::string> words{"import"};
        std::vector<std::string> given;
        boost::split(given, arguments, boost::is_any_of(" "));
        words.insert(words.end(), given.begin(), given.end());
        words.push_back("in/");
        result = run_program(words, tools_program());
        return result.exit_status;
    }
    // The four files with interactions and pairs, without line feeds.
    std::string files() const {
        std::string text;
        for (const char* name : {"test", "directed", "undirected", "ko"}) {
            text += (name == std::string("test") ? "" : "| ") +
                    boost::replace_all_copy(read("in/" + std::string(name)), "\n", ", ");
        }
        return text;
    }
    nlohmann::json account() const { return nlohmann::json::parse(read("in/import.json")); }
    void expect_clean() const {
        const input_check check = check_input([&](const char* name) { return open_text_file(folder / "in" / name); });
        EXPECT_TRUE(check.is_clean()) << check_text(check, 10);
        for (const file_check& file : check.files) {
            EXPECT_TRUE(file.dropped.empty() && file.hazards.empty()) << check_text(check, 10);
        }
        EXPECT_TRUE(check.unmentioned.empty() && check.repeated_pairs.empty());
    }
    program_result result;
};

const std::string both = "--interactions net.tsv --knockouts ko.tsv";

TEST_F(import_test, of_rows_that_contradict_each_other_directions_and_confidence_win) {
    write("net.tsv",
          "first\tsecond\tdirection\tconfidence\nB\tA\tU\t0.9\nA\tB\tD\t0.5\nA\tB\tD\t0.25\nC\tB\tU\t-2\nB\tC\tU\t0."
          "5\n"
          "C\tD\tD\t1\nD\tC\tD\t0.75\nD\tD\tD\t1\n");
    write("ko.tsv", "cause\teffect\nA\tD\nA\tC\nA\tD\nA\tX\n");
    ASSERT_EQ(imported(both), 0) << result.err;
    EXPECT_EQ(files(), "| A B 0.9, C D 1, D C 0.75, | B C 0.5, | A C 1, A D 1, ");
    EXPECT_EQ(read("in/names.txt"), "A\nB\nC\nD\n");
    EXPECT_EQ(read("in/aliases.tsv"), "alias\tname\n");
    const nlohmann::json told = account();
    EXPECT_EQ("netorient-tools " + told["version"].get<std::string>() + "\n",
              run_program({"--version"}, tools_program()).out);
    EXPECT_EQ(told["counts"]["repeated"], 2);
    EXPECT_EQ(told["counts"]["overruled_by_direction"], 1);
    EXPECT_EQ(told["counts"]["both_directions_known"], 1);
    EXPECT_EQ(told["counts"]["pairs_repeated"], 1);
    EXPECT_EQ(told["counts"]["pairs_with_unknown_name"], 1);
    EXPECT_EQ(told["sources"][0]["left_out"][0]["first_lines"], nlohmann::json({9}));
    expect_clean();
    // The order of rows and of files does not matter.
    const std::string before = files();
    write("net.tsv", "first\tsecond\tdirection\tconfidence\nD\tC\tD\t0.75\nB\tC\tU\t0.5\nA\tB\tD\t0.5\n");
    write("more.tsv", "first\tsecond\tdirection\tconfidence\nC\tD\tD\t1\nA\tB\tU\t0.9\n");
    ASSERT_EQ(imported("--interactions more.tsv net.tsv --knockouts ko.tsv"), 0) << result.err;
    EXPECT_EQ(files(), before);
}

TEST_F(import_test, names_that_differ_are_told_and_taken_on_request_alone) {
    write("net.tsv", "A1 pp Bcd\nBcd pd C-1\nC-1 pp D.2\nD.2 pp E\nE pp e\n");
    write("more.sif", "F pp a1\n");
    write("ko.tsv", "cause,effect\nA1,bcd\nA1,C_1\nA1,D\nA1,E\nA1,Z\na1.1,A1\n");
    const std::string arguments = "--format sif --interactions net.tsv more.sif --knockouts ko.tsv";
    ASSERT_EQ(imported(arguments), 0) << result.err;
    EXPECT_EQ(read("in/ko"), "A1 E 1\n");
    EXPECT_NE(result.out.find("a1: like A1 but for letter case, not taken (--match loose would)"), std::string::npos)
        << result.out;
    EXPECT_NE(result.out.find("C_1: like C-1 but for dash, underscore or blank, not taken"), std::string::npos);
    EXPECT_NE(result.out.find("D: like D.2 but for version, not taken"), std::string::npos);
    ASSERT_EQ(imported(arguments + " --match loose"), 0) << result.err;
    EXPECT_EQ(read("in/ko"), "A1 Bcd 1\nA1 C-1 1\nA1 D.2 1\nA1 E 1\n");
    EXPECT_EQ(read("in/names.txt"), "A1\nBcd\nC-1\nD.2\nE\nF\ne\n");  // E and e are told apart by one file
    EXPECT_EQ(account()["counts"]["pairs_of_one_protein"], 1);
    expect_clean();
    write("ko.tsv", "cause,effect\na1x,bcd\nbcd,A1\n");
    EXPECT_EQ(imported(arguments), 2);
    EXPECT_NE(result.err.find("no knockout pair has both names in the network; 'bcd' differs from 'Bcd' in letter case "
                              "alone: --match loose would take it\n"),
              std::string::npos)
        << result.err;
}

TEST_F(import_test, names_of_string_are_found_by_their_aliases) {
    write("links", "protein1 protein2 combined_score\n1.P1 1.P2 900\n1.P2 1.P3 800\n1.P3 1.P4 700\n");
    write("aliases",
          "#string_protein_id\talias\tsource\n1.P1\tAAA\tUniProt_GN_Name\n1.P1\tOLD1\tUniProt_GN_Synonyms\n"
          "1.P3\tCCC\tUniProt_GN_Name\n1.P2\tBOTH\tUniProt_GN_Synonyms\n1.P3\tBOTH\tUniProt_GN_Synonyms\n");
    write("ko.tsv", "cause,effect\nOLD1,CCC\nP4,BOTH\n");
    ASSERT_EQ(imported("--interactions links --aliases aliases --knockouts ko.tsv"), 0) << result.err;
    EXPECT_EQ(files(), "| | AAA P2 0.9, CCC P2 0.8, CCC P4 0.7, | AAA CCC 1, ");
    EXPECT_EQ(account()["counts"]["named_by_alias"], 1);
    EXPECT_EQ(account()["sources"][2]["kind"], "names");
}

TEST_F(import_test, names_that_do_not_fit_get_aliases_that_do) {
    const std::vector<std::string> odd = {"a name of more than nineteen characters",
                                          "a name of more than nineteen letters",
                                          "TGF\xce\xb2 1",
                                          "node",
                                          "A\\B",
                                          "caf\xc3\xa9",
                                          "x y",
                                          "x_y",
                                          "."};
    std::string rows = "first,second\n";
    for (const std::string& name : odd) {
        rows += "HUB," + name + "\n";
    }
    write("net.tsv", rows);
    write("ko.tsv", "cause,effect\nHUB," + odd[0] + "\n" + odd[2] + "," + odd[6] + "\n");
    ASSERT_EQ(imported(both), 0) << result.err;
    expect_clean();
    const std::map<std::string, std::string> aliases = make_aliases(odd);
    EXPECT_EQ(aliases.size(), odd.size() - 1);
    EXPECT_EQ(aliases.at(odd[2]), "TGFbeta_1");
    EXPECT_EQ(aliases.at("caf\xc3\xa9"), "caf_");
    EXPECT_TRUE(aliases.at("x y").starts_with("x_y~")) << aliases.at("x y");
    EXPECT_TRUE(aliases.at(odd[0]).starts_with("a_name_of_more~"));
    std::vector<std::string> written;
    const std::string table = read("in/aliases.tsv");
    for (const auto& [name, alias] : aliases) {
        EXPECT_TRUE(can_stand(alias)) << alias;
        written.push_back(alias);
        const std::string shown = boost::replace_all_copy(name, "\\", "\\\\");
        EXPECT_NE(table.find(alias + "\t" + shown + "\n"), std::string::npos) << table;
    }
    std::sort(written.begin(), written.end());
    EXPECT_EQ(std::adjacent_find(written.begin(), written.end()), written.end());
    std::vector<std::string> fewer(odd.rbegin(), odd.rend() - 1);
    EXPECT_EQ(make_aliases(fewer).at(odd[1]), aliases.at(odd[1]));
}

TEST_F(import_test, hidden_directions_depend_on_seed_and_amount_alone) {
    std::string rows;
    for (int i = 0; i < 40; ++i) {
        rows += "P" + std::to_string(i) + " pd P" + std::to_string(i + 1) + "\n";
    }
    write("net.sif", rows + "P1 pd P0\n");  // known both ways: not to be hidden
    write("ko.tsv", "cause,effect\nP0,P40\n");
    const std::string arguments = "--interactions net.sif --knockouts ko.tsv --hide ";
    const auto hidden = [&](const std::string& amount) {
        EXPECT_EQ(imported(arguments + amount), 0) << result.err;
        return read("in/test");
    };
    const std::string ten = hidden("10");
    EXPECT_EQ(std::count(ten.begin(), ten.end(), '\n'), 10);
    EXPECT_EQ(hidden("10"), ten);
    EXPECT_NE(hidden("10 --seed 2"), ten);
    const std::string all = hidden("100%");
    EXPECT_EQ(std::count(all.begin(), all.end(), '\n'), 39);
    EXPECT_EQ(all, hidden("39"));
    EXPECT_EQ(read("in/directed"), "P0 P1 1\nP1 P0 1\n");
    const std::string half = hidden("0.5");
    EXPECT_EQ(std::count(half.begin(), half.end(), '\n'), 20);
    expect_clean();
    EXPECT_EQ(imported(arguments + "40"), 2);
    EXPECT_EQ(result.err, "netorient-tools: --hide 40: only 39 directions are known\n");
    EXPECT_EQ(imported(arguments + "some"), 2);
}

TEST_F(import_test, too_many_proteins_are_cut_to_shortest_paths_or_refused_with_thresholds) {
    std::string rows = "first\tsecond\tconfidence\n";
    for (int i = 0; i < 12000; ++i) {
        const std::string name = "P" + std::to_string(i);
        rows += "HUB\t" + name + "\t" + (i % 2 == 0 ? "0.9" : "0.4") + "\n";
    }
    write("net.tsv", rows);
    write("ko.tsv", "cause,effect\nP0,P1\nP2,P4\nP1,HUB\n");
    ASSERT_EQ(imported(both), 0) << result.err;
    EXPECT_EQ(read("in/names.txt"), "HUB\nP0\nP1\nP2\nP4\n");
    EXPECT_EQ(account()["counts"]["proteins_before_pruning"], 12001);
    expect_clean();
    std::string effects = "cause,effect\n";
    for (int i = 1; i < 12000; ++i) {
        effects += "P0,P" + std::to_string(i) + "\n";
    }
    write("ko.tsv", effects);
    std::filesystem::remove_all(folder / "in");
    EXPECT_EQ(imported(both), 2);
    EXPECT_EQ(
        result.err,
        "netorient-tools: 12001 proteins lie on a shortest path of a pair, and a run takes 9999 at most. A threshold "
        "would leave:\n  --min-confidence 0.9: 6001 proteins, 6000 interactions, 5999 pairs\n");
    EXPECT_FALSE(exists("in"));
    EXPECT_EQ(imported(both + " --min-confidence 0.9"), 0) << result.err;
    EXPECT_EQ(account()["counts"]["proteins"], 6001);
    expect_clean();
}

// A progress bar stands on this: it must neither go back nor stop before its end, though files of names are read
// again for knockouts that bear another name.
TEST_F(import_test, tells_how_far_it_is) {
    std::string links = "protein1 protein2 combined_score\n";
    std::string aliases = "#string_protein_id\talias\tsource\n";
    for (int i = 1000; i < 4000; ++i) {
        const std::string number = std::to_string(i);
        links += "1.p" + number + " 1.p" + std::to_string(i + 1) + " 900\n";
        aliases += "1.p" + number + "\tN" + number + "\tHGNC_symbol\n1.p" + number + "\tother" + number + "\tx\n";
    }
    write("links.txt", links);
    write("aliases.txt", aliases);
    write("ko.tsv", "N1000\tother1200\nN1000\tN2000\nN1500\tN2000\n");
    import_plan plan;
    plan.interaction_files = {folder / "links.txt"};
    plan.interactions.aliases = {folder / "aliases.txt"};
    plan.knockout_files = {folder / "ko.tsv"};
    plan.prune = true;
    using progress = std::pair<int, int>;
    std::map<std::string, std::vector<progress>> told;
    import_network(plan, [&](const std::string& what, int done, int all) { told[what].emplace_back(done, all); });
    EXPECT_EQ(told["pruning"], (std::vector<progress>{{2, 3}, {3, 3}}));
    const std::vector<progress>& reading = told["reading, in kB"];
    EXPECT_TRUE(std::is_sorted(reading.begin(), reading.end()));
    EXPECT_EQ(reading.front().first, 0);
    const auto read_in_all = (links.size() + 3 * aliases.size() + read("ko.tsv").size()) / 1000;
    EXPECT_EQ(reading.back(), progress(read_in_all, read_in_all));
}

TEST_F(import_test, leaves_nothing_half_written_and_nothing_overwritten) {
    write("net.tsv", "first,second\nA,B\nB,C\nC,D\n");
    write("ko.tsv", "cause,effect,p\nA,D,0.1\nB,D,x\n");
    EXPECT_EQ(imported(both + " --where p<1"), 2);
    EXPECT_EQ(result.err, "netorient-tools: ko.tsv:3: field 'p': 'x' is not a number\n");
    EXPECT_FALSE(exists("in"));
    write("in/notes", "mine");
    write("in/ko/is", "a folder");
    EXPECT_EQ(imported(both), 2);
    std::filesystem::remove_all(folder / "in/ko");
    write("in/import.json", "{}");
    std::filesystem::create_directories(folder / "in/import.json.part");
    EXPECT_EQ(imported(both), 2);
    EXPECT_NE(result.err.find("import.json could not be written"), std::string::npos) << result.err;
    std::filesystem::remove_all(folder / "in/import.json.part");
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder / "in"), {}), 2);
    EXPECT_EQ(imported(both), 0);
    EXPECT_EQ(imported(both), 0);  // over what an import wrote
    EXPECT_EQ(read("in/notes"), "mine");
    std::filesystem::remove(folder / "in/import.json");
    EXPECT_EQ(imported(both), 2);
    EXPECT_EQ(result.err,
              "netorient-tools: in/: holds names.txt, which no import wrote; choose another folder, or remove it\n");
    for (const char* wrong : {"--columns third=a", "--where p", "--format xls", "--names nick", "--min-confidence x"}) {
        EXPECT_EQ(imported(both + " " + wrong), 1) << wrong;
    }
}

}  // namespace
