// Reduces a model's structure, searches what is contested, and puts the answer back in
// terms of the model.
#include "solver/prove/structured_back_end.hpp"

#include <numeric>

#include "solver/prove/contested_search.hpp"
#include "solver/reduce/reduce.hpp"
#include "solver/structure/first_answer.hpp"

namespace solver {

namespace {

solve_answer answer_of(const reach_structure& structure, int num_columns, const directions& chosen, long weight,
                       long bound) {
    solve_answer answer;
    answer.status = weight >= bound ? solve_status::optimal : solve_status::feasible;
    answer.values = values_of(structure, chosen, num_columns);
    answer.objective = structure.objective_constant + static_cast<double>(weight);
    answer.bound = structure.objective_constant + static_cast<double>(bound);
    return answer;
}

}  // namespace

solve_answer solve_by_structure(const reach_structure& structure, int num_columns, const solve_watch& watch,
                                const settle_steps& steps) {
    const directions first = first_directions(structure);
    const long first_weight = reached_weight(structure, first);
    const long total = std::accumulate(structure.demand_weight.begin(), structure.demand_weight.end(), 0L);
    watch.report({"first answer", static_cast<double>(first_weight), static_cast<double>(total)});

    const std::optional<settled_problem> reduced = reduce(structure, steps, watch);
    // To lay out what is contested takes long, and is of no use to a search that is over.
    if (!reduced || (!reduced->contested.choices.empty() && watch.stop_requested())) {
        return answer_of(structure, num_columns, first, first_weight, total);
    }
    watch.report({"reduce", static_cast<double>(first_weight), static_cast<double>(total)});
    const long satisfied = reduced->satisfied_weight;
    // What reducing decides loses nothing of the first answer's.
    const contested_answer best = search_contested(reduced->contested, picked(first, reduced->contested.choices), {},
                                                   {satisfied, satisfied}, watch);
    return answer_of(structure, num_columns, complete(*reduced, best.chosen, directions(reduced->decided.size(), -1)),
                     satisfied + best.weight, satisfied + best.bound);
}

solve_answer search_structure(const reach_structure& structure, int num_columns, const solve_watch& watch) {
    return solve_by_structure(structure, num_columns, watch);
}

}  // namespace solver
