// The property tags that vertices and arcs of the network carry beside the graph
// library's own.
#pragma once

#include <boost/graph/properties.hpp>

enum vertex_filtered_t { vertex_filtered };
enum vertex_second_name_t { vertex_second_name };

enum edge_shortest_paths_counter_t { edge_shortest_paths_counter };
enum edge_confidence_t { edge_confidence };
enum edge_treshhold_t { edge_treshhold };
enum edge_in_shortest_t { edge_in_shortest };
enum edge_direction_t { edge_direction };
enum edge_hidden_t { edge_hidden };
enum edge_var_t { edge_var };
enum edge_constraint_t { edge_constraint };
enum edge_flow2_t { edge_flow2 };
enum edge_test_t { edge_test };
enum edge_orientation_round_t { edge_orientation_round };
enum edge_target_distances_t { edge_target_distances };
enum edge_ilp_improve_t { edge_ilp_improve };

namespace boost {
BOOST_INSTALL_PROPERTY(vertex, filtered);
BOOST_INSTALL_PROPERTY(vertex, second_name);
BOOST_INSTALL_PROPERTY(edge, shortest_paths_counter);
BOOST_INSTALL_PROPERTY(edge, confidence);
BOOST_INSTALL_PROPERTY(edge, treshhold);
BOOST_INSTALL_PROPERTY(edge, in_shortest);
BOOST_INSTALL_PROPERTY(edge, direction);
BOOST_INSTALL_PROPERTY(edge, hidden);
BOOST_INSTALL_PROPERTY(edge, var);
BOOST_INSTALL_PROPERTY(edge, constraint);
BOOST_INSTALL_PROPERTY(edge, flow2);
BOOST_INSTALL_PROPERTY(edge, test);
BOOST_INSTALL_PROPERTY(edge, orientation_round);
BOOST_INSTALL_PROPERTY(edge, target_distances);
BOOST_INSTALL_PROPERTY(edge, ilp_improve);
}  // namespace boost
