// What the model says: small models with their optimum and why, and random tiny
// networks against every orientation that they have.
#include <algorithm>
#include <set>

#include <boost/range/iterator_range.hpp>

#include "network_fixture.hpp"

namespace {

using arc_set = std::set<std::pair<vertex_descriptor, vertex_descriptor>>;

// Arcs on a shortest way from `start` to `end` over the given arcs alone; -1 = none.
int distance(const arc_set& arcs, vertex_descriptor start, vertex_descriptor end) {
    std::set<vertex_descriptor> reached = {start};
    for (int arcs_walked = 0;; ++arcs_walked) {
        if (reached.contains(end)) {
            return arcs_walked;
        }
        const std::set<vertex_descriptor> before = reached;
        for (const auto& [tail, head] : arcs) {
            if (before.contains(tail)) {
                reached.insert(head);
            }
        }
        if (reached.size() == before.size()) {
            return -1;
        }
    }
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

double optimum(IloModel model) {
    IloCplex cplex(model);
    cplex.setParam(IloCplex::EpGap, 0.0);
    EXPECT_TRUE(cplex.solve());
    EXPECT_EQ(cplex.getStatus(), IloAlgorithm::Optimal);
    return cplex.getObjValue();
}

}  // namespace

// s_a_c <= f(bc) <= o_b_c, s_d_b <= f(cb) <= o_c_b, o_b_c + o_c_b <= 1: one of the
// two; and the heavier one when it is listed twice.
TEST_F(network_test, OppositePairsExcludeEachOther) {
    make("ab dc b-c a:c d:b");
    prepare(true);
    EXPECT_EQ(optimum(model), 1.0);
    make("ab dc b-c a:c d:bb");
    prepare(true);
    EXPECT_EQ(optimum(model), 2.0);
}

// One arc into b, two out of it. Flow is not conserved: f(bc) and f(bd) may each be
// as large as f(ab), so both pairs are satisfied.
TEST_F(network_test, OneChainServesManyTargets) {
    make("a-b bc bd a:cd");
    prepare(true);
    EXPECT_EQ(optimum(model), 2.0);
}

// Two open paths to d: s_a_d <= f(bd) + f(cd) <= 2, and its own bound says 1.
TEST_F(network_test, APairCountsOnce) {
    make("ab ac bd cd a:d");
    prepare(true);
    EXPECT_EQ(optimum(model), 1.0);
}

// Pairs a-j, b-k, c-l and the interactions de, fg, hi. Each pair has one shortest path,
//   a d-e f-g j,   b e-d h-i k,   c i-h m n g-f l,
// and any two of them use one interaction in opposite directions: at most one pair
// is satisfied, where halves of all orientations would give 3/2.
TEST_F(network_test, PairwiseConflictsLeaveOne) {
    make("ad ef gj be dh ik ci hm mn ng fl d-e f-g h-i a:j b:k c:l");
    prepare(true);
    EXPECT_EQ(num_of_pairs, 3);
    EXPECT_EQ(optimum(model), 1.0);
}

TEST_F(network_test, OptimumIsThatOfTheBestOrientation) {
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
            } else if (std::find(contested.begin(), contested.end(), std::pair(ends.second, ends.first)) ==
                       contested.end()) {
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
