// "directed" and "undirected": interactions of known direction, and those that
// may be oriented either way.
#pragma once

#include "input/text_file.hpp"
#include "model/network_graph.hpp"

enum interaction_mode { directed_interactions = 1, undirected_interactions = 2, removed_interactions = 3 };

// Adds the file's interactions to bi_graph and the model, or removes them from
// bi_graph, as `directed` (an interaction_mode) says. Names are searched among
// the first max_id table entries. Gives the number of lines taken: two known and
// different names, present already or not; 0 in removal. A file that does not
// open and unknown names are reported.
int read_interaction(IloModel model, text_file& file, int max_id, int directed);
