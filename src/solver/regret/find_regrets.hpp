// What an answer rests on: the regret of every chosen gate, and the price of every lost
// demand, of a model that is seen to be reachability (solver/structure/reach_structure.hpp).
//
// The regret of a gate is the optimum less the best value with that gate closed; its
// opposite may then be open. The price of a demand is the optimum less the best value
// with that demand satisfied. A demand counts with its weight.
#pragma once

#include <functional>
#include <limits>
#include <optional>
#include <vector>

#include "solver/record/back_end.hpp"

namespace solver {

// The price of a demand that no directions satisfy.
inline constexpr long unattainable = std::numeric_limits<long>::max();

struct proven_range {
    long lower = 0;  // lower <= exact value <= upper; equal unless the answer is not proven
    long upper = 0;  // best, or a stop was requested
    bool operator==(const proven_range&) const = default;
};

struct regret_options {
    int jobs = 1;  // threads; what is found does not depend on their number
    // How many of all regrets and prices are settled; called from one thread at a time.
    std::function<void(int settled, int all)> report = [](int, int) {};
};

struct regret_report {
    // By column: of a gate that is 1 in the answer and has an opposite; {0, 0} elsewhere.
    std::vector<proven_range> regret;
    // By column: of a demand that is 0 in the answer; {0, 0} elsewhere.
    std::vector<proven_range> price;
    // By column of such a demand: columns, in ascending order, of the demands satisfied in the
    // answer that the best answer found with it gives up. Empty where none was found.
    std::vector<std::vector<int>> against;
};

// Answer: values by column, and a bound, as solve_record gives them; status optimal or
// feasible. Nothing when the model does not fit the structure, or the answer has no values.
// A watch that requests a stop ends it early, within half a second; ranges then hold what
// is proven. Of the watch nothing else is used.
std::optional<regret_report> find_regrets(const model_record& record, const solve_answer& answer,
                                          const regret_options& options, const solve_watch& watch);

}  // namespace solver
