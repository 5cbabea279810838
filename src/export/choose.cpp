#include <algorithm>
#include <queue>

#include "export/subnetwork.hpp"
#include "tables/unusable_input.hpp"

namespace {

struct step {
    std::size_t to;
    std::size_t interaction;
};

using adjacency = std::vector<std::vector<step>>;  // by protein

void connect(adjacency& network, std::size_t from, std::size_t to, std::size_t interaction) {
    network[from].push_back({to, interaction});
}

// Steps from the start to each protein, -1 where there is no way.
std::vector<int> distances(const adjacency& network, const std::vector<std::size_t>& starts) {
    std::vector<int> distance(network.size(), -1);
    std::queue<std::size_t> open;
    for (const std::size_t start : starts) {
        distance[start] = 0;
        open.push(start);
    }
    for (; !open.empty(); open.pop()) {
        const std::size_t from = open.front();
        for (const step& next : network[from]) {
            int& to = distance[next.to];
            if (to < 0) {
                to = distance[from] + 1;
                open.push(next.to);
            }
        }
    }
    return distance;
}

// Interactions on shortest open paths: those whose ends are as far from the cause and
// from the effect as makes up the distance of the pair.
std::vector<std::size_t> open_path_interactions(const results::answer& answer, results::named_pair pair, int length) {
    adjacency forward(answer.proteins.size());
    adjacency backward(answer.proteins.size());
    for (std::size_t i = 0; i < answer.interactions.size(); ++i) {
        if (const auto arc = results::open_arc(answer.interactions[i])) {
            connect(forward, arc->first, arc->second, i);
            connect(backward, arc->second, arc->first, i);
        }
    }
    const std::vector<int> from_cause = distances(forward, {pair.first});
    const std::vector<int> to_effect = distances(backward, {pair.second});
    std::vector<std::size_t> found;
    for (std::size_t i = 0; i < answer.interactions.size(); ++i) {
        if (const auto arc = results::open_arc(answer.interactions[i])) {
            const int before = from_cause[arc->first];
            const int after = to_effect[arc->second];
            if (before >= 0 && after >= 0 && before + 1 + after == length) {
                found.push_back(i);
            }
        }
    }
    return found;
}

std::vector<std::size_t> pair_interactions(const results::answer& answer, results::named_pair wanted) {
    const std::string name =
        "\"" + answer.proteins[wanted.first].name + "\" to \"" + answer.proteins[wanted.second].name + "\"";
    const auto pair = std::find_if(answer.pairs.begin(), answer.pairs.end(), [&](const results::pair_row& row) {
        return results::named_pair(row.cause, row.effect) == wanted;
    });
    if (pair == answer.pairs.end()) {
        throw unusable_input("there is no pair from " + name);
    }
    if (pair->status != results::pair_status::explained || !pair->distance) {
        throw unusable_input("the pair from " + name + " has no open shortest path: it is " +
                             results::word(pair->status));
    }
    return open_path_interactions(answer, wanted, *pair->distance);
}

std::vector<char> marks(const results::answer& answer, const std::vector<std::size_t>& proteins) {
    std::vector<char> is_marked(answer.proteins.size(), false);
    for (const std::size_t protein : proteins) {
        is_marked[protein] = true;
    }
    return is_marked;
}

std::vector<std::size_t> neighbourhood(const results::answer& answer, const std::vector<std::size_t>& centre,
                                       int steps) {
    adjacency either_way(answer.proteins.size());
    for (std::size_t i = 0; i < answer.interactions.size(); ++i) {
        connect(either_way, answer.interactions[i].first, answer.interactions[i].second, i);
        connect(either_way, answer.interactions[i].second, answer.interactions[i].first, i);
    }
    const std::vector<int> distance = distances(either_way, centre);
    std::vector<std::size_t> near;
    for (std::size_t protein = 0; protein < distance.size(); ++protein) {
        if (distance[protein] >= 0 && distance[protein] <= steps) {
            near.push_back(protein);
        }
    }
    return near;
}

// The proteins marked, and the interactions between them.
subnetwork induced(const results::answer& answer, const std::vector<char>& is_marked) {
    subnetwork network;
    for (std::size_t protein = 0; protein < is_marked.size(); ++protein) {
        if (is_marked[protein]) {
            network.proteins.push_back(protein);
        }
    }
    for (std::size_t i = 0; i < answer.interactions.size(); ++i) {
        if (is_marked[answer.interactions[i].first] && is_marked[answer.interactions[i].second]) {
            network.interactions.push_back(i);
        }
    }
    return network;
}

}  // namespace

subnetwork choose(const results::answer& answer, const selection& chosen) {
    if (chosen.part.empty() && !chosen.pair) {
        std::vector<char> is_marked;
        for (const results::protein_record& protein : answer.proteins) {
            is_marked.push_back(protein.is_in_network);
        }
        return induced(answer, is_marked);
    }
    std::vector<std::size_t> proteins = chosen.part;
    std::vector<std::size_t> on_paths;
    if (chosen.pair) {
        on_paths = pair_interactions(answer, *chosen.pair);
        for (const std::size_t i : on_paths) {
            proteins.push_back(answer.interactions[i].first);
            proteins.push_back(answer.interactions[i].second);
        }
    }
    if (chosen.neighbourhood > 0) {
        proteins = neighbourhood(answer, proteins, chosen.neighbourhood);
    }
    subnetwork network = induced(answer, marks(answer, proteins));
    if (chosen.part.empty() && chosen.neighbourhood == 0) {
        network.interactions = on_paths;  // not what else joins their proteins
    }
    return network;
}
