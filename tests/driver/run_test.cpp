// The real program, in a private folder: what it prints, leaves and returns.
#include <csignal>

#include <algorithm>

#include "support/program.hpp"

namespace {

const std::string usage =
    "Invalid arguments for preprocessing. needed 2 arguments: Input directory and output directory\n";

std::string solved(const std::string& value) {
    return "Solution status = Optimal\nSolution value  = " + value + "\ncplex solver finished\n";
}

class run_test : public program_test {
 protected:
    // Of A->D, A->C and C->A, at most two can be explained, and only by A->B->C->D.
    void write_chain(const std::string& input = "in/") const {
        write(input + "names.txt", "A\nB\nC\nD\n");
        write(input + "test", "A B 0.9\n");
        write(input + "directed", "C D 0.7\nC X 0.7\n");
        write(input + "undirected", "B C 0.5\n");
        write(input + "ko", "A D 1\nA C 1\nC A 1\nD A 1\n");
        std::filesystem::create_directory(folder / "out");
    }
};

const std::string chain_messages = "ERROR: protein X not found in the list (in file = 1)\n";
const std::string chain_vertices = "digraph G {\n0[label=A];\n1[label=B];\n2[label=C];\n3[label=D];\n4[label=\"\"];\n";

}  // namespace

TEST_F(run_test, wants_two_arguments) {
    const std::vector<std::string> counts[] = {{}, {"in/"}, {"a", "b", "c"}};
    for (const std::vector<std::string>& arguments : counts) {
        const program_result result = run_program(arguments);
        EXPECT_EQ(result.exit_status, 1);
        EXPECT_EQ(result.out, usage);
        EXPECT_EQ(result.err, "");
    }
    EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder), {}), 2);  // the two streams
}

TEST_F(run_test, solves_and_draws) {
    write_chain();
    write("out/solution_graph.txt", std::string(5000, 'x'));
    const program_result result = run_program({"in/", "out/"});
    EXPECT_EQ(result.exit_status, 0);
    EXPECT_EQ(result.out, chain_messages + solved("2"));
    EXPECT_EQ(result.err, "");
    const std::string edges = "2->3 ;\n1->2 ;\n2->1 ;\n}\n";
    EXPECT_EQ(read("out/initial_graph.txt"), chain_vertices + "0->1 [color=blue];\n1->0 [color=blue];\n" + edges);
    EXPECT_EQ(read("out/solution_graph.txt"), chain_vertices + "0->1 [color=blue];\n" + edges);
}

TEST_F(run_test, gives_the_same_bytes_twice_and_takes_its_arguments_as_prefixes_of_any_length) {
    const std::string deep = std::string(200, 'd').append("/").append(200, 'e').append("/");
    const std::pair<std::string, std::string> arguments[] = {
        {"in/", "out/"}, {"in.", "out"}, {deep, deep}, {"in/", "no/such/folder/"}};
    for (const auto& [input, output] : arguments) {
        write_chain(input);
        const program_result result = run_program({input, output});
        EXPECT_EQ(result.out, chain_messages + solved("2"));
        EXPECT_EQ(std::pair(result.exit_status, result.err), std::pair(0, std::string()));
        for (const char* file : {"initial_graph.txt", "shortest.lp", "solution_graph.txt"}) {
            EXPECT_EQ(exists(output + file), output != "no/such/folder/") << output << file;
            EXPECT_TRUE(!exists(output + file) || read(output + file) == read(std::string("out/") + file));
        }
    }
}

TEST_F(run_test, goes_on_without_input_files) {
    std::filesystem::create_directories(folder / "in/names.txt");
    std::filesystem::create_directories(folder / "in/ko");
    write("in/test", "A B 1\n");
    const program_result result = run_program({"in/", "in/"});
    EXPECT_EQ(result.exit_status, 0);
    EXPECT_EQ(result.out,
              "ERROR: protein A not found in the list \nERROR: protein B not found in the list \n"
              "ERROR: in file in/directed not opened\nERROR: in file in/undirected not opened\n"
              "ERROR: knockout file not opened\n" +
                  solved("0"));
    EXPECT_EQ(read("in/initial_graph.txt"), "digraph G {\n}\n");
    EXPECT_EQ(read("in/solution_graph.txt"), "digraph G {\n}\n");
}

TEST_F(run_test, holds_9999_names_with_a_last_line_feed_and_10000_without) {
    const std::tuple<int, bool, std::string, int> cases[] = {
        {9999, true, "", 10000},
        {9999, false, "ERROR : a knouckout pair with unrecognized proteins: p1koa9999\n", 9999},
        {10000, false, "", 10000},
        {10000, true, "current id exceeded MAX_PROTEIN_ID. MAX_PROTEIN_ID = 10000\n", 10001},
    };
    write("in/undirected", "");
    write("in/directed", "p1 p2 1\n");
    write("in/ko", "p1 a9999 1\n");
    for (const auto& [num_of_names, line_feed, messages, vertices] : cases) {
        std::string names;
        for (int i = 1; i <= num_of_names; ++i) {
            names.append(i == 9999 ? "a" : "p").append(std::to_string(i)).append("\n");
        }
        write("in/names.txt", names.substr(0, names.size() - (line_feed ? 0 : 1)));
        const program_result result = run_program({"in/", "in/"});
        EXPECT_EQ(result.exit_status, 0);
        EXPECT_EQ(result.out, messages + solved("0"));
        const std::string drawing = read("in/initial_graph.txt");
        EXPECT_EQ(std::count(drawing.begin(), drawing.end(), '['), vertices);
    }
}

TEST_F(run_test, ends_abnormally_without_a_solution) {
    write_chain();
    const program_result result = run_program({"in/", "out/"}, FAILING_PROGRAM);
    EXPECT_EQ(result.signal, SIGABRT);
    EXPECT_EQ(result.out, chain_messages + "nothing found, as meant\nFailed to optimize LP\n");
    EXPECT_TRUE(exists("out/initial_graph.txt"));
    EXPECT_TRUE(exists("out/shortest.lp"));
    EXPECT_FALSE(exists("out/solution_graph.txt"));
}
