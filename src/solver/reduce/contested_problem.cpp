#include "solver/reduce/contested_problem.hpp"

#include <algorithm>

namespace solver {

long contested_problem::total_weight() const {
    long total = 0;
    for (const pair_net& pair : pairs) {
        total += pair.weight;
    }
    return total;
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
