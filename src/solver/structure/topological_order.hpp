// The nodes of an acyclic network, tails before heads (Kahn 1962).
#pragma once

#include <vector>

namespace solver {

// Arcs lead from tail to head, both below num_nodes; a tail of -1 is outside of the network.
// Nodes on a cycle, and those behind one, are left out: then there are fewer than num_nodes.
std::vector<int> topological_order(int num_nodes, const std::vector<int>& tails, const std::vector<int>& heads);

}  // namespace solver
