// Planted networks, and the program on networks whose optimum their making tells.
#include <algorithm>

#include "support/program.hpp"

namespace {

long num_of_lines(const std::string& text) {
    return std::count(text.begin(), text.end(), '\n');
}

}  // namespace

// Without noise every pair is drawn from the shortest paths of one orientation, so
// that orientation satisfies them all.
TEST_F(program_test, planted_network_without_noise_is_satisfied_whole) {
    for (const char* kind : {"preferential=1", "preferential=0"}) {
        const std::vector<std::string> network = {
            "proteins=200", "directed=100", "undirected=300", "test=50", "pairs=400", "noise=0", kind};
        std::vector<std::string> arguments = {"in/"};
        arguments.insert(arguments.end(), network.begin(), network.end());
        ASSERT_EQ(run_program(arguments, NETORIENT_GENERATE).exit_status, 0);
        EXPECT_EQ(num_of_lines(read("in/names.txt")), 200);
        EXPECT_EQ(num_of_lines(read("in/directed")), 100);
        EXPECT_EQ(num_of_lines(read("in/undirected")), 300);
        EXPECT_EQ(num_of_lines(read("in/test")), 50);
        ASSERT_EQ(num_of_lines(read("in/ko")), 400);

        write("out/keep", "");
        const program_result result = run_program({"in/", "out/"});
        EXPECT_EQ(result.out, "Solution status = Optimal\nSolution value  = 400\ncplex solver finished\n");
    }
}

TEST_F(program_test, seed_decides_every_byte) {
    ASSERT_EQ(run_program({"one/", "seed=7"}, NETORIENT_GENERATE).exit_status, 0);
    ASSERT_EQ(run_program({"again/", "seed=7"}, NETORIENT_GENERATE).exit_status, 0);
    ASSERT_EQ(run_program({"other/", "seed=8"}, NETORIENT_GENERATE).exit_status, 0);
    for (const std::string file : {"names.txt", "directed", "undirected", "test", "ko"}) {
        EXPECT_EQ(read("one/" + file), read("again/" + file));
        EXPECT_EQ(read("one/" + file) == read("other/" + file), file == "names.txt");
    }
}
