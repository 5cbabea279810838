#include "solver/find/recombine.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include "solver/find/local_search.hpp"
#include "solver/reduce/settle.hpp"
#include "solver/structure/index.hpp"

namespace solver {
namespace {

constexpr long moves_per_choice = 400;
constexpr double first_temperature = 0.5;
constexpr double last_temperature = 0.15;

// Pairs on whose fate the gates do not decide yet: the others are most in a large problem.
std::vector<char> at_stake(const contested_problem& problem, const std::vector<gate_state>& gates) {
    std::vector<char> pairs(problem.pairs.size());
    std::transform(problem.pairs.begin(), problem.pairs.end(), pairs.begin(), [&gates](const pair_net& pair) {
        const auto is_free = [&gates](const net_arc& arc) {
            return arc.gate != open_gate && gates[at(arc.gate)] == gate_state::contested;
        };
        return std::any_of(pair.arcs.begin(), pair.arcs.end(), is_free) ? 1 : 0;
    });
    return pairs;
}

}  // namespace

long recombine(const contested_problem& problem, const directions& better, const directions& other, std::uint64_t seed,
               shared_state& state, const solve_watch& watch) {
    std::vector<gate_state> gates(2 * better.size(), gate_state::contested);
    for (std::size_t c = 0; c < better.size(); ++c) {
        if (better[c] == other[c]) {
            open_and_close(gates, static_cast<int>(2 * c) + better[c]);
        }
    }
    contested_problem open = with_pairs(problem, at_stake(problem, gates));
    const settled_problem settled = settle(std::move(open), std::move(gates));
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
