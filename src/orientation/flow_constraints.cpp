#include "orientation/flow_constraints.hpp"

#include <algorithm>

namespace {

// A marked arc seen from one of its ends. Sorted, the arcs of a vertex stand
// together and in arc order, which is the order of its in-arcs and out-arcs too.
struct arc_at_vertex {
    int vertex;  // vertex_index
    int arc;     // position among the marked arcs
    auto operator<=>(const arc_at_vertex&) const = default;
};

struct target_entry {
    int vertex;    // vertex_index
    int position;  // in the source's target list
    auto operator<=>(const target_entry&) const = default;
};

int index_of(vertex_descriptor vertex) {
    return boost::get(vertex_myindex_map, vertex);
}

void add_pair(IloModel model, vertex_descriptor pair_source, vertex_descriptor pair_target, int distance,
              const IloExpr& sum_in_flow2) {
    const std::string pair_name = "s_" + boost::get(names_map, pair_source) + "_" + boost::get(names_map, pair_target);
    const IloNumVar pair_var(objective(), 0.0, 1.0, IloNumVar::Float, pair_name.c_str());
    model.add(pair_var <= sum_in_flow2);

    pair_data pair_item;
    pair_item.pair_var = pair_var;
    pair_item.pair_source = pair_source;
    pair_item.pair_target = pair_target;
    pair_item.shortest_distance = distance;
    pairs.push_back(pair_item);
}

}  // namespace

void add_flow_constraints(IloModel model, vertex_descriptor pair_source, const targets& source_targets,
                          const source_marks& marks) {
    std::vector<IloNumVar> flow2;
    std::vector<arc_at_vertex> entering;
    std::vector<arc_at_vertex> leaving;
    for (const edge_descriptor& arc : marks.arcs) {
        const IloNumVar flow2_variable(env, 0.0, 1.0, IloNumVar::Float);
        var.add(flow2_variable);
        boost::put(flows_map, arc, flow2_variable);
        model.add(flow2_variable <= MAX_flow2 * boost::get(vars_map, arc));

        const int position = static_cast<int>(flow2.size());
        flow2.push_back(flow2_variable);
        entering.push_back({index_of(boost::target(arc, bi_graph)), position});
        leaving.push_back({index_of(boost::source(arc, bi_graph)), position});
    }
    std::sort(entering.begin(), entering.end());
    std::sort(leaving.begin(), leaving.end());

    std::vector<target_entry> target_entries;
    for (std::size_t position = 0; position < source_targets.size(); ++position) {
        target_entries.push_back({index_of(source_targets[position]), static_cast<int>(position)});
    }
    std::sort(target_entries.begin(), target_entries.end());

    auto out_arc = leaving.begin();
    auto target = target_entries.begin();
    for (auto in_arc = entering.begin(); in_arc != entering.end();) {
        const int vertex = in_arc->vertex;
        IloExpr sum_in_flow2(env, 0.0);
        for (; in_arc != entering.end() && in_arc->vertex == vertex; ++in_arc) {
            sum_in_flow2 += flow2[in_arc->arc];
        }

        out_arc = std::lower_bound(out_arc, leaving.end(), arc_at_vertex{vertex, 0});
        for (; out_arc != leaving.end() && out_arc->vertex == vertex; ++out_arc) {
            model.add(flow2[out_arc->arc] <= sum_in_flow2);
        }

        target = std::lower_bound(target, target_entries.end(), target_entry{vertex, 0});
        for (; target != target_entries.end() && target->vertex == vertex; ++target) {
            add_pair(model, pair_source, source_targets[target->position], marks.target_distances[target->position],
                     sum_in_flow2);
        }
    }
}
