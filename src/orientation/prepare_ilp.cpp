#include "orientation/prepare_ilp.hpp"

#include <iostream>

#include <boost/graph/reverse_graph.hpp>
#include <boost/range/iterator_range.hpp>

#include "orientation/compressed_marking.hpp"
#include "orientation/flow_constraints.hpp"
#include "orientation/stepwise_marking.hpp"

namespace {

// Makes comp_graph the reverse of bi_graph; its vertices stay as they are.
void reverse_into_comp_graph(IsoMap isoMap) {
    auto [arc, arcs_end] = boost::edges(comp_graph);
    while (arc != arcs_end) {
        boost::remove_edge(*arc++, comp_graph);
    }

    const auto comp_graph2 = boost::make_reverse_graph(bi_graph);
    for (const auto& reversed_arc : boost::make_iterator_range(boost::edges(comp_graph2))) {
        const vertex_descriptor tail = isoMap[boost::source(reversed_arc, comp_graph2)];
        const vertex_descriptor head = isoMap[boost::target(reversed_arc, comp_graph2)];
        if (!boost::add_edge(tail, head, comp_graph).second) {
            std::cout << "ERROR: edge was not created for comp_graph\n";
        }
    }
}

void add_sources_by_compressed_search(IloModel model) {
    compressed_marking marking;
    for (const auto& [pair_source, source_targets] : sources) {
        add_flow_constraints(model, pair_source, source_targets, marking.mark(pair_source, source_targets));
    }
    marking.add_counts();
}

void add_sources_step_by_step(IloModel model, IsoMap isoMap) {
    for (const auto& [pair_source, source_targets] : sources) {
        add_flow_constraints(model, pair_source, source_targets,
                             mark_stepwise(pair_source, source_targets, false, isoMap));
    }
}

}  // namespace

bool prepare_ilp(IloModel model, bool allow_one_edge_path, IsoMap isoMap) {
    const std::size_t earlier_pairs = pairs.size();
    reverse_into_comp_graph(isoMap);
    if (allow_one_edge_path) {
        // Without a source there may be no numbers either: a name table that
        // overflows ends the loading before they are given.
        if (!sources.empty()) {
            add_sources_by_compressed_search(model);
        }
    } else {
        add_sources_step_by_step(model, isoMap);
    }
    num_of_pairs = static_cast<int>(pairs.size() - earlier_pairs);
    model.add(objective);
    return true;
}
