// Simple ways to tell a direction, which the program's answers stand beside.
#pragma once

#include <array>
#include <vector>

#include "answer/network_record.hpp"

enum class vote { wrong, right, undecided };

inline constexpr std::array<const char*, 3> vote_names = {"wrong", "right", "undecided"};

// Of every interaction of "test", in file order; right is from first to second. What
// these know is what the run was given: the directions in "test" are hidden from them too.

// From the protein with the larger share of outgoing arcs among the arcs of known
// direction that it has; a protein without any counts as one half. Undecided where
// shares are equal, as they are where neither has any.
std::vector<vote> by_outgoing_share(const network_record& network);

// From the protein nearer to the causes of the knockout pairs: by the number of arcs from
// the nearest cause, in the network as read. Undecided where both are equally far, or out of
// reach.
std::vector<vote> by_nearness_to_causes(const network_record& network);
