// The property tags that arcs of the network carry beside the graph
// library's own.
#pragma once

#include <boost/graph/properties.hpp>

enum edge_shortest_paths_counter_t { edge_shortest_paths_counter };
enum edge_confidence_t { edge_confidence };
enum edge_in_shortest_t { edge_in_shortest };
enum edge_direction_t { edge_direction };
enum edge_hidden_t { edge_hidden };
enum edge_var_t { edge_var };
enum edge_flow2_t { edge_flow2 };
enum edge_test_t { edge_test };

namespace boost {
BOOST_INSTALL_PROPERTY(edge, shortest_paths_counter);
BOOST_INSTALL_PROPERTY(edge, confidence);
BOOST_INSTALL_PROPERTY(edge, in_shortest);
BOOST_INSTALL_PROPERTY(edge, direction);
BOOST_INSTALL_PROPERTY(edge, hidden);
BOOST_INSTALL_PROPERTY(edge, var);
BOOST_INSTALL_PROPERTY(edge, flow2);
BOOST_INSTALL_PROPERTY(edge, test);
}  // namespace boost
