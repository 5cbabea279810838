// One pair's network, cut down to what is still undecided about it.
//
// Exact by reachability: what a chain of open arcs reaches from the root is the root,
// what reaches the target by one is the target; an arc into the first, out of the
// second, through a closed gate or off every chain changes nothing; an open arc that
// is the only way out of its tail, or the only way into its head, joins the two. Of
// two arcs from one node to another, one goes if the other is open or has its gate.
// These are series and parallel reductions (Duffin 1965), taken only where a gate is
// open or shared: two gates in a row or side by side stay two.
//
// Bounded: a pass sorts the arcs and walks over them a few times, and every pass but
// the last removes one.
#pragma once

#include "solver/reduce/contested_problem.hpp"

namespace solver {

enum class net_fate { undecided, satisfied, lost };

// States are by gate, as the net's arcs name them. An arc whose gate is open becomes
// open_gate. Series and parallel reductions can be left out.
net_fate simplify_net(pair_net& net, const std::vector<gate_state>& gates, bool contracts = true);

// Numbers nodes 0 .. num_nodes - 1 and orders arcs, those into a node before those out
// of it, so that equal networks come out equal, whatever their nodes were called. The
// net has been simplified, and has no cycle.
void number_net(pair_net& net);

}  // namespace solver
