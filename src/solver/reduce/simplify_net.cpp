#include "solver/reduce/simplify_net.hpp"

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
        // Arcs stand with those near the root first, nearly always: one pass does, a second one sees it.
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

// An arc beside an open one, or beside one through the same gate, adds nothing. The
// others keep their order, for the sake of later walks.
bool drop_parallel(pair_net& net) {
    std::vector<std::size_t> order(net.arcs.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const auto key = [&net](std::size_t a) {
        return std::make_tuple(net.arcs[a].tail, net.arcs[a].head, net.arcs[a].gate, a);
    };
    std::sort(order.begin(), order.end(), [&key](std::size_t a, std::size_t b) { return key(a) < key(b); });
    const auto beside = [&net](std::size_t kept, std::size_t next) {
        const net_arc& one = net.arcs[kept];
        const net_arc& other = net.arcs[next];
        return one.tail == other.tail && one.head == other.head && (one.gate == open_gate || one.gate == other.gate);
    };
    order.erase(std::unique(order.begin(), order.end(), beside), order.end());
    if (order.size() == net.arcs.size()) {
        return false;
    }
    std::sort(order.begin(), order.end());
    std::transform(order.begin(), order.end(), net.arcs.begin(), [&net](std::size_t a) { return net.arcs[a]; });
    net.arcs.resize(order.size());
    return true;
}

// Puts the arcs in an order in which those into a node come before those out of it.
void order_arcs(pair_net& net) {
    std::vector<int> first(at(net.num_nodes) + 1, 0);  // of the arcs that leave a node
    std::vector<int> entering(at(net.num_nodes), 0);
    for (const net_arc& arc : net.arcs) {
        ++first[at(arc.tail) + 1];
        ++entering[at(arc.head)];
    }
    std::partial_sum(first.begin(), first.end(), first.begin());
    std::vector<net_arc> leaving(net.arcs.size());
    std::vector<int> next = first;
    for (const net_arc& arc : net.arcs) {
        leaving[at(next[at(arc.tail)]++)] = arc;
    }
    std::vector<int> ready{net_root};
    net.arcs.clear();
    while (!ready.empty()) {
        const int node = ready.back();
        ready.pop_back();
        for (int a = first[at(node)]; a < first[at(node) + 1]; ++a) {
            net.arcs.push_back(leaving[at(a)]);
            if (--entering[at(leaving[at(a)].head)] == 0) {
                ready.push_back(leaving[at(a)].head);
            }
        }
    }
}

}  // namespace

net_fate simplify_net(pair_net& net, const std::vector<gate_state>& gates, bool contracts) {
    close_and_open(net, gates);
    do {
        if (contract_ends(net)) {
            return net_fate::satisfied;
        }
        drop_dead_ends(net);
    } while (contracts && (contract_series(net) || drop_parallel(net)));
    if (net.arcs.empty()) {
        return net_fate::lost;
    }
    return net_fate::undecided;
}

// By the gates around each node: a gate stands once in a network. Then by the way from
// the root, so that whoever walks over the arcs has been to an arc's tail before.
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
    order_arcs(net);
}

}  // namespace solver
