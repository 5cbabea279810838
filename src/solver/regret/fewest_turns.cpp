#include "solver/regret/fewest_turns.hpp"

#include <algorithm>
#include <limits>

#include "solver/structure/index.hpp"

namespace solver {

std::vector<int> fewest_turns(const pair_net& net, const shared_state& state) {
    std::vector<int> turns(at(net.num_nodes), std::numeric_limits<int>::max());
    std::vector<int> entered_by(at(net.num_nodes), -1);
    turns[at(net_root)] = 0;
    for (std::size_t a = 0; a < net.arcs.size(); ++a) {
        const net_arc& arc = net.arcs[a];
        const int through = turns[at(arc.tail)] + (state.is_open(arc.gate) ? 0 : 1);
        if (through < turns[at(arc.head)]) {
            turns[at(arc.head)] = through;
            entered_by[at(arc.head)] = static_cast<int>(a);
        }
    }
    std::vector<int> turned;
    for (int node = net_target; node != net_root;) {
        const net_arc& arc = net.arcs[at(entered_by[at(node)])];
        if (!state.is_open(arc.gate) && std::find(turned.begin(), turned.end(), arc.gate / 2) == turned.end()) {
            turned.push_back(arc.gate / 2);
        }
        node = arc.tail;
    }
    return turned;
}

}  // namespace solver
