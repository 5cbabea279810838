// netorient-tools orient as a program: its tables on a network made by hand, and on random
// ones held to one another.
#include <chrono>
#include <csignal>
#include <regex>
#include <sstream>
#include <thread>

#include "answer/check_tables.hpp"
#include "support/program.hpp"
#include "tables/read_table.hpp"

namespace {

using namespace std::chrono_literals;

class orient_test : public program_test {
 protected:
    program_result orient(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), "orient");
        return run_program(std::move(arguments), tools_program());
    }

    void generate(std::vector<std::string> parameters) const {
        parameters.insert(parameters.begin(), "in/");
        ASSERT_EQ(run_program(std::move(parameters), NETORIENT_GENERATE).exit_status, 0);
    }

    void expect_whole_tables(const std::string& output, checked_tables& checked) const {
        checked = check_tables(folder / output);
        for (const std::string& fault : checked.faults) {
            ADD_FAILURE() << fault;
        }
        for (const auto& entry : std::filesystem::directory_iterator(folder / output)) {
            EXPECT_NE(entry.path().extension(), ".part");
        }
    }

    std::vector<std::string> lines_of(const std::string& path) const {
        std::istringstream text(read(path));
        std::vector<std::string> lines;
        for (std::string line; std::getline(text, line);) {
            lines.push_back(line);
        }
        return lines;
    }

    // run.json without what differs from run to run.
    std::string run_without_times(const std::string& output) const {
        return std::regex_replace(read(output + "/run.json"),
                                  std::regex("\"(started|duration_seconds)\": [^\n]*|\"arguments\": \\[[^\\]]*\\]"),
                                  "");
    }

    // Of B - C two pairs want one direction and one the other; of P - Q one each.
    void write_every_status() const {
        write("in/aliases.tsv", "alias\tname\nP\tits own name\n");
        write("in/names.txt", "A\nB\nC\nD\nG\nH\nI\nP\nQ\na>;\\b\tc\n");
        write("in/test", "X B 1\nB D 0.25\n");
        write("in/directed", "A B 1\nB A\nA B 1\nA I 0.5\n");
        write("in/undirected", "C C 1\nB C 1\nC B 1\nG H 1e-3\nB A 1\nP Q 1\nD a>;\\b\tc 1\n");
        write("in/ko",
              "A C 1\nA C 1\nC B 1\nI C 1\nC A 1\nC G 1\nC I 1\nA A 1\nA X 1\nABCDEFGHIJKLMNOPQRSTUVW B 1\n"
              "P Q 1\nQ P 1\nA a>;\\b\tc \n");
    }
};

}  // namespace

