#include "solver/bound/chain_layout.hpp"

#include <algorithm>
#include <map>
#include <utility>

#include "solver/structure/index.hpp"

namespace solver {

double count_steps(const contested_problem& problem) {
    double steps = 0.0;
    for (const pair_net& pair : problem.pairs) {
        std::vector<int> entering(at(pair.num_nodes), 0);
        for (const net_arc& arc : pair.arcs) {
            ++entering[at(arc.head)];
        }
        for (const net_arc& arc : pair.arcs) {
            steps += entering[at(arc.tail)];
        }
    }
    return steps;
}

chain_layout lay_out_chains(const contested_problem& problem) {
    chain_layout made;
    pair_layout pairs = lay_out_pairs(problem);
    made.weights = std::move(pairs.weights);
    made.constant = pairs.constant;
    made.pair_columns = std::move(pairs.pair_columns);
    made.num_choices = problem.num_choices();
    made.first_transition = static_cast<int>(made.weights.size());
    std::map<std::pair<int, int>, int> known;
    for (std::size_t p = 0; p < problem.pairs.size(); ++p) {
        const pair_net& net = problem.pairs[p];
        pair_net& split = made.nets.emplace_back(pair_net{2, net.weight, {}});
        if (made.pair_columns[p] < 0) {
            continue;
        }
        std::vector<int> entry(net.arcs.size(), net_root);
        std::vector<int> exit(net.arcs.size(), net_target);
        for (std::size_t a = 0; a < net.arcs.size(); ++a) {
            entry[a] = net.arcs[a].tail == net_root ? net_root : split.num_nodes++;
            exit[a] = net.arcs[a].head == net_target ? net_target : split.num_nodes++;
        }
        for (std::size_t a = 0; a < net.arcs.size(); ++a) {
            split.arcs.push_back({entry[a], exit[a], net.arcs[a].gate});
            for (std::size_t b = 0; b < net.arcs.size(); ++b) {
                if (net.arcs[a].head != net.arcs[b].tail) {
                    continue;
                }
                int gate = open_gate;
                if (net.arcs[a].gate != open_gate && net.arcs[b].gate != open_gate) {
                    const auto key = std::minmax(net.arcs[a].gate, net.arcs[b].gate);
                    const auto [found, is_new] = known.try_emplace(key, made.num_transitions());
                    if (is_new) {
                        made.transitions.push_back({key.first, key.second});
                        made.weights.push_back(0.0);
                    }
                    gate = made.num_gates() + found->second;
                }
                split.arcs.push_back({exit[a], entry[b], gate});
            }
        }
    }
    return made;
}

}  // namespace solver
