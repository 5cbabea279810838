// "test": interactions of known direction, which enter the network as pairs whose
// direction the solver has to find.
#pragma once

#include "input/text_file.hpp"
#include "model/network_graph.hpp"

// Adds a hidden pair for each line, and reports unknown names, self loops and
// repeats. A file that does not open means that there are none.
void read_test_edges(IloModel model, text_file& file);
