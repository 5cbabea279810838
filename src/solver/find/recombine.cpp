#include "solver/find/recombine.hpp"

#include <utility>

#include "solver/find/local_search.hpp"
#include "solver/reduce/settle.hpp"
#include "solver/structure/index.hpp"

namespace solver {
namespace {

constexpr long moves_per_choice = 400;
constexpr double first_temperature = 0.5;
constexpr double last_temperature = 0.15;

}  // namespace

long recombine(const contested_problem& problem, const directions& better, const directions& other, std::uint64_t seed,
               shared_state& state, const solve_watch& watch) {
    std::vector<gate_state> gates(2 * better.size(), gate_state::contested);
    for (std::size_t c = 0; c < better.size(); ++c) {
        if (better[c] == other[c]) {
            open_and_close(gates, static_cast<int>(2 * c) + better[c]);
        }
    }
    const settled_problem settled = settle(problem, std::move(gates));
    const contested_problem& rest = settled.contested;
    directions start;
    for (const int choice : rest.choices) {
        start.push_back(better[at(choice)]);
    }
    shared_state small(rest);
    small.set(start);
    const std::vector<char> movable(rest.choices.size(), 1);
    const long moves = moves_per_choice * rest.num_choices();
    anneal(small, movable, {moves, first_temperature, last_temperature, seed}, rest.total_weight(), watch);
    state.set(complete(settled, small.chosen(), better));
    return moves;
}

}  // namespace solver
