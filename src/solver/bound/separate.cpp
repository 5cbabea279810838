#include "solver/bound/separate.hpp"

#include <algorithm>
#include <cmath>

#include <boost/graph/adjacency_list.hpp>
#include <boost/graph/boykov_kolmogorov_max_flow.hpp>

#include "solver/structure/index.hpp"

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
    // Every chain passes them, so one chain holds them all.
    std::vector<int> entered_by(at(net.num_nodes), none);
    int last_gate = open_gate;
    for (const net_arc& arc : net.arcs) {
        last_gate = std::max(last_gate, arc.gate);
    }
    std::vector<double> values(at(last_gate + 1), 1.0);
    walk_chains(net, values, 1.0, entered_by);
    std::vector<int> without(entered_by.size());
    for (int node = net_target; node != net_root;) {
        const net_arc& arc = net.arcs[at(entered_by[at(node)])];
        node = arc.tail;
        if (arc.gate == open_gate) {
            continue;
        }
        values[at(arc.gate)] = 0.0;
        std::fill(without.begin(), without.end(), none);
        if (!walk_chains(net, values, 1.0, without)) {
            cuts.push_back({arc.gate});
        }
        values[at(arc.gate)] = 1.0;
    }
}

}  // namespace solver
