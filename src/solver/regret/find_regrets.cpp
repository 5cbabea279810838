#include "solver/regret/find_regrets.hpp"

#include <algorithm>
#include <cmath>

#include "solver/prove/structured_back_end.hpp"
#include "solver/structure/index.hpp"

namespace solver {
namespace {

// The structure without the arcs of one gate.
reach_structure without_gate(const reach_structure& structure, int gate) {
    reach_structure made = structure;
    made.arc_tail.clear();
    made.arc_head.clear();
    made.arc_gate.clear();
    made.arc_column.clear();
    made.node_first_arc.assign(1, 0);
    for (int node = 0; node < structure.num_nodes(); ++node) {
        for (int a = structure.node_first_arc[at(node)]; a < structure.node_first_arc[at(node) + 1]; ++a) {
            if (structure.arc_gate[at(a)] != gate) {
                made.arc_tail.push_back(structure.arc_tail[at(a)]);
                made.arc_head.push_back(structure.arc_head[at(a)]);
                made.arc_gate.push_back(structure.arc_gate[at(a)]);
                made.arc_column.push_back(structure.arc_column[at(a)]);
            }
        }
        made.node_first_arc.push_back(made.num_arcs());
    }
    return made;
}

class plain_solver {
 public:
    plain_solver(const reach_structure& structure, const solve_answer& answer, const solve_watch& watch)
        : structure_(structure), answer_(answer), inner_{watch.stop_requested, [](const auto&) {}} {
        value_ = std::lround(answer.objective - structure.objective_constant);
        bound_ = static_cast<long>(std::floor(answer.bound - structure.objective_constant + 1e-6));
    }

    proven_range regret_of(int gate) const {
        const directions chosen = directions_of(structure_, answer_.values);
        const reach_structure closed = without_gate(structure_, gate);
        const proven_range cheap = {0, bound_ - reached_weight(closed, chosen)};
        return tighter(cheap, solve(closed));
    }

    proven_range price_of(int demand, std::vector<int>& against) const {
        // Worth more than all others: then it is satisfied wherever it can be.
        reach_structure forced = structure_;
        long total = 0;
        for (const long weight : structure_.demand_weight) {
            total += weight;
        }
        forced.demand_weight[at(demand)] += total + 1;
        solve_answer found = solve(forced);
        found.objective -= static_cast<double>(total + 1);
        found.bound -= static_cast<double>(total + 1);
        if (found.bound < structure_.objective_constant) {
            return {unattainable, unattainable};
        }
        if (found.objective < structure_.objective_constant) {
            return tighter({0, unattainable}, {solve_status::feasible, {}, -infinity, found.bound, {}});
        }
        for (int other = 0; other < structure_.num_demands(); ++other) {
            const std::size_t column = at(structure_.demand_column[at(other)]);
            if (answer_.values[column] > 0.5 && found.values[column] < 0.5) {
                against.push_back(static_cast<int>(column));
            }
        }
        std::sort(against.begin(), against.end());
        return tighter({0, unattainable}, found);
    }

 private:
    solve_answer solve(const reach_structure& changed) const {
        return solve_by_structure(changed, static_cast<int>(answer_.values.size()), inner_);
    }

    proven_range tighter(const proven_range& known, const solve_answer& found) const {
        const double lower = static_cast<double>(value_) - (found.bound - structure_.objective_constant);
        const double upper = static_cast<double>(bound_) - (found.objective - structure_.objective_constant);
        proven_range range = known;
        range.lower = std::max(range.lower, static_cast<long>(std::ceil(lower - 1e-6)));
        if (upper < static_cast<double>(range.upper)) {
            range.upper = std::lround(upper);
        }
        return range;
    }

    const reach_structure& structure_;
    const solve_answer& answer_;
    const solve_watch inner_;
    long value_;
    long bound_;
};

}  // namespace

std::optional<regret_report> find_regrets(const model_record& record, const solve_answer& answer,
                                          const regret_options& options, const solve_watch& watch) {
    const std::optional<reach_structure> structure = find_reach_structure(record);
    if (!structure || answer.values.empty()) {
        return std::nullopt;
    }
    const plain_solver solver(*structure, answer, watch);
    regret_report made;
    made.regret.resize(answer.values.size());
    made.price.resize(answer.values.size());
    made.against.resize(answer.values.size());
    std::vector<int> gates;
    std::vector<int> demands;
    for (int gate = 0; gate < 2 * structure->num_choices(); ++gate) {
        const int column = structure->gate_column[at(gate)];
        if (column >= 0 && structure->gate_column[at(gate ^ 1)] >= 0 && answer.values[at(column)] > 0.5) {
            gates.push_back(gate);
        }
    }
    for (int demand = 0; demand < structure->num_demands(); ++demand) {
        if (answer.values[at(structure->demand_column[at(demand)])] < 0.5) {
            demands.push_back(demand);
        }
    }
    const int all = static_cast<int>(gates.size() + demands.size());
    int settled = 0;
    for (const int gate : gates) {
        made.regret[at(structure->gate_column[at(gate)])] = solver.regret_of(gate);
        options.report(++settled, all);
    }
    for (const int demand : demands) {
        const std::size_t column = at(structure->demand_column[at(demand)]);
        made.price[column] = solver.price_of(demand, made.against[column]);
        options.report(++settled, all);
    }
    return made;
}

}  // namespace solver
