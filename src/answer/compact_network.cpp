#include "answer/compact_network.hpp"

#include <numeric>

namespace {

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

// Sorts the arcs by one of their ends, otherwise in their order.
void sort_arcs(const std::vector<network_arc>& arcs, int num_vertices, int network_arc::*end, std::vector<int>& start,
               std::vector<int>& sorted) {
    start.assign(at(num_vertices) + 1, 0);
    for (const network_arc& arc : arcs) {
        if (arc.tail >= 0) {
            ++start[at(arc.*end) + 1];
        }
    }
    std::partial_sum(start.begin(), start.end(), start.begin());
    sorted.resize(at(start.back()));
    std::vector<int> next(start.begin(), start.end() - 1);
    for (std::size_t a = 0; a < arcs.size(); ++a) {
        if (arcs[a].tail >= 0) {
            sorted[at(next[at(arcs[a].*end)]++)] = static_cast<int>(a);
        }
    }
}

}  // namespace

compact_network make_compact_network(const network_record& network, const std::vector<signed char>& chosen) {
    compact_network made;
    made.arcs.resize(2 * network.interactions.size());
    for (std::size_t i = 0; i < network.interactions.size(); ++i) {
        const interaction& item = network.interactions[i];
        const bool known = item.file == interaction_file::directed;
        made.arcs[2 * i] = {item.first, item.second, known || chosen[i] == 0};
        if (!known) {
            made.arcs[2 * i + 1] = {item.second, item.first, chosen[i] == 1};
        }
    }
    const int num_vertices = static_cast<int>(network.names.size());
    sort_arcs(made.arcs, num_vertices, &network_arc::tail, made.out_start, made.out_arcs);
    sort_arcs(made.arcs, num_vertices, &network_arc::head, made.in_start, made.in_arcs);
    return made;
}

std::vector<int> components(const compact_network& network) {
    std::vector<int> component(at(network.num_vertices()), -1);
    std::vector<int> stack;
    int count = 0;
    const auto visit = [&](int vertex) {
        if (component[at(vertex)] < 0) {
            component[at(vertex)] = count;
            stack.push_back(vertex);
        }
    };
    for (int start = 0; start < network.num_vertices(); ++start) {
        if (component[at(start)] >= 0) {
            continue;
        }
        visit(start);
        while (!stack.empty()) {
            const int vertex = stack.back();
            stack.pop_back();
            for (int a = network.out_start[at(vertex)]; a < network.out_start[at(vertex) + 1]; ++a) {
                visit(network.arcs[at(network.out_arcs[at(a)])].head);
            }
            for (int a = network.in_start[at(vertex)]; a < network.in_start[at(vertex) + 1]; ++a) {
                visit(network.arcs[at(network.in_arcs[at(a)])].tail);
            }
        }
        ++count;
    }
    return component;
}
