// The compressed search and the rows made from its lists, against the step-by-step
// search and rows made from the marked-arc view of the whole network.

#include <sstream>

#include <boost/range/iterator_range.hpp>

#include "network_fixture.hpp"
#include "orientation/stepwise_marking.hpp"
#include "solver/lp_file.hpp"

namespace {

// Also says of every pair variable its name and its pair's distance.
std::vector<std::string> add_rows_plainly(IloModel model, vertex_descriptor pair_source, const targets& source_targets,
                                          const std::vector<int>& target_distances) {
    std::vector<std::string> pair_texts;
    for (const auto& arc : boost::make_iterator_range(boost::edges(in_shortest_filtered))) {
        const IloNumVar flow2_variable(env, 0.0, 1.0, IloNumVar::Float);
        boost::put(flows_map, arc, flow2_variable);
        model.add(flow2_variable <= 1 * boost::get(vars_map, arc));
    }
    for (const auto vertex : boost::make_iterator_range(boost::vertices(in_shortest_filtered))) {
        IloExpr sum_in_flow2(env, 0.0);
        bool any_in = false;
        for (const auto& arc : boost::make_iterator_range(boost::in_edges(vertex, in_shortest_filtered))) {
            sum_in_flow2 += boost::get(flows_map, arc);
            any_in = true;
        }
        if (!any_in) {
            continue;
        }
        for (const auto& arc : boost::make_iterator_range(boost::out_edges(vertex, in_shortest_filtered))) {
            model.add(boost::get(flows_map, arc) <= sum_in_flow2);
        }
        const std::string name = "s_" + boost::get(names_map, pair_source) + "_" + boost::get(names_map, vertex);
        for (std::size_t i = 0; i < source_targets.size(); ++i) {
            if (source_targets[i] == vertex) {
                model.add(IloNumVar(objective(), 0.0, 1.0, IloNumVar::Float, name.c_str()) <= sum_in_flow2);
                pair_texts.push_back(name + " " + std::to_string(target_distances[i]));
            }
        }
    }
    return pair_texts;
}

std::string lp_of(IloModel model) {
    std::ostringstream text;
    solver::write_lp(IloCplex(model).record(), text);
    return text.str();
}

}  // namespace

TEST_F(network_test, compressed_search_equals_plain_search) {
    std::size_t flow_rows_seen = 0;
    for (unsigned seed = 0; seed < 400; ++seed) {
        const int num_proteins = 3 + static_cast<int>(seed % 24);
        const std::string network =
            draw(seed, num_proteins, num_proteins * (1 + static_cast<int>(seed % 4)), seed % 5 * 0.25, true);
        SCOPED_TRACE(network);
        make(network);
        prepare(true);
        const std::string lp = lp_of(model);
        const std::string marks = marked();
        const std::string counts = counted();
        std::vector<std::string> pair_texts;
        for (const pair_data& pair : pairs) {
            pair_texts.push_back(std::string(pair.pair_var.getName()).append(" ") +
                                 std::to_string(pair.shortest_distance));
        }
        EXPECT_EQ(num_of_pairs, static_cast<int>(pairs.size()));
        flow_rows_seen += flow_rows().size();

        make(network);
        source_map network_sources;
        network_sources.swap(sources);
        prepare(true);  // without sources: makes no row
        reverse_into_comp_graph(isoMap);
        std::vector<std::string> plain_pair_texts;
        for (const auto& [pair_source, source_targets] : network_sources) {
            const source_marks plain = mark_stepwise(pair_source, source_targets, true, isoMap);
            const auto texts = add_rows_plainly(model, pair_source, source_targets, plain.target_distances);
            plain_pair_texts.insert(plain_pair_texts.end(), texts.begin(), texts.end());
        }
        EXPECT_EQ(pair_texts, plain_pair_texts);
        EXPECT_EQ(marks, marked());
        EXPECT_EQ(counts, counted());
        ASSERT_EQ(lp, lp_of(model));
    }
    EXPECT_GT(flow_rows_seen, 10000U) << "the networks are too thin to tell";
}
