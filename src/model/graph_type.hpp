// The one graph type, its handles, and what reads a property of either.
#pragma once

#include <string>

#include <boost/graph/adjacency_list.hpp>

#include "model/graph_properties.hpp"
#include "solver/modelling/concert.hpp"

// clang-format off
using vertex_properties =
    boost::property<boost::vertex_name_t, std::string,
    boost::property<boost::vertex_distance_t, int,
    boost::property<boost::vertex_index_t, int,
    boost::property<boost::vertex_color_t, boost::default_color_type>>>>;

using edge_properties =
    boost::property<edge_confidence_t, double,
    boost::property<edge_shortest_paths_counter_t, int,
    boost::property<edge_in_shortest_t, bool,
    boost::property<edge_var_t, IloNumVar,
    boost::property<edge_flow2_t, IloNumVar,
    boost::property<edge_direction_t, int,
    boost::property<edge_hidden_t, int,
    boost::property<edge_test_t, int,
    boost::property<boost::edge_index_t, int>>>>>>>>>;
// clang-format on

// An interaction that may be oriented either way is a pair of opposite arcs.
using bidirected_basic_graph =
    boost::adjacency_list<boost::listS, boost::listS, boost::bidirectionalS, vertex_properties, edge_properties,
                          boost::no_property, boost::listS>;
using graph_traits = boost::graph_traits<bidirected_basic_graph>;
using vertex_descriptor = graph_traits::vertex_descriptor;
using edge_descriptor = graph_traits::edge_descriptor;

// A property travels with the handle, so an accessor serves any of the graphs.
template <typename tag>
using property_accessor = typename boost::property_map<bidirected_basic_graph, tag>::type;
