#include "orientation/stepwise_marking.hpp"

#include <iostream>

#include <boost/graph/breadth_first_search.hpp>
#include <boost/graph/reverse_graph.hpp>
#include <boost/range/iterator_range.hpp>

namespace {

// Arcs from `start` to every vertex, by vertex_index; 0 for the start and for what
// it does not reach. Leaves the distance property 0, as every search expects it.
std::vector<int> distances_from(vertex_descriptor start, const bidirected_basic_graph& graph,
                                property_accessor<boost::vertex_distance_t> distance) {
    boost::breadth_first_search(
        graph, start,
        boost::visitor(boost::make_bfs_visitor(boost::record_distances(distance, boost::on_tree_edge()))));

    std::vector<int> distances(boost::num_vertices(graph), 0);
    for (const vertex_descriptor vertex : boost::make_iterator_range(boost::vertices(graph))) {
        distances[boost::get(vertex_myindex_map, vertex)] = boost::get(distance, vertex);
        boost::put(distance, vertex, 0);
    }
    return distances;
}

}  // namespace

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

source_marks mark_stepwise(vertex_descriptor pair_source, const targets& source_targets, bool allow_one_edge_path,
                           IsoMap isoMap) {
    const auto arcs = boost::make_iterator_range(boost::edges(bi_graph));
    for (const edge_descriptor& arc : arcs) {
        boost::put(in_shortest_map, arc, false);
    }

    const std::vector<int> d = distances_from(pair_source, bi_graph, distances_map);
    for (auto target = source_targets.rbegin(); target != source_targets.rend(); ++target) {
        const vertex_descriptor curr_target_in_bi_graph = *target;
        const vertex_descriptor curr_target = isoMap[curr_target_in_bi_graph];
        if (d[boost::get(vertex_myindex_map, curr_target_in_bi_graph)] <= 0) {
            continue;
        }

        if (!allow_one_edge_path) {
            boost::remove_edge(curr_target, isoMap[pair_source], comp_graph);
        }
        const std::vector<int> comp_d = distances_from(curr_target, comp_graph, comp_distances_map);
        const int minimum_distance_per_pair = comp_d[boost::get(vertex_myindex_map, pair_source)];

        if (allow_one_edge_path || minimum_distance_per_pair > 1) {
            for (const edge_descriptor& arc : arcs) {
                const vertex_descriptor edge_source = boost::source(arc, bi_graph);
                const vertex_descriptor edge_target = boost::target(arc, bi_graph);
                const int distance_from_source = d[boost::get(vertex_myindex_map, edge_source)];
                const int distance_from_target = comp_d[boost::get(vertex_comp_myindex_map, isoMap[edge_target])];
                if (distance_from_source + 1 + distance_from_target == minimum_distance_per_pair &&
                    (edge_source == pair_source || distance_from_source > 0) &&
                    (edge_target == curr_target_in_bi_graph || distance_from_target > 0)) {
                    boost::put(in_shortest_map, arc, true);
                    boost::put(shortest_paths_counter_map, arc, boost::get(shortest_paths_counter_map, arc) + 1);
                }
            }
        }

        // Not an undoing of the removal: one arc comes back for several parallel
        // ones, and one comes where there was none. Later pairs see it.
        if (!allow_one_edge_path) {
            boost::add_edge(curr_target, isoMap[pair_source], comp_graph);
        }
    }

    source_marks marks;
    for (const edge_descriptor& arc : arcs) {
        if (boost::get(in_shortest_map, arc)) {
            marks.arcs.push_back(arc);
        }
    }
    for (const vertex_descriptor target : source_targets) {
        marks.target_distances.push_back(d[boost::get(vertex_myindex_map, target)]);
    }
    return marks;
}
