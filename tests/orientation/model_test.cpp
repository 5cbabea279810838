// What the model says: random tiny networks against every orientation that they have.
#include "support/every_orientation.hpp"
#include "support/network.hpp"

TEST_F(network_test, optimum_is_that_of_the_best_orientation) {
    int contradicted_pairs = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        const std::string words = draw_words(seed, 4 + static_cast<int>(seed % 4), 9, seed % 3 * 20);
        SCOPED_TRACE(words);
        load_words(words);
        prepare(true);
        IloCplex cplex(model);
        ASSERT_TRUE(cplex.solve());
        EXPECT_EQ(cplex.getStatus(), IloAlgorithm::Optimal);

        const plain_network network = read_plain_network();
        std::vector<char> chosen;
        for (const auto& arc : boost::make_iterator_range(boost::edges(bi_graph))) {
            chosen.push_back(cplex.getValue(boost::get(vars_map, arc)) == 1.0 ? 1 : 0);
        }
        for (const int arc : network.contested) {
            const int back = network.reverse[static_cast<std::size_t>(arc)];
            EXPECT_LE(chosen[static_cast<std::size_t>(arc)] + chosen[static_cast<std::size_t>(back)], 1);
        }
        const int best = best_by_enumeration(network);
        EXPECT_EQ(cplex.getObjValue(), best);
        EXPECT_EQ(satisfied_pairs(network, chosen), best);
        contradicted_pairs += num_of_pairs - best;
    }
    EXPECT_GT(contradicted_pairs, 100) << "the networks hold too few conflicts to tell";
}
