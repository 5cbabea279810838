// The shortest-path search step by step: for every target one search of the
// reversed network and one scan of all arcs. It is the way for pairs whose direct
// arc does not count, where distances of two different graphs meet, and the plain
// statement of what the compressed search must find.
#pragma once

#include "orientation/source_marks.hpp"

// Makes comp_graph the reverse of bi_graph; its vertices stay as they are.
void reverse_into_comp_graph(IsoMap isoMap);

// Marks the arcs on shortest paths from pair_source to its targets, in place of any
// marks that are there, and counts them. comp_graph is the reverse of bi_graph.
source_marks mark_stepwise(vertex_descriptor pair_source, const targets& source_targets, bool allow_one_edge_path,
                           IsoMap isoMap);