TEST_F(orient_test, says_of_every_line_what_came_of_it) {
    write_every_status();
    const program_result result = orient({"in", "out"});
    EXPECT_EQ(std::pair(result.exit_status, result.err), std::pair(0, std::string()));
    // Which way P - Q goes is a tie.
    const bool forward = read("out/interactions.tsv").find("P\tQ\tundirected\t6\t1\tfirst") != std::string::npos;
    const std::string known = "\tknown\t";
    EXPECT_EQ(read("out/interactions.tsv"),
              "first\tsecond\tfile\tline\tconfidence\tdirection\tpairs\tregret_min\tregret_max\tstatus\n"
              "B\tD\ttest\t2\t0.25\tfirst_to_second\t1\t1\t1\tdecided\n"
              "A\tB\tdirected\t1\t1\tknown\t3\t\t\tknown\n"
              "A\tI\tdirected\t4\t0.5\tknown\t0\t\t\tknown\n"
              "B\tC\tundirected\t2\t1\tfirst_to_second\t2\t1\t1\tdecided\n"
              "G\tH\tundirected\t4\t0.001\tnone\t0\t\t\tunused\n"
              "P\tQ\tundirected\t6\t1\t" +
                  std::string(forward ? "first_to_second" : "second_to_first") +
                  "\t1\t0\t0\ttied\n"
                  "D\ta>;\\\\b\\tc\tundirected\t7\t1\tfirst_to_second\t1\t1\t1\tdecided\n");
    const std::string explained = "explained\t\t1\t1\t1\t";
    const std::string lost = "lost\t\t1\t1\t0\t\t0\t0\t";
    EXPECT_EQ(read("out/pairs.tsv"),
              "cause\teffect\tline\tstatus\twhy\tdistance\tpaths\topen_paths\tpath\tprice_min\tprice_max\tagainst\n"
              "A\tC\t1\texplained\t\t2\t1\t1\tA>B>C\t\t\t\n"
              "A\tC\t2\texplained\t\t2\t1\t1\tA>B>C\t\t\t\n"
              "C\tB\t3\tlost\t\t1\t1\t0\t\t1\t1\tA>C;A>C\n"
              "I\tC\t4\tunreachable\tno_outgoing\t\t\t\t\t\t\t\n"
              "C\tA\t5\tunreachable\tno_entering\t\t\t\t\t\t\t\n"
              "C\tG\t6\tunreachable\tdifferent_components\t\t\t\t\t\t\t\n"
              "C\tI\t7\tunreachable\tno_directed_path\t\t\t\t\t\t\t\n"
              "A\tA\t8\tsame_protein\t\t\t\t\t\t\t\t\n"
              "A\tX\t9\tunknown_name\t\t\t\t\t\t\t\t\n"
              "ABCDEFGHIJKLMNOPQRSTUVW\tB\t10\tunknown_name\t\t\t\t\t\t\t\t\n"
              "P\tQ\t11\t" +
                  (forward ? explained + "P>Q\t\t\t\n" : lost + "Q>P\n") + "Q\tP\t12\t" +
                  (forward ? lost + "P>Q\n" : explained + "Q>P\t\t\t\n") +
                  "A\ta>;\\\\b\\tc\t13\texplained\t\t3\t1\t1\tA>B>D>a\\\\>\\\\;\\\\\\\\b\\tc\t\t\t\n");
    EXPECT_EQ(read("out/aliases.tsv"), "alias\tname\nP\tits own name\n");
    checked_tables checked;
    expect_whole_tables("out", checked);
    EXPECT_EQ(checked.unproven, 0);

    // The same without regrets: what has a direction is open.
    EXPECT_EQ(orient({"in", "out", "--no-regret"}).exit_status, 0);
    expect_whole_tables("out", checked);
    EXPECT_NE(run_without_times("out").find("\"open\": 4"), std::string::npos);
    EXPECT_NE(read("out/pairs.tsv").find("C\tB\t3\tlost\t\t1\t1\t0\t\t\t\t\n"), std::string::npos);
}

// A ladder of 60 diamonds has 2^60 shortest paths; in one of 40 they can still be counted.
TEST_F(orient_test, counts_paths_as_far_as_it_promises) {
    std::ostringstream names;
    std::ostringstream directed;
    for (int i = 0; i < 60; ++i) {
        names << 'n' << i << "\nl" << i << "\nr" << i << '\n';
        for (const char side : {'l', 'r'}) {
            directed << 'n' << i << ' ' << side << i << " 1\n" << side << i << " n" << i + 1 << " 1\n";
        }
    }
    write("in/names.txt", names.str() + "n60\n");
    write("in/test", "");
    write("in/directed", directed.str());
    write("in/undirected", "");
    write("in/ko", "n0 n60 1\nn0 n40 1\n");
    EXPECT_EQ(orient({"in/", "out/"}).exit_status, 0);
    const table pairs = read_table(folder / "out/pairs.tsv");
    EXPECT_EQ(pairs.rows.at(0).at(pairs.column("paths")), ">1e15");
    EXPECT_EQ(pairs.rows.at(1).at(pairs.column("open_paths")), "1099511627776");
}

TEST_F(orient_test, tables_agree_with_one_another_and_with_the_program_for_any_number_of_jobs) {
    const std::vector<std::string> shapes[] = {
        {"pairs=60", "pairs_per_source=4", "noise=0.5"},
        {"pairs=100", "noise=0.4", "max_distance=7"},
        {"pairs=80", "noise=0.3", "preferential=0", "any_path=1"},
    };
    long interactions = 0;
    long pairs = 0;
    for (std::vector<std::string> shape : shapes) {
        for (const std::string seed : {"seed=1", "seed=2", "seed=3"}) {
            SCOPED_TRACE(shape.front() + " " + seed);
            shape.insert(shape.end(), {"proteins=80", "directed=30", "undirected=110", "test=20", seed});
            generate(shape);
            write("plain/keep", "");
            const program_result plain = run_program({"in/", "plain/"});
            const program_result result = orient({"in/", "one/", "--jobs", "1"});
            EXPECT_EQ(result.out, plain.out);
            EXPECT_EQ(std::pair(result.exit_status, result.err), std::pair(0, std::string()));
            EXPECT_EQ(orient({"in/", "three/", "--jobs", "3"}).exit_status, 0);
            checked_tables checked;
            expect_whole_tables("one", checked);
            EXPECT_EQ(checked.unproven, 0);
            interactions += checked.interactions;
            pairs += checked.pairs;
            for (const std::string file : {"initial_graph.txt", "shortest.lp", "solution_graph.txt"}) {
                EXPECT_TRUE(read("one/" + file) == read("plain/" + file)) << file;
            }
            for (const std::string file : {"interactions.tsv", "pairs.tsv"}) {
                EXPECT_TRUE(read("one/" + file) == read("three/" + file)) << file;
            }
            EXPECT_EQ(run_without_times("one"), run_without_times("three"));
            const table rows = read_table(folder / "one/interactions.tsv");
            for (const auto& row : rows.rows) {
                const std::string line = lines_of("in/" + row.at(2)).at(std::stoul(row.at(3)) - 1);
                EXPECT_TRUE(line.starts_with(row.at(0) + " " + row.at(1) + " ")) << line;
            }
        }
    }
    std::cout << "compared the tables of 9 networks with a recount: " << interactions << " interactions, " << pairs
              << " pairs\n";
}

