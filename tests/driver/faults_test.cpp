// Disks without room, memory that ends, files of an earlier run: the real program tells
// of it, and leaves nothing that misleads.
#include <algorithm>

#include "support/program.hpp"

namespace {

const std::string files[] = {"initial_graph.txt", "shortest.lp", "solution_graph.txt"};
const std::string solved = "Solution status = Optimal\nSolution value  = 88\ncplex solver finished\n";

class faults_test : public program_test {
 protected:
    void SetUp() override {
        std::filesystem::copy(EXAMPLE_FOLDER, folder / "in");
        write("out/keep", "");
    }

    // With limits and what else the shell can set.
    program_result run_under(const std::string& settings) const {
        return run_program({"-c", settings + "; exec " + program_path() + " in/ out/"}, "/bin/sh");
    }
};

}  // namespace

TEST_F(faults_test, tells_of_files_that_the_disk_has_no_room_for) {
    for (const std::string& full : files) {
        std::filesystem::remove_all(folder / "out");
        write("out/keep", "");
        std::filesystem::create_symlink("/dev/full", folder / "out" / full);
        const program_result result = run_program({"in/", "out/"});
        const std::string told = "ERROR: file out/" + full + " could not be completed: No space left on device\n";
        EXPECT_EQ(result.out, full == "solution_graph.txt" ? solved + told : told + solved);
        EXPECT_EQ(std::pair(result.exit_status, result.err), std::pair(0, std::string()));
        for (const std::string& other : files) {
            EXPECT_TRUE(other == full || std::filesystem::file_size(folder / "out" / other) > 3000) << other;
        }
    }
    // A limit on the size of files ends no program either.
    const program_result result = run_under("ulimit -f 4");
    EXPECT_EQ(std::count(result.out.begin(), result.out.end(), '\n'), 6);
    EXPECT_NE(result.out.find("ERROR: file out/shortest.lp could not be completed: File too large\n"),
              std::string::npos);
    EXPECT_EQ(result.exit_status, 0);
}

TEST_F(faults_test, leaves_no_answer_of_an_earlier_run) {
    write("out/solution_graph.txt", "old");
    write("elsewhere", "old");
    EXPECT_EQ(run_program({"in/", "out/"}, FAILING_PROGRAM).signal, SIGABRT);
    EXPECT_TRUE(exists("out/shortest.lp"));
    EXPECT_FALSE(exists("out/solution_graph.txt"));

    std::filesystem::create_symlink("../elsewhere", folder / "out/solution_graph.txt");
    EXPECT_EQ(run_program({"in/", "out/"}, FAILING_PROGRAM).signal, SIGABRT);
    EXPECT_FALSE(exists("elsewhere"));
    EXPECT_EQ(run_program({"in/", "out/"}).out, solved);
    EXPECT_TRUE(read("elsewhere").ends_with("\n}\n"));  // the link still leads there
}

#ifndef __SANITIZE_ADDRESS__  // which takes all the addresses that there are
TEST_F(faults_test, says_that_memory_is_out_and_keeps_what_it_has_said) {
    run_program({"in/", "proteins=2000", "directed=500", "undirected=4000", "test=500", "pairs=3000"},
                NETORIENT_GENERATE);
    write("in/directed", read("in/directed") + "NOBODY P0000 1\n");
    const std::string message = "ERROR: protein NOBODY not found in the list (in file = 1)\n";
    int before_the_solve = 0;
    int in_the_solve = 0;
    bool is_solved = false;
    for (int megabytes = 10; !is_solved && megabytes < 1000; megabytes += std::max(1, megabytes / 12)) {
        for (const std::string& file : files) {
            std::filesystem::remove(folder / "out" / file);
        }
        const program_result result = run_under("ulimit -c 0; ulimit -v " + std::to_string(1024 * megabytes));
        if (result.out.empty()) {
            EXPECT_LT(megabytes, 32);  // no room for the libraries and what is set up before anything runs
        } else if (result.exit_status == 0) {
            is_solved = true;
            EXPECT_TRUE(result.out.starts_with(message + "Solution status = Optimal\n"));
            EXPECT_TRUE(read("out/solution_graph.txt").ends_with("\n}\n"));
        } else {
            std::string out = result.out;
            if (out.starts_with(message)) {
                out.erase(0, message.size());
            } else {
                EXPECT_FALSE(exists("out/initial_graph.txt"));  // it was never read as far as that
            }
            ++(out.ends_with("\nFailed to optimize LP\n") ? in_the_solve : before_the_solve);
            EXPECT_TRUE(out == "ERROR: out of memory\n" || out == "ERROR: out of memory\nFailed to optimize LP\n")
                << megabytes << " MB: " << result.out;
            EXPECT_EQ(result.signal, SIGABRT);
            EXPECT_FALSE(exists("out/solution_graph.txt"));
        }
    }
    EXPECT_GT(before_the_solve, 0);
    EXPECT_GT(in_the_solve, 0);
    EXPECT_TRUE(is_solved);
}
#endif
