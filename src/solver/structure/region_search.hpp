// Better directions from exact searches of one region after another.
//
// A region is the choices near one picked at random: those whose pairs it shares, then
// theirs, up to a number. All others keep their direction, which settles most of the
// problem (settle.hpp); what is left is annealed for a moment and then searched for a
// better answer until one is found or none can be there (large neighbourhood search,
// Shaw 1998). The region's new directions stay unless they reach less, so the search
// drifts among equals.
//
// Never exact for the whole: what it gives is a value, no bound. A step is bounded by
// the size of its region, which shrinks after a search that gave up.
#pragma once

#include <cstdint>
#include <vector>

#include "solver/back_end.hpp"
#include "solver/structure/random_source.hpp"
#include "solver/structure/shared_state.hpp"

namespace solver {

class region_search {
 public:
    region_search(const contested_problem& problem, std::uint64_t seed);

    // Searches one region around the state's directions.
    void step(shared_state& state, const solve_watch& watch);

 private:
    std::vector<char> pick_region();
    contested_problem pairs_of(const std::vector<char>& region) const;

    const contested_problem& problem_;
    random_source random_;
    double largest_;  // region, in choices
    std::vector<std::vector<int>> choices_of_pair_;
    std::vector<std::vector<int>> pairs_of_choice_;
};

}  // namespace solver
