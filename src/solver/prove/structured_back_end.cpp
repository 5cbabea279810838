// Reduces a model's structure, searches what is contested, and puts the answer back in
// terms of the model.
#include "solver/prove/structured_back_end.hpp"

#include "solver/prove/contested_search.hpp"
#include "solver/reduce/reduce.hpp"

namespace solver {

solve_answer solve_by_structure(const reach_structure& structure, int num_columns, const solve_watch& watch,
                                const settle_steps& steps) {
    const settled_problem reduced = reduce(structure, steps);
    watch.report({"reduce", static_cast<double>(reduced.satisfied_weight), infinity});
    const contested_answer best =
        search_contested(reduced.contested, {}, {reduced.satisfied_weight, reduced.satisfied_weight}, watch);
    solve_answer answer;
    answer.status = best.weight >= best.bound ? solve_status::optimal : solve_status::feasible;
    answer.values =
        values_of(structure, complete(reduced, best.chosen, directions(reduced.decided.size(), -1)), num_columns);
    answer.objective = structure.objective_constant + static_cast<double>(reduced.satisfied_weight + best.weight);
    answer.bound = structure.objective_constant + static_cast<double>(reduced.satisfied_weight + best.bound);
    return answer;
}

solve_answer search_structure(const reach_structure& structure, int num_columns, const solve_watch& watch) {
    return solve_by_structure(structure, num_columns, watch);
}

}  // namespace solver
