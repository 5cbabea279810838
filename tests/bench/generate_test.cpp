// Planted networks, and the program on networks whose optimum their making tells.
#include <algorithm>

#include "support/program.hpp"

// Without noise every pair is drawn from the shortest paths of one orientation, so
// that orientation satisfies them all.
TEST_F(program_test, planted_network_without_noise_is_satisfied_whole) {
    const std::pair<const char*, int> files[] = {
        {"names.txt", 200}, {"directed", 100}, {"undirected", 300}, {"test", 50}, {"ko", 400}};
    for (const char* kind : {"preferential=1", "preferential=0"}) {
        run_program({"in/", "proteins=200", "directed=100", "undirected=300", "test=50", "pairs=400", "noise=0", kind},
                    NETORIENT_GENERATE);
        for (const auto& [file, num_of_lines] : files) {
            const std::string text = read(std::string("in/") + file);
            ASSERT_EQ(std::count(text.begin(), text.end(), '\n'), num_of_lines) << file;
        }
        const program_result result = run_program({"in/", "in/"});
        EXPECT_EQ(result.out, "Solution status = Optimal\nSolution value  = 400\ncplex solver finished\n");
    }
}

// Over the network of another input, and in layers. Without noise the optimum is known again.
TEST_F(program_test, pairs_are_planted_on_a_given_network_and_across_layers) {
    run_program({"base/", "proteins=150", "directed=60", "undirected=250", "test=40", "pairs=10"}, NETORIENT_GENERATE);
    run_program({"over/", "network=base/", "pairs=300", "noise=0"}, NETORIENT_GENERATE);
    for (const std::string file : {"names.txt", "directed", "test"}) {
        EXPECT_EQ(read("over/" + file), read("base/" + file));
    }
    run_program({"layers/", "proteins=60", "layers=6", "links=7", "directed=20", "test=5", "pairs=20",
                 "pairs_per_source=3", "noise=0"},
                NETORIENT_GENERATE);
    for (const auto& [made, num_pairs] : {std::pair("over/", 300), std::pair("layers/", 20)}) {
        const std::string pairs = read(made + std::string("ko"));
        ASSERT_EQ(std::count(pairs.begin(), pairs.end(), '\n'), num_pairs) << made;
        EXPECT_EQ(run_program({made, made}).out, "Solution status = Optimal\nSolution value  = " +
                                                     std::to_string(num_pairs) + "\ncplex solver finished\n");
    }
}

TEST_F(program_test, seed_decides_every_byte) {
    for (const std::string seed : {"7", "8", "again 7"}) {
        run_program({seed + "/", "seed=" + seed.substr(seed.size() - 1)}, NETORIENT_GENERATE);
    }
    for (const std::string file : {"/directed", "/undirected", "/test", "/ko"}) {
        EXPECT_EQ(read("7" + file), read("again 7" + file));
        EXPECT_NE(read("7" + file), read("8" + file));
    }
}
