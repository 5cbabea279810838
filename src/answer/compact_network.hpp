// The network of a run in rows, with what is open in the answer: what paths are counted
// and followed in.
#pragma once

#include <vector>

#include "answer/network_record.hpp"

// Interaction i has the arcs 2i, first to second, and 2i + 1, which is not there where
// the direction is known.
struct network_arc {
    int tail = -1;  // -1 = not there
    int head = -1;
    bool open = false;  // known, or the direction that the answer gave
};

struct compact_network {
    std::vector<network_arc> arcs;
    std::vector<int> out_start;  // arcs out of v: out_arcs[out_start[v]] .. [out_start[v + 1]] - 1
    std::vector<int> out_arcs;
    std::vector<int> in_start;
    std::vector<int> in_arcs;

    int num_vertices() const { return static_cast<int>(out_start.size()) - 1; }
};

// chosen: by interaction 0 = first to second, 1 = second to first, -1 = neither; not
// asked where the direction is known.
compact_network make_compact_network(const network_record& network, const std::vector<signed char>& chosen);

// By vertex the number of its weakly connected component, counted from 0.
std::vector<int> components(const compact_network& network);
