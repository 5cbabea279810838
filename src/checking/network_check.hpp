// What the network says of its proteins and pairs once it is read.
#pragma once

#include "checking/findings.hpp"

// Pairs without a path and why, in file order.
std::vector<pathless_pair> find_pathless_pairs(const read_network& network);
// Pairs that are listed more than once, in the order of their first line.
std::vector<repeated_pair> find_repeated_pairs(const read_network& network);
// Sorted by the variable's name.
std::vector<shared_variable> find_shared_variables(const read_network& network);
