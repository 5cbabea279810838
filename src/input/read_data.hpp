// The whole input directory, file by file.
#pragma once

#include <functional>
#include <string>

#include "input/text_file.hpp"
#include "model/network_graph.hpp"

// Gives an input file by its name, "names.txt" for one.
using input_opener = std::function<text_file(const char* name)>;

// Files whose names are the prefix and the file's own name, joined as they stand.
input_opener files_below(const std::string& prefix);

// Fills bi_graph, the name table, sources and the model from the files. Gives 1 when there
// are too many proteins (then nothing but vertices was made), otherwise
// num_of_ks. Errors in the input are printed, and cost a line at most. Once cut_requested,
// asked now and then, is true, what is left of the files is not read.
int read_data(
    const input_opener& open_input, IloModel model, const std::function<bool()>& cut_requested = [] { return false; });
