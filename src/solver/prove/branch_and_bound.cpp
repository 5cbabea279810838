#include "solver/prove/branch_and_bound.hpp"

#include <algorithm>

#include "solver/structure/index.hpp"

namespace solver {
namespace {

constexpr long most_nodes = 1 << 30;  // that fit into the solver's option
constexpr double leaning = 0.25;      // what all directions that the program leans towards are worth

// The program, leaning towards the directions given: each of them is worth a little, and
// all together less than a pair.
void pass_program(const cut_master& master, const directions& chosen, const highs_handle& highs) {
    std::vector<double> weights = master.program().weights();
    double constant = master.program().constant();
    for (int c = 0; c < master.num_choices(); ++c) {
        const double worth = leaning / master.num_choices();
        weights[at(c)] += chosen[at(c)] == 0 ? worth : -worth;
        constant += chosen[at(c)] == 0 ? 0.0 : worth;
    }
    const flat_rows rows = flatten(master.program().rows(), 0);
    const std::vector<double> lower(at(master.program().num_columns()), 0.0);
    const std::vector<double> upper(at(master.program().num_columns()), 1.0);
    std::vector<HighsInt> integrality(at(master.program().num_columns()), 0);
    std::fill_n(integrality.begin(), master.num_choices(), 1);
    Highs_passMip(highs.get(), master.program().num_columns(), rows.num_rows(), rows.num_entries(),
                  kHighsMatrixFormatRowwise, kHighsObjSenseMaximize, constant, weights.data(), lower.data(),
                  upper.data(), rows.lower.data(), rows.upper.data(), rows.starts.data(), rows.columns.data(),
                  rows.values.data(), integrality.data());
}

// The best directions known, as the solver's first incumbent.
void pass_start(const contested_problem& problem, const cut_master& master, shared_state& state,
                const directions& chosen, const highs_handle& highs) {
    state.set(chosen);
    std::vector<double> values(at(master.program().num_columns()), 1.0);
    for (int c = 0; c < master.num_choices(); ++c) {
        values[at(c)] = chosen[at(c)] == 0 ? 1.0 : 0.0;
    }
    for (const int node : state.missed()) {
        const int column = master.pair_column(problem.shared.nodes[at(node)].pair);
        if (column >= 0) {
            values[at(column)] = 0.0;
        }
    }
    Highs_setSolution(highs.get(), values.data(), nullptr, nullptr, nullptr);
}

}  // namespace

bool branch_and_bound(const contested_problem& problem, cut_master& master, shared_state& state, long max_nodes,
                      const solve_watch& watch, known_answer& known) {
    // The solver's own value is that of a relaxation, so reports show what is known here.
    solve_watch inner = watch;
    inner.report = [&known](const solve_progress& progress) { known.report("branch and bound", progress.bound); };
    while (!known.done()) {
        highs_handle highs(inner);
        highs.set_option("mip_rel_gap", 0.0);
        highs.set_option("mip_abs_gap", 1.0 - leaning - 1e-5);  // whole weights
        highs.set_option("mip_max_nodes", static_cast<int>(std::min(max_nodes, most_nodes)));
        pass_program(master, known.chosen(), highs);
        pass_start(problem, master, state, known.chosen(), highs);
        incumbent found;
        if (highs.run(found) == run_end::failed) {
            return false;
        }
        const bool finished = highs.model_status() == kHighsModelStatusOptimal;
        // Leaning and the tolerance added when a bound is rounded can only weaken it.
        known.lower_bound_on_better_to(found.bound);
        if (found.values.empty()) {
            return !finished;
        }
        state.set(nearest_directions(found.values, master.num_choices()));
        known.offer(state.chosen(), state.weight());
        const bool more_cuts = master.add_cuts_broken_by(found.values, 1e-4) > 0;
        if (!finished || !more_cuts) {
            return !finished;
        }
    }
    return true;
}

}  // namespace solver
