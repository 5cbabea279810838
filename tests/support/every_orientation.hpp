// The knockout pairs of bi_graph against every orientation that it has, as plainly as can be.
#pragma once

#include <utility>
#include <vector>

struct plain_network {
    int num_proteins = 0;
    std::vector<std::pair<int, int>> arcs;  // tail and head, in graph order
    std::vector<int> contested;             // one arc of every interaction that may be oriented
    std::vector<int> reverse;               // by arc: the other one of such an interaction; -1 = known direction
    std::vector<std::vector<int>> effects;  // by protein: what its knockout changes, as often as listed
};

// bi_graph and its knockout pairs as they stand, when all is read.
plain_network read_plain_network();

// Knockout pairs whose effect the open arcs reach as fast as all arcs do. `open` is by arc.
int satisfied_pairs(const plain_network& network, const std::vector<char>& open);

// The most of them that any orientation satisfies. Takes time 2^contested.
int best_by_enumeration(const plain_network& network);
