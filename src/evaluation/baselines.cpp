#include "evaluation/baselines.hpp"

#include <limits>

#include "answer/compact_network.hpp"

namespace {

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

// The direction goes from the end with the larger figure.
template <typename figure>
std::vector<vote> vote_for_larger(const network_record& network, const std::vector<figure>& figures) {
    std::vector<vote> votes;
    for (const interaction& item : network.interactions) {
        if (item.file == interaction_file::test) {
            const figure first = figures[at(item.first)];
            const figure second = figures[at(item.second)];
            votes.push_back(first > second ? vote::right : first < second ? vote::wrong : vote::undecided);
        }
    }
    return votes;
}

}  // namespace

std::vector<vote> by_outgoing_share(const network_record& network) {
    std::vector<double> outgoing(network.names.size(), 0.0);
    std::vector<double> all(network.names.size(), 0.0);
    for (const interaction& item : network.interactions) {
        if (item.file == interaction_file::directed) {
            ++outgoing[at(item.first)];
            ++all[at(item.first)];
            ++all[at(item.second)];
        }
    }
    std::vector<double> share(network.names.size(), 0.5);
    for (std::size_t v = 0; v < share.size(); ++v) {
        if (all[v] > 0) {
            share[v] = outgoing[v] / all[v];
        }
    }
    return vote_for_larger(network, share);
}

std::vector<vote> by_nearness_to_causes(const network_record& network) {
    const compact_network compact =
        make_compact_network(network, std::vector<signed char>(network.interactions.size(), -1));
    constexpr int out_of_reach = std::numeric_limits<int>::min();
    std::vector<int> nearness(network.names.size(), out_of_reach);  // 0 = a cause, -1 = next to one
    std::vector<int> queue;
    for (const knockout_line& line : network.knockouts) {
        if (line.cause_vertex >= 0 && nearness[at(line.cause_vertex)] != 0) {
            nearness[at(line.cause_vertex)] = 0;
            queue.push_back(line.cause_vertex);
        }
    }
    for (std::size_t next = 0; next < queue.size(); ++next) {
        const int vertex = queue[next];
        for (int a = compact.out_start[at(vertex)]; a < compact.out_start[at(vertex) + 1]; ++a) {
            const int head = compact.arcs[at(compact.out_arcs[at(a)])].head;
            if (nearness[at(head)] == out_of_reach) {
                nearness[at(head)] = nearness[at(vertex)] - 1;
                queue.push_back(head);
            }
        }
    }
    return vote_for_larger(network, nearness);
}
