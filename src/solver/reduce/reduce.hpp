// From a model's structure to what is contested in it.
//
// All pairs of one root share their arcs, so a pass over the arcs finds what open arcs
// surely reach, and which gates some remaining pair can use at all. Choices that only
// one direction can use take it (settle.hpp says why that is exact), until nothing
// more is decided. Only then every remaining pair gets a network of its own, which
// settle() cuts down further. It is the rule that a variable that appears with one
// sign only takes that sign (Davis and Putnam 1960), with reachability to tell what
// still appears.
//
// Bounded: a pass costs the arcs of the model, and every pass but the last decides a
// choice; the networks of the pairs together hold no more arcs than the pairs' chains.
#pragma once

#include "solver/reduce/settle.hpp"
#include "solver/structure/reach_structure.hpp"

namespace solver {

// Choices of the contested problem are called by their position in the structure, and its
// pairs are told by demand.
settled_problem reduce(const reach_structure& structure, const settle_steps& steps = {});
// The same; nothing when stopped.
std::optional<settled_problem> reduce(const reach_structure& structure, const settle_steps& steps,
                                      const solve_watch& watch);

}  // namespace solver
