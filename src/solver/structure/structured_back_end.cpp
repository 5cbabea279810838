// Finds the structure of a model, reduces it, searches what is contested, and puts the
// answer back in terms of the model. What does not fit goes to HiGHS as it is.
#include "solver/structure/structured_back_end.hpp"

#include "solver/structure/contested_search.hpp"
#include "solver/structure/reduce.hpp"

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

solve_answer search_with_highs(const model_record& record, const solve_watch& watch) {
    const std::optional<reach_structure> structure = find_reach_structure(record);
    return structure ? solve_by_structure(*structure, record.num_columns(), watch) : solve_with_highs(record, watch);
}

}  // namespace solver
