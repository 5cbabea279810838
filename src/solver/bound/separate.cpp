#include "solver/bound/separate.hpp"

#include <algorithm>
#include <cmath>
#include <numeric>

#include <boost/graph/adjacency_list.hpp>
#include <boost/graph/boykov_kolmogorov_max_flow.hpp>

#include "solver/structure/index.hpp"
#include "solver/structure/topological_order.hpp"

namespace solver {
namespace {

constexpr int none = -1;

// Whole capacities: with fractions, a residual of 1e-17 would join the sides of a cut.
using capacity = long;
constexpr double unit = 1 << 30;
constexpr capacity unlimited = capacity{1} << 50;

using flow_traits = boost::adjacency_list_traits<boost::vecS, boost::vecS, boost::directedS>;
using flow_graph = boost::adjacency_list<
    boost::vecS, boost::vecS, boost::directedS,
    boost::property<boost::vertex_color_t, boost::default_color_type,
                    boost::property<boost::vertex_distance_t, long,
                                    boost::property<boost::vertex_predecessor_t, flow_traits::edge_descriptor>>>,
    boost::property<boost::edge_capacity_t, capacity,
                    boost::property<boost::edge_residual_capacity_t, capacity,
                                    boost::property<boost::edge_reverse_t, flow_traits::edge_descriptor>>>>;

flow_graph make_flow_graph(const pair_net& net, const std::vector<double>& gate_values) {
    flow_graph graph(at(net.num_nodes));
    const auto capacities = boost::get(boost::edge_capacity, graph);
    const auto reverses = boost::get(boost::edge_reverse, graph);
    for (const net_arc& arc : net.arcs) {
        const auto forward = boost::add_edge(at(arc.tail), at(arc.head), graph).first;
        const auto backward = boost::add_edge(at(arc.head), at(arc.tail), graph).first;
        capacities[forward] = arc.gate == open_gate ? unlimited : std::lround(gate_values[at(arc.gate)] * unit);
        capacities[backward] = 0;
        reverses[forward] = backward;
        reverses[backward] = forward;
    }
    return graph;
}

// Nodes that the residual network joins to the given end.
std::vector<char> residual_side(const flow_graph& graph, int from, bool forward) {
    const auto residuals = boost::get(boost::edge_residual_capacity, graph);
    const auto reverses = boost::get(boost::edge_reverse, graph);
    std::vector<char> side(boost::num_vertices(graph), 0);
    std::vector<std::size_t> queue{at(from)};
    side[at(from)] = 1;
    while (!queue.empty()) {
        const std::size_t node = queue.back();
        queue.pop_back();
        for (auto [edge, end] = boost::out_edges(node, graph); edge != end; ++edge) {
            const std::size_t next = boost::target(*edge, graph);
            if (side[next] == 0 && residuals[forward ? *edge : reverses[*edge]] > 0) {
                side[next] = 1;
                queue.push_back(next);
            }
        }
    }
    return side;
}

gate_cut gates_between(const pair_net& net, const std::vector<char>& root_side) {
    gate_cut gates;
    for (const net_arc& arc : net.arcs) {
        if (root_side[at(arc.tail)] != 0 && root_side[at(arc.head)] == 0) {
            gates.push_back(arc.gate);
        }
    }
    std::sort(gates.begin(), gates.end());
    gates.erase(std::unique(gates.begin(), gates.end()), gates.end());
    return gates;
}

// Follows arcs whose gates are worth at least this much from the root on, until the
// target is entered; true when it is. entered_by takes, by node, the arc that first
// entered it, and comes filled with none.
bool walk_chains(const pair_net& net, const std::vector<double>& gate_values, double least,
                 std::vector<int>& entered_by) {
    for (bool changed = true; changed && entered_by[at(net_target)] == none;) {
        changed = false;
        for (std::size_t a = 0; a < net.arcs.size(); ++a) {
            const net_arc& arc = net.arcs[a];
            if ((arc.tail == net_root || entered_by[at(arc.tail)] != none) && entered_by[at(arc.head)] == none &&
                (arc.gate == open_gate || gate_values[at(arc.gate)] >= least)) {
                entered_by[at(arc.head)] = static_cast<int>(a);
                changed = true;
            }
        }
    }
    return entered_by[at(net_target)] != none;
}

std::vector<int> order_of_nodes(const pair_net& net) {
    std::vector<int> tails;
    std::vector<int> heads;
    tails.reserve(net.arcs.size());
    heads.reserve(net.arcs.size());
    for (const net_arc& arc : net.arcs) {
        tails.push_back(arc.tail);
        heads.push_back(arc.head);
    }
    return topological_order(net.num_nodes, tails, heads);
}

// Arcs that some chain takes, tails before heads.
std::vector<net_arc> arcs_on_chains(const pair_net& net, const std::vector<int>& place) {
    std::vector<net_arc> arcs = net.arcs;
    const auto by_tail = [&place](const net_arc& one, const net_arc& other) {
        return place[at(one.tail)] < place[at(other.tail)];
    };
    if (!std::is_sorted(arcs.begin(), arcs.end(), by_tail)) {
        std::stable_sort(arcs.begin(), arcs.end(), by_tail);
    }
    std::vector<char> from_root(at(net.num_nodes), 0);
    std::vector<char> to_target(at(net.num_nodes), 0);
    from_root[net_root] = to_target[net_target] = 1;
    for (const net_arc& arc : arcs) {
        from_root[at(arc.head)] |= from_root[at(arc.tail)];
    }
    for (auto arc = arcs.rbegin(); arc != arcs.rend(); ++arc) {
        to_target[at(arc->tail)] |= to_target[at(arc->head)];
    }
    std::erase_if(arcs,
                  [&](const net_arc& arc) { return from_root[at(arc.tail)] == 0 || to_target[at(arc.head)] == 0; });
    return arcs;
}

// Whether a chain without this gate leads to the target; arcs stand with tails before heads.
bool is_open_without(const std::vector<net_arc>& arcs, const pair_net& net, int gate) {
    std::vector<char> reached(at(net.num_nodes), 0);
    reached[net_root] = 1;
    for (const net_arc& arc : arcs) {
        reached[at(arc.head)] |= arc.gate == gate ? 0 : reached[at(arc.tail)];
    }
    return reached[net_target] != 0;
}

}  // namespace

void find_cuts(const pair_net& net, const std::vector<double>& gate_values, double needed, double tolerance,
               std::vector<gate_cut>& cuts) {
    if (needed <= tolerance) {
        return;
    }
    // Most pairs pass without a flow: some chain has all that is needed.
    std::vector<int> entered_by(at(net.num_nodes), none);
    if (walk_chains(net, gate_values, needed - tolerance, entered_by)) {
        return;
    }
    flow_graph graph = make_flow_graph(net, gate_values);
    const capacity flow = boost::boykov_kolmogorov_max_flow(graph, at(net_root), at(net_target));
    if (static_cast<double>(flow) >= (needed - tolerance) * unit) {
        return;
    }
    const std::vector<char> near_root = residual_side(graph, net_root, true);
    std::vector<char> far_from_target = residual_side(graph, net_target, false);
    for (char& side : far_from_target) {
        side = side == 0 ? 1 : 0;
    }
    cuts.push_back(gates_between(net, near_root));
    if (far_from_target != near_root) {
        gate_cut second = gates_between(net, far_from_target);
        if (second != cuts.back()) {
            cuts.push_back(std::move(second));
        }
    }
}

void find_bottlenecks(const pair_net& net, std::vector<gate_cut>& cuts) {
    const std::vector<int> order = order_of_nodes(net);
    std::vector<int> place(at(net.num_nodes), none);
    for (std::size_t i = 0; i < order.size(); ++i) {
        place[at(order[i])] = static_cast<int>(i);
    }
    const std::vector<net_arc> arcs = arcs_on_chains(net, place);

    // Between each node and the next: how many arcs pass, and the sum of their gates.
    std::vector<int> count(order.size() + 1, 0);
    std::vector<long> sum(order.size() + 1, 0);
    std::vector<int> gates;
    for (const net_arc& arc : arcs) {
        const std::size_t from = at(place[at(arc.tail)]);
        const std::size_t to = at(place[at(arc.head)]);
        ++count[from];
        --count[to];
        sum[from] += arc.gate;
        sum[to] -= arc.gate;
        gates.push_back(arc.gate);
    }
    std::partial_sum(count.begin(), count.end(), count.begin());
    std::partial_sum(sum.begin(), sum.end(), sum.begin());
    const std::size_t first_cut = cuts.size();
    for (std::size_t i = at(place[net_target]); i-- > at(place[net_root]);) {
        const bool is_new = cuts.size() == first_cut || cuts.back().front() != sum[i];
        if (count[i] == 1 && sum[i] != open_gate && is_new) {
            cuts.push_back({static_cast<int>(sum[i])});
        }
    }
    // A gate of several arcs can shut all chains in several places.
    std::sort(gates.begin(), gates.end());
    for (auto gate = gates.begin(); gate != gates.end(); gate = std::upper_bound(gate, gates.end(), *gate)) {
        if (*gate != open_gate && gate + 1 != gates.end() && gate[1] == *gate && !is_open_without(arcs, net, *gate)) {
            const auto known =
                std::find(cuts.begin() + static_cast<std::ptrdiff_t>(first_cut), cuts.end(), gate_cut{*gate});
            if (known == cuts.end()) {
                cuts.push_back({*gate});
            }
        }
    }
}

}  // namespace solver
