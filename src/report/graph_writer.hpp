// The drawings: the network as Graphviz DOT text.
#pragma once

#include <ostream>
#include <string>

#include "model/network_graph.hpp"

// Writes how an arc is drawn: blue when it belongs to a test pair. It asks the arc
// alone; the graph is the one that the drawing is said to be of.
struct epw {
    explicit epw(bidirected_basic_graph& graph) : g(graph) {}

    template <typename edge>
    void operator()(std::ostream& out, edge e) const {
        if (boost::get(hidden_map, e) != 0) {
            out << "[color=blue]";
        }
    }

    const bidirected_basic_graph& g;
};

// Writes bi_graph: numbered vertices with their names, then the arcs.
void write_network(std::ostream& out);
// The same into a file, replacing it. Gives the system's reason when it could not be
// completed, else nothing. A file that does not open is passed over.
std::string write_network(const std::string& path);
