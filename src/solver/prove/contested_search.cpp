#include "solver/prove/contested_search.hpp"

#include "solver/prove/part_search.hpp"
#include "solver/reduce/split.hpp"
#include "solver/structure/index.hpp"

namespace solver {

contested_answer search_contested(const contested_problem& problem, const directions& start, const search_plan& plan,
                                  const known_outside& outside, const solve_watch& watch) {
    contested_answer answer;
    answer.chosen = start;
    if (problem.choices.empty()) {
        return answer;
    }
    if (!plan.splits || watch.stop_requested() || count_parts(problem) == 1) {
        return search_part(problem, start, plan, outside, watch);
    }
    const std::vector<contested_problem> parts = split(problem, watch);
    if (parts.empty()) {
        return search_part(problem, start, plan, outside, watch);
    }
    // Parts that are not searched yet count with all their weight in the bound.
    long weight_ahead = problem.total_weight();
    for (const contested_problem& part : parts) {
        weight_ahead -= part.total_weight();
        const long bound_of_others = answer.bound + weight_ahead;
        search_plan part_plan = plan;
        part_plan.goal = plan.goal - bound_of_others;
        const contested_answer best =
            search_part(part, picked(start, part.choices), part_plan,
                        {outside.weight + answer.weight, outside.bound + bound_of_others}, watch);
        for (int c = 0; c < part.num_choices(); ++c) {
            answer.chosen[at(part.choices[at(c)])] = best.chosen[at(c)];
        }
        answer.weight += best.weight;
        answer.bound += best.bound;
    }
    return answer;
}

}  // namespace solver
