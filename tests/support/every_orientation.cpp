#include "support/every_orientation.hpp"

#include <algorithm>

#include "model/network_graph.hpp"

namespace {

std::vector<int> distances(const plain_network& network, const std::vector<char>& open, int start) {
    std::vector<int> distance(static_cast<std::size_t>(network.num_proteins), -1);
    distance[static_cast<std::size_t>(start)] = 0;
    bool has_moved = true;
    for (int walked = 0; has_moved; ++walked) {
        has_moved = false;
        for (std::size_t arc = 0; arc < network.arcs.size(); ++arc) {
            const auto tail = static_cast<std::size_t>(network.arcs[arc].first);
            const auto head = static_cast<std::size_t>(network.arcs[arc].second);
            if (open[arc] != 0 && distance[tail] == walked && distance[head] < 0) {
                distance[head] = walked + 1;
                has_moved = true;
            }
        }
    }
    return distance;
}

}  // namespace

plain_network read_plain_network() {
    plain_network network;
    network.num_proteins = static_cast<int>(boost::num_vertices(bi_graph));
    const auto number = [](vertex_descriptor protein) { return boost::get(vertex_myindex_map, protein); };
    for (const edge_descriptor& arc : boost::make_iterator_range(boost::edges(bi_graph))) {
        const vertex_descriptor tail = boost::source(arc, bi_graph);
        const vertex_descriptor head = boost::target(arc, bi_graph);
        const auto [back, exists] = find_arc(head, tail);
        const int index = boost::get(myindex_map, arc);
        const bool is_known = boost::get(directions_map, arc) == 1 || !exists;
        network.arcs.emplace_back(number(tail), number(head));
        network.reverse.push_back(is_known ? -1 : boost::get(myindex_map, back));
        if (!is_known && network.reverse.back() > index) {
            network.contested.push_back(index);
        }
    }
    network.effects.resize(static_cast<std::size_t>(network.num_proteins));
    for (const auto& [cause, effects] : sources) {
        for (const vertex_descriptor effect : effects) {
            network.effects[static_cast<std::size_t>(number(cause))].push_back(number(effect));
        }
    }
    return network;
}

int satisfied_pairs(const plain_network& network, const std::vector<char>& open) {
    const std::vector<char> all(network.arcs.size(), 1);
    int satisfied = 0;
    for (int cause = 0; cause < network.num_proteins; ++cause) {
        const std::vector<int>& effects = network.effects[static_cast<std::size_t>(cause)];
        if (effects.empty()) {
            continue;
        }
        const std::vector<int> shortest = distances(network, all, cause);
        const std::vector<int> walked = distances(network, open, cause);
        satisfied += static_cast<int>(std::count_if(effects.begin(), effects.end(), [&](int effect) {
            const auto e = static_cast<std::size_t>(effect);
            return shortest[e] > 0 && walked[e] == shortest[e];
        }));
    }
    return satisfied;
}

int best_by_enumeration(const plain_network& network) {
    int best = 0;
    for (unsigned choice = 0; choice < 1U << network.contested.size(); ++choice) {
        std::vector<char> open(network.arcs.size(), 1);
        for (std::size_t i = 0; i < network.contested.size(); ++i) {
            const int arc = network.contested[i];
            const int closed = (choice >> i & 1U) != 0 ? arc : network.reverse[static_cast<std::size_t>(arc)];
            open[static_cast<std::size_t>(closed)] = 0;
        }
        best = std::max(best, satisfied_pairs(network, open));
    }
    return best;
}
