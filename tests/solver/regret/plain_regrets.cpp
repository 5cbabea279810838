#include "solver/regret/plain_regrets.hpp"

#include <cmath>
#include <numeric>

#include "solver/prove/structured_back_end.hpp"
#include "solver/structure/index.hpp"

using namespace solver;

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

long best_value(const reach_structure& structure, int num_columns) {
    return std::lround(solve_by_structure(structure, num_columns, {}).objective);
}

}  // namespace

regret_report plain_regrets(const model_record& record, const solve_answer& answer) {
    const reach_structure structure = *find_reach_structure(record);
    const long best = std::lround(answer.objective);
    const directions chosen = directions_of(structure, answer.values);
    const int num_columns = record.num_columns();
    regret_report made;
    made.regret.resize(answer.values.size());
    made.price.resize(answer.values.size());
    for (int gate = 0; gate < 2 * structure.num_choices(); ++gate) {
        const int column = structure.gate_column[at(gate)];
        if (column >= 0 && structure.gate_column[at(gate ^ 1)] >= 0 && answer.values[at(column)] == 1.0) {
            directions turned = chosen;
            turned[at(gate / 2)] ^= 1;
            const bool is_tied = reached_weight(structure, turned) == best;
            const long regret = is_tied ? 0 : best - best_value(without_gate(structure, gate), num_columns);
            made.regret[at(column)] = {regret, regret};
        }
    }
    // Worth more than all others, a demand is satisfied wherever it can be.
    const long worth = 1 + std::accumulate(structure.demand_weight.begin(), structure.demand_weight.end(), 0L);
    for (int demand = 0; demand < structure.num_demands(); ++demand) {
        const int column = structure.demand_column[at(demand)];
        if (answer.values[at(column)] == 0.0) {
            reach_structure raised = structure;
            raised.demand_weight[at(demand)] += worth;
            const long with_it = best_value(raised, num_columns) - worth;
            const long price = with_it < 0 ? unattainable : best - with_it;
            made.price[at(column)] = {price, price};
        }
    }
    return made;
}
