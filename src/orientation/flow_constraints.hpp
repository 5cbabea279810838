// The flow of one source through its marked arcs, and what it can satisfy:
//
//   capacity           f(a) <= o(a)                           each marked arc a
//   propagation        f(a) <= sum of f over arcs into u      each marked arc a = u->v, u with entering marked arcs
//   pair satisfaction  s_P_Q <= sum of f over arcs into Q     each entry Q of P's target list with entering marked arcs
//
// f is a fresh continuous variable in [0, 1] for each source and marked arc, o the
// arc's orientation variable, and s_P_Q, continuous in [0, 1], a term of the
// objective. So s_P_Q can be positive only if a chain of marked arcs from P into Q
// is oriented along its direction all the way.
#pragma once

#include "orientation/source_marks.hpp"

// Adds the rows of one source: all capacities in arc order, then vertex by vertex
// its propagation rows in arc order and its pair rows. A target that stands k times
// in the list gives k variables of the same name, k rows and k records in `pairs`.
void add_flow_constraints(IloModel model, vertex_descriptor pair_source, const targets& source_targets,
                          const source_marks& marks);
