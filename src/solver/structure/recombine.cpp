#include "solver/structure/recombine.hpp"

#include "solver/structure/freed_part.hpp"
#include "solver/structure/local_search.hpp"

namespace solver {
namespace {

constexpr long moves_per_choice = 400;
constexpr double first_temperature = 0.5;
constexpr double last_temperature = 0.15;

}  // namespace

long recombine(const contested_problem& problem, const directions& better, const directions& other, std::uint64_t seed,
               shared_state& state, const solve_watch& watch) {
    std::vector<char> differs(better.size());
    for (std::size_t c = 0; c < better.size(); ++c) {
        differs[c] = better[c] != other[c] ? 1 : 0;
    }
    const freed_part part = free_choices(problem, differs, better);
    const contested_problem& rest = part.rest.contested;
    shared_state small(rest);
    small.set(part.before());
    const std::vector<char> movable(rest.choices.size(), 1);
    const long moves = moves_per_choice * rest.num_choices();
    anneal(small, movable, {moves, first_temperature, last_temperature, seed}, rest.total_weight(), watch);
    state.set(part.with(small.chosen()));
    return moves;
}

}  // namespace solver
