// What the model says: random tiny networks against every orientation that they have.
#include <algorithm>
#include <set>

#include <boost/range/iterator_range.hpp>

#include "network_fixture.hpp"

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

// The best of all orientations of the contested interactions.
int best_orientation(const arc_set& directed, const std::vector<arc_set::value_type>& contested,
                     const arc_set& network) {
    int best = 0;
    for (unsigned choice = 0; choice < 1U << contested.size(); ++choice) {
        arc_set chosen = directed;
        for (std::size_t i = 0; i < contested.size(); ++i) {
            const auto& [one, other] = contested[i];
            chosen.insert((choice >> i & 1U) != 0 ? std::pair(one, other) : std::pair(other, one));
        }
        best = std::max(best, satisfied_pairs(chosen, network));
    }
    return best;
}

}  // namespace

TEST_F(network_test, optimum_is_that_of_the_best_orientation) {
    int contradicted_pairs = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        const std::string words = draw(1000 + seed, 4 + static_cast<int>(seed % 4), 9, seed % 3 * 0.2, false);
        SCOPED_TRACE(words);
        make(words);
        prepare(true);

        arc_set network;
        arc_set directed;
        std::vector<arc_set::value_type> contested;
        for (const auto& arc : boost::make_iterator_range(boost::edges(bi_graph))) {
            const auto ends = std::pair(boost::source(arc, bi_graph), boost::target(arc, bi_graph));
            network.insert(ends);
            if (boost::get(directions_map, arc) == 1) {
                directed.insert(ends);
            } else if (!network.contains(std::pair(ends.second, ends.first))) {
                contested.push_back(ends);
            }
        }
        const int best = best_orientation(directed, contested, network);
        contradicted_pairs += num_of_pairs - best;

        IloCplex cplex(model);
        cplex.setParam(IloCplex::EpGap, 0.0);
        ASSERT_TRUE(cplex.solve());
        EXPECT_EQ(cplex.getStatus(), IloAlgorithm::Optimal);
        EXPECT_EQ(cplex.getObjValue(), best);

        arc_set chosen;
        for (const auto& arc : boost::make_iterator_range(boost::edges(bi_graph))) {
            if (cplex.getValue(boost::get(vars_map, arc)) == 1.0) {
                chosen.insert({boost::source(arc, bi_graph), boost::target(arc, bi_graph)});
            }
        }
        for (const auto& [one, other] : contested) {
            EXPECT_FALSE(chosen.contains({one, other}) && chosen.contains({other, one}));
        }
        EXPECT_EQ(satisfied_pairs(chosen, network), best);
    }
    EXPECT_GT(contradicted_pairs, 100) << "the networks hold too few conflicts to tell";
}
