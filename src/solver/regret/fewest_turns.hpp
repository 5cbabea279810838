// The choices to turn, as few as can be, for a chain of a pair's network to be open. One pass
// over its arcs, which stand in an order in which those into a node come before those out of it.
#pragma once

#include <vector>

#include "solver/find/shared_state.hpp"

namespace solver {

// A choice that the chain needs in both directions is named once: then the chain stays shut.
std::vector<int> fewest_turns(const pair_net& net, const shared_state& state);

}  // namespace solver
