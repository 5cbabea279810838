// netorient-tools evaluate as a program.
#include <chrono>
#include <csignal>
#include <thread>

#include <nlohmann/json.hpp>

#include "support/program.hpp"
#include "tables/read_table.hpp"

namespace {

class evaluate_test : public program_test {
 protected:
    program_result evaluate(std::vector<std::string> arguments) const {
        arguments.insert(arguments.begin(), {"evaluate", "in/", "out/"});
        return run_program(std::move(arguments), tools_program());
    }

    // Without what differs from run to run.
    nlohmann::json record() const {
        nlohmann::json made = nlohmann::json::parse(read("out/evaluation.json"));
        for (const char* key : {"started", "duration_seconds", "arguments"}) {
            made.erase(key);
        }
        return made;
    }

    // The table recounted.
    void expect_counts() const {
        const table rows = read_table(folder / "out/evaluation.tsv");
        long oriented = 0;
        long right = 0;
        for (const auto& row : rows.rows) {
            const std::string found = row.at(rows.column("found"));
            const std::string verdict = row.at(rows.column("right"));
            EXPECT_EQ(verdict, found == "none" ? "" : found == "first_to_second" ? "yes" : "no");
            oriented += verdict.empty() ? 0 : 1;
            right += verdict == "yes" ? 1 : 0;
        }
        const nlohmann::json made = record();
        EXPECT_EQ(made["hidden"], rows.rows.size());
        EXPECT_EQ(made["all"]["oriented"], oriented);
        EXPECT_EQ(made["all"]["right"], right);
        long in_classes = 0;
        for (const auto& line : made["classes"]) {
            in_classes += line["oriented"].get<long>();
        }
        EXPECT_EQ(in_classes, oriented);
    }
};

}  // namespace

// The lines of the tables are those of the files as they are, whatever was hidden.
TEST_F(evaluate_test, hides_all_known_directions_at_once) {
    std::filesystem::copy(EXAMPLE_FOLDER, folder / "in");
    const program_result result = evaluate({});
    EXPECT_EQ(std::pair(result.exit_status, result.err), std::pair(0, std::string()));
    EXPECT_TRUE(result.out.starts_with("Known directions: 75, all known directions hidden at once. Hidden: 75, given"))
        << result.out;
    expect_counts();
    const table rows = read_table(folder / "out/all_hidden/interactions.tsv");
    for (const auto& row : rows.rows) {
        std::istringstream text(read("in/" + row.at(2)));
        std::string line;
        for (int i = std::stoi(row.at(3)); i > 0; --i) {
            std::getline(text, line);
        }
        EXPECT_TRUE(line.starts_with(row.at(0) + " " + row.at(1) + " ")) << line;
        EXPECT_NE(row.at(5), "known");
    }
}

TEST_F(evaluate_test, gives_the_same_for_any_number_of_processes) {
    run_program({"in/", "proteins=120", "directed=60", "undirected=150", "test=30", "pairs=80", "noise=0.3"},
                NETORIENT_GENERATE);
    const program_result one = evaluate({"--hide", "folds", "--folds", "4", "--seed", "3", "--jobs", "1"});
    EXPECT_EQ(std::pair(one.exit_status, one.err), std::pair(0, std::string()));
    expect_counts();
    const std::string table_of_one = read("out/evaluation.tsv");
    const nlohmann::json record_of_one = record();
    EXPECT_EQ(record_of_one["runs"].size(), 4u);
    const program_result three = evaluate({"--hide", "folds", "--folds", "4", "--seed", "3", "--jobs", "3"});
    EXPECT_EQ(three.out, one.out);
    EXPECT_TRUE(read("out/evaluation.tsv") == table_of_one);
    EXPECT_EQ(record(), record_of_one);
    evaluate({"--hide", "folds", "--folds", "4", "--seed", "4", "--no-regret"});
    EXPECT_FALSE(read("out/evaluation.tsv") == table_of_one);
}

// "given" is the run of orient: the same tables, and what the readers say.
TEST_F(evaluate_test, judges_the_test_interactions_as_given) {
    std::filesystem::copy(EXAMPLE_FOLDER, folder / "in");
    write("in/ko", read("in/ko") + "NOBODY HOG1 1\n");
    const program_result result = evaluate({"--hide", "given"});
    EXPECT_EQ(result.err, "ERROR : a knouckout pair with unrecognized proteins: NOBODYkoHOG1\n");
    expect_counts();
    EXPECT_EQ(record()["all"]["right"], 16);
    run_program({"orient", "in/", "oriented/"}, tools_program());
    for (const std::string file : {"interactions.tsv", "pairs.tsv", "solution_graph.txt", "shortest.lp"}) {
        EXPECT_TRUE(read("out/" + file) == read("oriented/" + file)) << file;
    }
    EXPECT_EQ(evaluate({"--hide", "some"}).exit_status, 1);
    write("in/test", "");
    EXPECT_TRUE(evaluate({"--hide", "given"}).out.ends_with("No direction was hidden, so nothing can be said.\n"));
}

// The folds that were begun end with what they have; the others are left out, and it is said.
TEST_F(evaluate_test, an_early_end_tells_of_the_folds_that_were_run) {
    run_program({"in/", "proteins=2000", "directed=500", "undirected=4000", "test=500", "pairs=4000", "noise=0.6",
                 "max_distance=8"},
                NETORIENT_GENERATE);
    const pid_t process =
        start_program({"evaluate", "in/", "out/", "--hide", "folds", "--folds", "5", "--jobs", "2"}, tools_program());
    std::this_thread::sleep_for(std::chrono::seconds(4));
    kill(process, SIGTERM);
    const program_result result = finish_program(process);
    EXPECT_EQ(std::pair(result.exit_status, result.err), std::pair(0, std::string()));
    int runs = 5;
    int hidden = 0;
    const std::size_t found = result.out.find("hidden in 5 folds");
    ASSERT_NE(found, std::string::npos) << result.out;
    std::sscanf(result.out.c_str() + found, "hidden in 5 folds, of which %d were run. Hidden: %d,", &runs, &hidden);
    EXPECT_LT(runs, 5) << result.out;
    EXPECT_EQ(hidden, 200 * runs) << result.out;
    expect_counts();
}
