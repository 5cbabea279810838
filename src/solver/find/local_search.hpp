// Simulated annealing over the contested choices (Kirkpatrick, Gelatt and Vecchi 1983).
//
// Half of the moves turn one choice. The other half take a pair that is missed, walk
// back from its target over arcs chosen at random, nearest way into what is reached
// first, and turn all that blocks this chain. A move that loses weight stays with the
// probability exp(loss / temperature); the temperature falls geometrically.
//
// Bounded by a number of moves, never by a clock, and driven by one fixed seed: every
// run gives the same directions.
#pragma once

#include <cstdint>
#include <functional>
#include <vector>

#include "solver/find/shared_state.hpp"
#include "solver/record/back_end.hpp"

namespace solver {

struct annealing_plan {
    long moves = 0;
    double first_temperature = 1.0;
    double last_temperature = 0.1;
    std::uint64_t seed = 1;
    bool gives_best = true;  // of all that was met; else where it came to its end
};

// The moves are made in so many stages, each at one temperature.
inline constexpr long annealing_stages = 200;

// Told after every stage: the best directions so far and what they reach.
using annealing_listener = std::function<void(const directions& best, long weight)>;

// Works on the state's directions, and leaves in it what the plan asks for. Only choices
// that are movable are turned. Ends early when stopped, or once target is reached.
void anneal(
    shared_state& state, const std::vector<char>& movable, const annealing_plan& plan, long target,
    const solve_watch& watch, const annealing_listener& listener = [](const auto&, long) {});

}  // namespace solver
