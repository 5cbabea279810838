// Directions to begin with, before anything is reduced.
//
// The demands are followed one after the other. Of all chains that are not shut yet, the
// one with the fewest undecided choices is taken, and those choices are decided so that
// it is open: a greedy construction. What chains there are is found once for every node,
// so nodes that many demands of one root share are looked at once.
//
// Bounded: one pass over the arcs.
#pragma once

#include "solver/structure/reach_values.hpp"

namespace solver {

// -1 for a choice that no chain needed.
directions first_directions(const reach_structure& structure);

}  // namespace solver
