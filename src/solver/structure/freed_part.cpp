#include "solver/structure/freed_part.hpp"

#include <utility>

#include "solver/structure/index.hpp"

namespace solver {

freed_part free_choices(contested_problem problem, const std::vector<char>& free, const directions& current) {
    std::vector<gate_state> gates(2 * free.size(), gate_state::contested);
    for (std::size_t c = 0; c < free.size(); ++c) {
        if (free[c] == 0) {
            open_and_close(gates, static_cast<int>(2 * c) + current[c]);
        }
    }
    freed_part part{settle(std::move(problem), std::move(gates)), current};
    for (std::size_t c = 0; c < free.size(); ++c) {
        if (part.rest.decided[c] >= 0) {
            part.around[c] = part.rest.decided[c];
        }
    }
    return part;
}

directions freed_part::before() const {
    directions chosen;
    for (const int choice : rest.contested.choices) {
        chosen.push_back(around[at(choice)]);
    }
    return chosen;
}

directions freed_part::with(const directions& chosen) const {
    directions all = around;
    for (std::size_t c = 0; c < chosen.size(); ++c) {
        all[at(rest.contested.choices[c])] = chosen[c];
    }
    return all;
}

}  // namespace solver
