// What the model says: random tiny networks against every orientation that they have.
#include <algorithm>
#include <set>

#include "support/network.hpp"

namespace {

using arc_set = std::set<std::pair<vertex_descriptor, vertex_descriptor>>;

// Arcs on a shortest way from `start` to `end` over the given arcs alone; -1 = none.
int distance(const arc_set& arcs, vertex_descriptor start, vertex_descriptor end) {
    std::set<vertex_descriptor> before;
    std::set<vertex_descriptor> reached = {start};
    for (int walked = 0; reached.size() > before.size(); ++walked) {
        if (reached.contains(end)) {
            return walked;
        }
        before = reached;
        for (const auto& [tail, head] : arcs) {
            reached.insert(before.contains(tail) ? head : start);
        }
    }
    return -1;
}

// Knockout pairs whose effect the chosen arcs reach as fast as the network does.
int satisfied_pairs(const arc_set& chosen, const arc_set& network) {
    int satisfied = 0;
    for (const auto& [cause, effects] : sources) {
        for (const vertex_descriptor effect : effects) {
            const int shortest = distance(network, cause, effect);
            satisfied += shortest > 0 && distance(chosen, cause, effect) == shortest;
        }
    }
    return satisfied;
}

}  // namespace

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

        arc_set network;
        arc_set directed;
        arc_set chosen;
        std::vector<arc_set::value_type> contested;
        for (const auto& arc : boost::make_iterator_range(boost::edges(bi_graph))) {
            const arc_set::value_type ends(boost::source(arc, bi_graph), boost::target(arc, bi_graph));
            const arc_set::value_type back(ends.second, ends.first);
            if (boost::get(directions_map, arc) == 1) {
                directed.insert(ends);
            } else if (!network.contains(back)) {
                contested.push_back(ends);
            }
            network.insert(ends);
            if (cplex.getValue(boost::get(vars_map, arc)) == 1.0) {
                EXPECT_TRUE(directed.contains(ends) || !chosen.contains(back));
                chosen.insert(ends);
            }
        }
        int best = 0;
        for (unsigned choice = 0; choice < 1U << contested.size(); ++choice) {
            arc_set oriented = directed;
            for (std::size_t i = 0; i < contested.size(); ++i) {
                const auto& [one, other] = contested[i];
                oriented.insert((choice >> i & 1U) != 0 ? contested[i] : std::pair(other, one));
            }
            best = std::max(best, satisfied_pairs(oriented, network));
        }
        EXPECT_EQ(cplex.getObjValue(), best);
        EXPECT_EQ(satisfied_pairs(chosen, network), best);
        contradicted_pairs += num_of_pairs - best;
    }
    EXPECT_GT(contradicted_pairs, 100) << "the networks hold too few conflicts to tell";
}
