#include "solver/regret/search_again.hpp"

#include <algorithm>
#include <optional>
#include <utility>

#include "solver/reduce/settle.hpp"
#include "solver/structure/index.hpp"

namespace solver {
namespace {

// With the gates as given, from the answer on; in terms of the problem.
contested_answer search_rest(contested_problem problem, std::vector<gate_state> gates, const directions& answer,
                             long goal, const solve_watch& watch) {
    const long total = problem.total_weight();
    const std::optional<settled_problem> rest = settle(std::move(problem), std::move(gates), {}, watch);
    if (!rest) {
        return {answer, 0, total};
    }
    search_plan plan;
    plan.goal = goal - rest->satisfied_weight;
    contested_answer found =
        search_contested(rest->contested, picked(answer, rest->contested.choices), plan, {}, watch);
    found.weight += rest->satisfied_weight;
    found.bound += rest->satisfied_weight;
    found.chosen = complete(*rest, found.chosen, answer);
    return found;
}

}  // namespace

contested_answer search_with_turned(const contested_problem& problem, const directions& answer, int choice, long goal,
                                    const solve_watch& watch) {
    std::vector<gate_state> gates(2 * problem.choices.size(), gate_state::contested);
    open_and_close(gates, 2 * choice + (1 - answer[at(choice)]));
    directions around = answer;
    around[at(choice)] = static_cast<signed char>(1 - answer[at(choice)]);
    return search_rest(problem, std::move(gates), around, goal, watch);
}

contested_answer search_with_satisfied(const contested_problem& problem, const directions& answer, int pair, long goal,
                                       const solve_watch& watch) {
    // Worth more than all others, the pair is satisfied wherever it can be.
    const long worth = problem.total_weight() + 1;
    contested_problem raised = problem;
    raised.pairs[at(pair)].weight += worth;
    std::find_if(raised.shared.nodes.begin(), raised.shared.nodes.end(), [pair](const shared_network::node& node) {
        return node.pair == pair;
    })->weight += worth;
    std::vector<gate_state> gates(2 * problem.choices.size(), gate_state::contested);
    contested_answer found = search_rest(std::move(raised), std::move(gates), answer, goal + worth, watch);
    found.weight -= worth;
    found.bound = std::max(-1L, found.bound - worth);
    if (found.weight < 0) {
        found.chosen.clear();
    }
    return found;
}

}  // namespace solver
