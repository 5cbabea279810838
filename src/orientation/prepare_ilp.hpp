// Builds the integer program of the loaded network and its knockout pairs.
#pragma once

#include <functional>

#include "model/network_graph.hpp"

// Marks, source by source, the arcs on shortest paths to the source's targets and
// adds their flow and pair variables and constraints to the model, the objective
// last. Fills `pairs`, `var` and `num_of_pairs`, raises the arcs'
// shortest-path counters, and leaves edge_in_shortest as the marks of the last source.
//
// isoMap names the comp_graph vertex of every bi_graph vertex; vertices and arcs
// are numbered. With allow_one_edge_path false, distances to targets are searched in
// comp_graph, which becomes the reverse of bi_graph: a pair's direct arc is left out
// of the distances to its target, and comp_graph gains the mirror of that arc whether
// or not the network holds it. With true nothing needs comp_graph, which stays as it
// is. Always true. Once cut_requested, asked before each source, is true, the model is
// left as it is then, and of no use.
bool prepare_ilp(
    IloModel model, bool allow_one_edge_path, IsoMap isoMap,
    const std::function<bool()>& cut_requested = [] { return false; });
