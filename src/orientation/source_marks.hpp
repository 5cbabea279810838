// What the marking of one source hands to the flow and pair constraints.
#pragma once

#include <vector>

#include "model/network_graph.hpp"

struct source_marks {
    std::vector<edge_descriptor> arcs;  // on a shortest path to some target; ascending edge_index
    std::vector<int> target_distances;  // arcs from the source to each entry of its target list in the
                                        // whole network; 0 = the source itself, or out of its reach
};
