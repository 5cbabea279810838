// Arcs together with what the model says of their direction: every arc has a
// binary orientation variable "o_<tail>_<head>", 1 when the solution uses the arc.
#pragma once

#include "model/network_graph.hpp"

// What tells the two arcs of an orientable pair apart.
struct arc_marks {
    int hidden = 0;
    int test = 0;
};

// An arc of known direction: o <= 1, which keeps the variable in the model even
// when no shortest path uses the arc.
void add_directed_arc(IloModel model, vertex_descriptor tail, vertex_descriptor head, double confidence);

// Two opposite arcs of which at most one is chosen: o_first_second + o_second_first
// <= 1. The constraint is one to keep. A null name leaves it unnamed.
void add_orientable_pair(IloModel model, vertex_descriptor first, vertex_descriptor second, double confidence,
                         arc_marks forward, arc_marks backward, const char* constraint_name);
