// Solving, and reading back which direction the solution gave the test edges.
#pragma once

#include "model/network_graph.hpp"

// Sets parameters and priorities, solves, prints status and value, and removes
// from bi_graph every hidden arc whose reverse arc was chosen. `gap` is the
// relative optimality gap in percent. While it solves, a terminal on standard error shows
// how far it is (progress_line.hpp), and the session's own watch may end the solve with
// the best solution so far. Leaves with the answer held (interruption.hpp) and always
// gives 0; without a solution it says so on standard output and throws the int -1.
int compare(IloCplex cplex, IloModel model, int gap);