// Stopped by a limit or by a signal, in the solve or in what follows.
TEST_F(orient_test, an_early_end_leaves_whole_tables) {
    generate(
        {"proteins=2000", "directed=500", "undirected=4000", "test=500", "pairs=4000", "noise=0.6", "max_distance=8"});
    checked_tables checked;
    EXPECT_EQ(orient({"in/", "out/", "--time-limit", "0.5s", "--regret-time", "0.5s"}).exit_status, 0);
    EXPECT_NE(read("stdout").find("Solution status = Feasible\n"), std::string::npos);
    expect_whole_tables("out", checked);
    EXPECT_GT(checked.explained, 1000);
    EXPECT_GT(checked.unproven, 0);
    const std::vector<std::string> limits[] = {{}, {"--time-limit", "0.5s"}};
    for (std::vector<std::string> arguments : limits) {
        std::filesystem::remove_all(folder / "out");
        arguments.insert(arguments.begin(), {"orient", "in/", "out/"});
        const pid_t process = start_program(arguments, tools_program());
        for (int i = 0; i < 1200 && !exists("out/shortest.lp"); ++i) {
            std::this_thread::sleep_for(50ms);
        }
        std::this_thread::sleep_for(2s);
        EXPECT_FALSE(exists("out/interactions.tsv"));
        const auto sent = std::chrono::steady_clock::now();
        kill(process, SIGTERM);
        const program_result result = finish_program(process);
        EXPECT_LT(std::chrono::steady_clock::now() - sent, 20s);
        EXPECT_EQ(std::pair(result.exit_status, result.err), std::pair(0, std::string()));
        expect_whole_tables("out", checked);
    }
}

TEST_F(orient_test, what_cannot_be_used_costs_one_line_and_leaves_no_old_table) {
    write_every_status();
    const auto expect_refused = [&](const program_result& result, int status, const std::string& told) {
        EXPECT_EQ(result.exit_status, status);
        EXPECT_EQ(result.err, told);
    };
    expect_refused(orient({"none/", "out/"}), 2, "netorient-tools: none/: there is no such folder\n");
    write("file", "");
    expect_refused(orient({"in/", "file/"}), 2, "netorient-tools: file/: cannot be made: File exists\n");
    EXPECT_EQ(orient({"in/", "out/", "--time-limit", "3"}).exit_status, 1);
    EXPECT_EQ(orient({"in/"}).exit_status, 1);

    // Only "test" may be missing. An old table does not outlive the run that fails.
    std::filesystem::remove(folder / "in/test");
    EXPECT_EQ(orient({"in/", "out/"}).exit_status, 0);
    EXPECT_NE(read("out/run.json").find("\"sha256\": null"), std::string::npos);
    std::filesystem::remove(folder / "out/pairs.tsv");
    std::filesystem::create_directories(folder / "out/pairs.tsv/in_the_way");
    const program_result blocked = orient({"in/", "out/"});
    EXPECT_EQ(blocked.exit_status, 2);
    EXPECT_EQ(blocked.err, "netorient-tools: out/pairs.tsv could not be written: Is a directory\n");
    EXPECT_FALSE(exists("out/run.json"));
    std::filesystem::remove(folder / "in/ko");
    expect_refused(orient({"in/", "out/"}), 2, "netorient-tools: in/ko: cannot be read\n");
    EXPECT_EQ(std::count(blocked.err.begin(), blocked.err.end(), '\n'), 1);
}
