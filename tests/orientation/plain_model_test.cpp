// The compressed search and the rows made from its lists, against the step-by-step
// search and rows made from the marked-arc view of the whole network.
#include <algorithm>

#include "orientation/stepwise_marking.hpp"
#include "support/network.hpp"

namespace {

void add_rows_plainly(IloModel model, vertex_descriptor pair_source, const targets& source_targets) {
    for (const auto& arc : boost::make_iterator_range(boost::edges(in_shortest_filtered))) {
        boost::put(flows_map, arc, IloNumVar(env, 0.0, 1.0, IloNumVar::Float));
        model.add(boost::get(flows_map, arc) <= 1 * boost::get(vars_map, arc));
    }
    for (const auto vertex : boost::make_iterator_range(boost::vertices(in_shortest_filtered))) {
        const auto entering = boost::make_iterator_range(boost::in_edges(vertex, in_shortest_filtered));
        if (entering.empty()) {
            continue;
        }
        IloExpr sum_in_flow2(env, 0.0);
        for (const auto& arc : entering) {
            sum_in_flow2 += boost::get(flows_map, arc);
        }
        for (const auto& arc : boost::make_iterator_range(boost::out_edges(vertex, in_shortest_filtered))) {
            model.add(boost::get(flows_map, arc) <= sum_in_flow2);
        }
        const std::string name = "s_" + boost::get(names_map, pair_source) + "_" + boost::get(names_map, vertex);
        for (auto repeats = std::count(source_targets.begin(), source_targets.end(), vertex); repeats > 0; --repeats) {
            model.add(IloNumVar(objective(), 0.0, 1.0, IloNumVar::Float, name.c_str()) <= sum_in_flow2);
        }
    }
}

}  // namespace

TEST_F(network_test, compressed_search_equals_plain_search) {
    std::size_t flow_rows_seen = 0;
    for (unsigned seed = 0; seed < 400; ++seed) {
        const int num_proteins = 3 + static_cast<int>(seed % 24);
        const std::string network =
            draw_words(seed, num_proteins, num_proteins * (2 + static_cast<int>(seed % 4)), seed % 5 * 25);
        SCOPED_TRACE(network);
        load_words(network);
        prepare(true);
        const std::string lp = lp_text(model);
        const std::string marks = marked();
        const std::string counts = counted();
        EXPECT_EQ(num_of_pairs, static_cast<int>(pairs.size()));
        flow_rows_seen += flow_rows().size();

        load_words(network);
        source_map network_sources;
        network_sources.swap(sources);
        prepare(true);  // without sources: makes no row
        reverse_into_comp_graph(isoMap);
        for (const auto& [pair_source, source_targets] : network_sources) {
            mark_stepwise(pair_source, source_targets, true, isoMap);
            add_rows_plainly(model, pair_source, source_targets);
        }
        EXPECT_EQ(marks, marked());
        EXPECT_EQ(counts, counted());
        ASSERT_EQ(lp, lp_text(model));
    }
    EXPECT_GT(flow_rows_seen, 10000U) << "the networks are too thin to tell";
}
