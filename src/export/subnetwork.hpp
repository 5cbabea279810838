// Which proteins and interactions of an answer are exported.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "results/results.hpp"

struct subnetwork {
    std::vector<std::size_t> proteins;      // positions in answer::proteins, in their order
    std::vector<std::size_t> interactions;  // positions in answer::interactions, in file order
};

// By position; with nothing chosen, the network is whole.
struct selection {
    std::vector<std::size_t> part;            // these proteins, and the interactions between them
    std::optional<results::named_pair> pair;  // the open shortest paths of an explained pair
    int neighbourhood = 0;                    // steps, either way, around what part and pair have chosen
};

// Throws unusable_input where the pair is not in the table or has no open shortest path.
subnetwork choose(const results::answer& answer, const selection& chosen);
