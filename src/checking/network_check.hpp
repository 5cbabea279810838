// What the network says of its proteins and pairs once it is read.
#pragma once

#include <functional>

#include "checking/findings.hpp"

using search_watch = std::function<void(int done, int all)>;

// Pairs without a path and why, in file order. `watch` is told how many pairs, of all, are done.
std::vector<pathless_pair> find_pathless_pairs(const read_network& network, const search_watch& watch = {});
// Pairs that are listed more than once, in the order of their first line.
std::vector<repeated_pair> find_repeated_pairs(const read_network& network);
// Sorted by the variable's name.
std::vector<shared_variable> find_shared_variables(const read_network& network);
