// The network and everything that lives as long as the run: the graphs, their
// property accessors, the containers that the phases fill, and the solver objects.
#pragma once

#include <map>
#include <memory>
#include <string>
#include <vector>

#include <boost/graph/filtered_graph.hpp>

#include "model/graph_type.hpp"

// ---- Run-wide graphs -------------------------------------------------------

extern bidirected_basic_graph bi_graph;        // the network as read; loses the losing test arcs
extern bidirected_basic_graph solution_graph;  // only ever handed to the edge writer
extern bidirected_basic_graph comp_graph;      // bi_graph with every arc reversed, where it is searched

// ---- Property accessors ----------------------------------------------------

extern property_accessor<boost::vertex_distance_t> comp_distances_map;
extern property_accessor<boost::vertex_index_t> vertex_comp_myindex_map;
extern property_accessor<boost::vertex_name_t> names_map;
extern property_accessor<boost::vertex_distance_t> distances_map;
extern property_accessor<edge_confidence_t> parallel_confidence_map;
extern property_accessor<boost::edge_index_t> myindex_map;
extern property_accessor<edge_shortest_paths_counter_t> shortest_paths_counter_map;
extern property_accessor<edge_in_shortest_t> in_shortest_map;
extern property_accessor<edge_var_t> vars_map;
extern property_accessor<edge_flow2_t> flows_map;
extern property_accessor<edge_direction_t> directions_map;  // 1 = directed, 0 = orientable
extern property_accessor<edge_test_t> test_map;             // 1 = known direction, 3 = to be removed
extern property_accessor<edge_hidden_t> hidden_map;         // 1 = known direction, 2 = its reverse, 0 = not hidden
extern property_accessor<boost::vertex_index_t> vertex_myindex_map;

// From a vertex of bi_graph (by its vertex_index) to its copy in comp_graph.
using IsoMap =
    boost::iterator_property_map<std::vector<vertex_descriptor>::iterator, property_accessor<boost::vertex_index_t>,
                                 vertex_descriptor, vertex_descriptor&>;

// Keeps the arcs that are marked as lying on a shortest path.
struct shortest_graph {
    shortest_graph() = default;
    explicit shortest_graph(property_accessor<edge_in_shortest_t> in_shortest) : m_in_shortest(in_shortest) {}
    bool operator()(const edge_descriptor& arc) const { return boost::get(m_in_shortest, arc); }

    property_accessor<edge_in_shortest_t> m_in_shortest;
};

using in_shortest_filtered_graph = boost::filtered_graph<bidirected_basic_graph, shortest_graph, boost::keep_all>;
extern shortest_graph filter_in_shortest;
extern in_shortest_filtered_graph in_shortest_filtered;  // bi_graph's marked arcs, all vertices

// ---- Records and containers ------------------------------------------------

inline constexpr int MAX_PROTEIN_ID = 10000;  // entries of the name table
inline constexpr int max_name_length = 19;    // characters of a protein name
inline constexpr int MAX_flow2 = 1;           // coefficient of an orientation variable in a capacity row

struct protein_name_data {
    vertex_descriptor protein = nullptr;
    std::unique_ptr<char[]> name;  // max_name_length characters and the terminator; null = no entry
};

// A knockout pair that received a pair variable.
struct pair_data {
    IloNumVar pair_var;
    vertex_descriptor pair_source = nullptr;
    vertex_descriptor pair_target = nullptr;
    int shortest_distance = 0;  // arcs on a shortest path from source to target
};

// Orders vertices by their creation, which is the order of "names.txt": handles
// are addresses and would order differently from run to run.
struct created_before {
    bool operator()(vertex_descriptor left, vertex_descriptor right) const;
};

using targets = std::vector<vertex_descriptor>;  // in file order, repetitions kept
using source_map = std::map<vertex_descriptor, targets, created_before>;

extern protein_name_data protein_names_map[MAX_PROTEIN_ID];  // sorted by name
extern std::vector<long> keep_constraints_Ids;               // the objective, then the one-direction constraints
extern source_map sources;
extern std::vector<pair_data> pairs;

extern int num_of_proteins;  // searchable entries of protein_names_map, -1 without a "names.txt"
extern int num_of_ks;
extern int num_of_pairs;

// ---- Solver objects --------------------------------------------------------

extern IloEnv env;
extern IloNumVarArray var;
extern IloObjective objective;

// ---- Building the network --------------------------------------------------
// All vertices and arcs of bi_graph are made and removed here, so that arcs are
// found in constant time: list storage would scan all arcs of a hub.

vertex_descriptor add_protein(const std::string& name);
edge_descriptor add_arc(vertex_descriptor tail, vertex_descriptor head);
// The first arc tail -> head, and whether there is one.
std::pair<edge_descriptor, bool> find_arc(vertex_descriptor tail, vertex_descriptor head);
void remove_arc(edge_descriptor arc);

// Puts everything in this header back to its state at start-up, for those who run
// more than once in a process: tests and measurements.
void reset_run_state();
