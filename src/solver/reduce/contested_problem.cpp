#include "solver/reduce/contested_problem.hpp"

#include <algorithm>

#include "solver/structure/index.hpp"

namespace solver {

long contested_problem::total_weight() const {
    long total = 0;
    for (const pair_net& pair : pairs) {
        total += pair.weight;
    }
    return total;
}

contested_problem with_pairs(const contested_problem& problem, const std::vector<char>& kept) {
    contested_problem made;
    made.choices = problem.choices;
    std::vector<int> new_pair(problem.pairs.size(), -1);
    for (std::size_t p = 0; p < problem.pairs.size(); ++p) {
        if (kept[p] != 0) {
            new_pair[p] = static_cast<int>(made.pairs.size());
            made.pairs.push_back(problem.pairs[p]);
        }
    }
    made.shared.arcs = problem.shared.arcs;
    made.shared.nodes.reserve(problem.shared.nodes.size());
    for (const shared_network::node& node : problem.shared.nodes) {
        made.shared.nodes.push_back({node.pair >= 0 ? new_pair[at(node.pair)] : -1, node.weight});
    }
    return made;
}

directions nearest_directions(const std::vector<double>& values, int num_choices) {
    directions chosen(static_cast<std::size_t>(num_choices));
    for (std::size_t c = 0; c < chosen.size(); ++c) {
        chosen[c] = values[c] >= 0.5 ? 0 : 1;
    }
    return chosen;
}

directions picked(const directions& chosen, const std::vector<int>& choices) {
    directions made;
    made.reserve(choices.size());
    for (const int choice : choices) {
        made.push_back(std::max<signed char>(chosen[static_cast<std::size_t>(choice)], 0));
    }
    return made;
}

void open_and_close(std::vector<gate_state>& gates, int gate) {
    gates[static_cast<std::size_t>(gate)] = gate_state::open;
    gates[static_cast<std::size_t>(gate ^ 1)] = gate_state::closed;
}

}  // namespace solver
