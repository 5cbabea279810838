#include "solver/structure/simplify_net.hpp"

#include <algorithm>
#include <numeric>
#include <tuple>

#include "solver/structure/index.hpp"

namespace solver {
namespace {

int representative(std::vector<int>& parent, int node) {
    while (parent[at(node)] != node) {
        node = parent[at(node)] = parent[at(parent[at(node)])];
    }
    return node;
}

// Marks what is reached from a node along the arcs (or against them), over open arcs
// only or over all.
std::vector<char> reach(const pair_net& net, int from, bool forward, bool only_open) {
    std::vector<char> reached(at(net.num_nodes), 0);
    reached[at(from)] = 1;
    for (bool changed = true; changed;) {
        changed = false;
        const auto visit = [&](const net_arc& arc) {
            const int near = forward ? arc.tail : arc.head;
            const int far = forward ? arc.head : arc.tail;
            if (reached[at(near)] != 0 && reached[at(far)] == 0 && (!only_open || arc.gate == open_gate)) {
                reached[at(far)] = 1;
                changed = true;
            }
        };
        // Arcs stand with those near the root first, more or less: one pass nearly always does.
        if (forward) {
            std::for_each(net.arcs.begin(), net.arcs.end(), visit);
        } else {
            std::for_each(net.arcs.rbegin(), net.arcs.rend(), visit);
        }
    }
    return reached;
}

void close_and_open(pair_net& net, const std::vector<gate_state>& gates) {
    std::erase_if(net.arcs, [&gates](const net_arc& arc) {
        return arc.gate != open_gate && gates[at(arc.gate)] == gate_state::closed;
    });
    for (net_arc& arc : net.arcs) {
        if (arc.gate != open_gate && gates[at(arc.gate)] == gate_state::open) {
            arc.gate = open_gate;
        }
    }
}

// Joins what open arcs join to the root and the target; true when the target is reached.
bool contract_ends(pair_net& net) {
    const std::vector<char> from_root = reach(net, net_root, true, true);
    if (from_root[at(net_target)] != 0) {
        return true;
    }
    const std::vector<char> to_target = reach(net, net_target, false, true);
    const auto joined = [&](int node) {
        return from_root[at(node)] != 0 ? net_root : to_target[at(node)] != 0 ? net_target : node;
    };
    for (net_arc& arc : net.arcs) {
        arc.tail = joined(arc.tail);
        arc.head = joined(arc.head);
    }
    std::erase_if(net.arcs, [](const net_arc& arc) { return arc.head == net_root || arc.tail == net_target; });
    return false;
}

void drop_dead_ends(pair_net& net) {
    const std::vector<char> from_root = reach(net, net_root, true, false);
    const std::vector<char> to_target = reach(net, net_target, false, false);
    std::erase_if(net.arcs, [&](const net_arc& arc) {
        return from_root[at(arc.tail)] == 0 || to_target[at(arc.head)] == 0 || arc.tail == arc.head;
    });
}

// Joins the ends of open arcs that are the only way out of the tail or into the head.
bool contract_series(pair_net& net) {
    std::vector<int> entering(at(net.num_nodes), 0);
    std::vector<int> leaving(at(net.num_nodes), 0);
    for (const net_arc& arc : net.arcs) {
        ++leaving[at(arc.tail)];
        ++entering[at(arc.head)];
    }
    std::vector<int> parent(at(net.num_nodes));
    std::iota(parent.begin(), parent.end(), 0);
    bool changed = false;
    for (const net_arc& arc : net.arcs) {
        const int tail = representative(parent, arc.tail);
        const int head = representative(parent, arc.head);
        if (arc.gate != open_gate || tail == head) {
            continue;
        }
        const bool only_way_out = tail != net_root && leaving[at(tail)] == 1;
        const bool only_way_in = head != net_target && entering[at(head)] == 1;
        if (!only_way_out && !only_way_in) {
            continue;
        }
        const int kept = only_way_out ? head : tail;
        const int gone = only_way_out ? tail : head;
        parent[at(gone)] = kept;
        entering[at(kept)] = entering[at(tail)] + entering[at(head)] - 1;
        leaving[at(kept)] = leaving[at(tail)] + leaving[at(head)] - 1;
        changed = true;
    }
    if (changed) {
        for (net_arc& arc : net.arcs) {
            arc.tail = representative(parent, arc.tail);
            arc.head = representative(parent, arc.head);
        }
        std::erase_if(net.arcs, [](const net_arc& arc) { return arc.tail == arc.head; });
    }
    return changed;
}

// An arc beside an open one, or beside one through the same gate, adds nothing.
bool drop_parallel(pair_net& net) {
    const auto key = [](const net_arc& arc) { return std::make_tuple(arc.tail, arc.head, arc.gate); };
    std::vector<net_arc> sorted = net.arcs;
    std::sort(sorted.begin(), sorted.end(), [&key](const net_arc& a, const net_arc& b) { return key(a) < key(b); });
    const auto beside = [](const net_arc& kept, const net_arc& next) {
        return kept.tail == next.tail && kept.head == next.head && (kept.gate == open_gate || kept.gate == next.gate);
    };
    const auto end = std::unique(sorted.begin(), sorted.end(), beside);
    if (end == sorted.end()) {
        return false;
    }
    sorted.erase(end, sorted.end());
    net.arcs = std::move(sorted);
    return true;
}

}  // namespace

net_fate simplify_net(pair_net& net, const std::vector<gate_state>& gates) {
    close_and_open(net, gates);
    do {
        if (contract_ends(net)) {
            return net_fate::satisfied;
        }
        drop_dead_ends(net);
    } while (contract_series(net) || drop_parallel(net));
    if (net.arcs.empty()) {
        return net_fate::lost;
    }
    return net_fate::undecided;
}

// By the gates around each node: a gate stands once in a network.
void number_net(pair_net& net) {
    std::stable_sort(net.arcs.begin(), net.arcs.end(), [](const net_arc& a, const net_arc& b) {
        return static_cast<unsigned>(a.gate) < static_cast<unsigned>(b.gate);  // open arcs last
    });
    std::vector<int> number(at(net.num_nodes), -1);
    number[at(net_root)] = net_root;
    number[at(net_target)] = net_target;
    int count = 2;
    for (net_arc& arc : net.arcs) {
        for (int* node : {&arc.tail, &arc.head}) {
            if (number[at(*node)] < 0) {
                number[at(*node)] = count++;
            }
            *node = number[at(*node)];
        }
    }
    net.num_nodes = count;
}

}  // namespace solver
