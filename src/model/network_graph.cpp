#include "model/network_graph.hpp"

#include <unordered_map>

#include "model/arc_table.hpp"

bidirected_basic_graph bi_graph;
bidirected_basic_graph solution_graph;
bidirected_basic_graph comp_graph;

property_accessor<boost::vertex_distance_t> comp_distances_map = boost::get(boost::vertex_distance, comp_graph);
property_accessor<boost::vertex_index_t> vertex_comp_myindex_map = boost::get(boost::vertex_index, comp_graph);
property_accessor<boost::vertex_name_t> names_map = boost::get(boost::vertex_name, bi_graph);
property_accessor<boost::vertex_distance_t> distances_map = boost::get(boost::vertex_distance, bi_graph);
property_accessor<edge_confidence_t> parallel_confidence_map = boost::get(edge_confidence, bi_graph);
property_accessor<boost::edge_index_t> myindex_map = boost::get(boost::edge_index, bi_graph);
property_accessor<edge_shortest_paths_counter_t> shortest_paths_counter_map =
    boost::get(edge_shortest_paths_counter, bi_graph);
property_accessor<edge_in_shortest_t> in_shortest_map = boost::get(edge_in_shortest, bi_graph);
property_accessor<edge_var_t> vars_map = boost::get(edge_var, bi_graph);
property_accessor<edge_flow2_t> flows_map = boost::get(edge_flow2, bi_graph);
property_accessor<edge_direction_t> directions_map = boost::get(edge_direction, bi_graph);
property_accessor<edge_test_t> test_map = boost::get(edge_test, bi_graph);
property_accessor<edge_hidden_t> hidden_map = boost::get(edge_hidden, bi_graph);
property_accessor<boost::vertex_index_t> vertex_myindex_map = boost::get(boost::vertex_index, bi_graph);

shortest_graph filter_in_shortest(in_shortest_map);
in_shortest_filtered_graph in_shortest_filtered(bi_graph, filter_in_shortest, boost::keep_all());

protein_name_data protein_names_map[MAX_PROTEIN_ID];

IloEnv env;
IloNumVarArray var(env, 0);
IloObjective objective(env, 0.0, IloObjective::Maximize);

std::vector<long> keep_constraints_Ids;
source_map sources;
std::vector<pair_data> pairs;

int num_of_proteins = 0;
int num_of_ks = 0;
int num_of_pairs = 0;

namespace {

std::unordered_map<vertex_descriptor, int> creation_order;
arc_table first_arcs;

}  // namespace

bool created_before::operator()(vertex_descriptor left, vertex_descriptor right) const {
    return creation_order.at(left) < creation_order.at(right);
}

vertex_descriptor add_protein(const std::string& name) {
    const vertex_descriptor protein = boost::add_vertex(bi_graph);
    boost::put(names_map, protein, name);
    creation_order.emplace(protein, static_cast<int>(creation_order.size()));
    return protein;
}

edge_descriptor add_arc(vertex_descriptor tail, vertex_descriptor head) {
    const edge_descriptor arc = boost::add_edge(tail, head, bi_graph).first;
    first_arcs.add(arc);
    return arc;
}

std::pair<edge_descriptor, bool> find_arc(vertex_descriptor tail, vertex_descriptor head) {
    const edge_descriptor* found = first_arcs.find(tail, head);
    return found == nullptr ? std::make_pair(edge_descriptor(), false) : std::make_pair(*found, true);
}

void remove_arc(edge_descriptor arc) {
    const vertex_descriptor tail = boost::source(arc, bi_graph);
    const vertex_descriptor head = boost::target(arc, bi_graph);
    boost::remove_edge(arc, bi_graph);
    first_arcs.remove(tail, head);
    // A parallel arc, if there is one, is the first from now on.
    const auto next = boost::edge(tail, head, bi_graph);
    if (next.second) {
        first_arcs.add(next.first);
    }
}

void reset_run_state() {
    for (bidirected_basic_graph* graph : {&bi_graph, &solution_graph, &comp_graph}) {
        graph->clear();
    }
    creation_order.clear();
    first_arcs = arc_table();
    for (protein_name_data& entry : protein_names_map) {
        entry = protein_name_data{};
    }
    keep_constraints_Ids.clear();
    sources.clear();
    pairs.clear();
    num_of_proteins = num_of_ks = num_of_pairs = 0;
    env = IloEnv();
    var = IloNumVarArray(env, 0);
    objective = IloObjective(env, 0.0, IloObjective::Maximize);
}
