#include "checking/network_check.hpp"

#include <algorithm>
#include <numeric>
#include <unordered_map>

namespace {

struct arc {
    int tail;
    int head;
};

std::vector<arc> arcs_of(const read_network& network) {
    std::vector<arc> arcs;
    for (const read_network::interaction& interaction : network.interactions) {
        arcs.push_back({interaction.first, interaction.second});
        if (interaction.kind != interaction_kind::directed) {
            arcs.push_back({interaction.second, interaction.first});
        }
    }
    return arcs;
}

using neighbours = std::vector<std::vector<int>>;

std::vector<char> reached_from(int start, const neighbours& heads) {
    std::vector<char> is_reached(heads.size(), 0);
    std::vector<int> reached{start};
    is_reached[static_cast<std::size_t>(start)] = 1;
    for (std::size_t i = 0; i < reached.size(); ++i) {
        for (const int head : heads[static_cast<std::size_t>(reached[i])]) {
            if (is_reached[static_cast<std::size_t>(head)] == 0) {
                is_reached[static_cast<std::size_t>(head)] = 1;
                reached.push_back(head);
            }
        }
    }
    return is_reached;
}

// For each protein the first protein of its part of the network, directions apart.
std::vector<int> parts_of(const neighbours& joined) {
    std::vector<int> part(joined.size(), -1);
    for (std::size_t first = 0; first < joined.size(); ++first) {
        if (part[first] >= 0) {
            continue;
        }
        std::vector<int> members{static_cast<int>(first)};
        part[first] = static_cast<int>(first);
        for (std::size_t i = 0; i < members.size(); ++i) {
            for (const int next : joined[static_cast<std::size_t>(members[i])]) {
                if (part[static_cast<std::size_t>(next)] < 0) {
                    part[static_cast<std::size_t>(next)] = static_cast<int>(first);
                    members.push_back(next);
                }
            }
        }
    }
    return part;
}

}  // namespace

std::vector<pathless_pair> find_pathless_pairs(const read_network& network, const search_watch& watch) {
    const std::size_t num_proteins = network.proteins.size();
    neighbours heads(num_proteins);
    neighbours joined(num_proteins);
    std::vector<char> is_entered(num_proteins, 0);
    for (const arc& step : arcs_of(network)) {
        heads[static_cast<std::size_t>(step.tail)].push_back(step.head);
        is_entered[static_cast<std::size_t>(step.head)] = 1;
        joined[static_cast<std::size_t>(step.tail)].push_back(step.head);
        joined[static_cast<std::size_t>(step.head)].push_back(step.tail);
    }
    const std::vector<int> part = parts_of(joined);
    // One search serves all pairs of a cause.
    std::vector<const read_network::pair*> by_cause;
    for (const read_network::pair& pair : network.pairs) {
        by_cause.push_back(&pair);
    }
    std::stable_sort(by_cause.begin(), by_cause.end(),
                     [](const auto* left, const auto* right) { return left->cause < right->cause; });
    std::vector<pathless_pair> pathless;
    std::vector<char> is_reached;
    int searched = -1;
    for (std::size_t i = 0; i < by_cause.size(); ++i) {
        const read_network::pair* const pair = by_cause[i];
        const auto cause = static_cast<std::size_t>(pair->cause);
        const auto effect = static_cast<std::size_t>(pair->effect);
        if (searched != pair->cause) {
            is_reached = reached_from(pair->cause, heads);
            searched = pair->cause;
            if (watch) {
                watch(static_cast<int>(i), static_cast<int>(by_cause.size()));
            }
        }
        if (cause != effect && is_reached[effect] != 0) {
            continue;
        }
        const no_path why = cause == effect               ? no_path::same_protein
                            : heads[cause].empty()        ? no_path::no_outgoing
                            : is_entered[effect] == 0     ? no_path::no_entering
                            : part[cause] != part[effect] ? no_path::different_components
                                                          : no_path::no_directed_path;
        pathless.push_back({network.proteins[cause], network.proteins[effect], pair->line, why});
    }
    std::sort(pathless.begin(), pathless.end(),
              [](const pathless_pair& left, const pathless_pair& right) { return left.line < right.line; });
    return pathless;
}

std::vector<repeated_pair> find_repeated_pairs(const read_network& network) {
    std::map<std::pair<int, int>, line_numbers> lines;
    for (const read_network::pair& pair : network.pairs) {
        lines[{pair.cause, pair.effect}].push_back(pair.line);
    }
    std::vector<repeated_pair> repeated;
    for (const auto& [ends, found] : lines) {
        if (found.size() > 1) {
            repeated.push_back({network.proteins[static_cast<std::size_t>(ends.first)],
                                network.proteins[static_cast<std::size_t>(ends.second)], found});
        }
    }
    std::sort(repeated.begin(), repeated.end(),
              [](const repeated_pair& left, const repeated_pair& right) { return left.lines < right.lines; });
    return repeated;
}

std::vector<shared_variable> find_shared_variables(const read_network& network) {
    std::unordered_map<std::string, std::vector<std::string>> by_variable;
    for (const arc& step : arcs_of(network)) {
        const std::string& tail = network.proteins[static_cast<std::size_t>(step.tail)];
        const std::string& head = network.proteins[static_cast<std::size_t>(step.head)];
        // Without an underscore in them, the one between two names tells them apart.
        if (tail.find('_') != std::string::npos || head.find('_') != std::string::npos) {
            const std::string variable = std::string("o_").append(tail).append("_").append(head);
            by_variable[variable].push_back(std::string(tail).append(" -> ").append(head));
        }
    }
    std::vector<shared_variable> shared;
    for (auto& [variable, arcs] : by_variable) {
        if (arcs.size() > 1) {
            shared.push_back({variable, arcs});
        }
    }
    std::sort(shared.begin(), shared.end(),
              [](const shared_variable& left, const shared_variable& right) { return left.variable < right.variable; });
    return shared;
}
