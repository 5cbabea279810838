#include "solver/regret/root_prices.hpp"

#include <cmath>
#include <numeric>

#include "solver/bound/cut_master.hpp"
#include "solver/regret/parity_cuts.hpp"
#include "solver/structure/index.hpp"

namespace solver {
namespace {

constexpr double cut_tolerance = 1e-4;
constexpr double whole_tolerance = 1e-6;
constexpr int many_choices = 500;

void index_rows(root_prices& root) {
    root.column_first.assign(root.values.size() + 1, 0);
    for (const program_row& row : root.rows) {
        for (const int column : row.columns) {
            ++root.column_first[at(column) + 1];
        }
    }
    std::partial_sum(root.column_first.begin(), root.column_first.end(), root.column_first.begin());
    root.column_rows.resize(at(root.column_first.back()));
    std::vector<int> next = root.column_first;
    for (int r = 0; r < root.num_rows(); ++r) {
        for (const int column : root.rows[at(r)].columns) {
            root.column_rows[at(next[at(column)]++)] = r;
        }
    }
}

// Such a program is far from any directions, and more cuts would only make it large.
bool is_mostly_fractional(const cut_master& master) {
    return master.num_choices() >= many_choices && 4 * master.num_fractional() > master.num_choices();
}

// Cuts of pairs, and where there are none, rows that close small gaps.
bool add_rows(cut_master& master) {
    if (master.add_broken_cuts(cut_tolerance) > 0) {
        return true;
    }
    std::vector<const program_row*> rows;
    for (const program_row& row : master.program().rows()) {
        rows.push_back(&row);
    }
    const std::vector<program_row> cuts = find_parity_cuts(rows, master.program().values());
    for (const program_row& cut : cuts) {
        master.add_row(cut);
    }
    return !cuts.empty();
}

}  // namespace

root_prices find_root_prices(const contested_problem& problem, const directions& known, const solve_watch& watch) {
    root_prices root;
    cut_master master(problem, watch);
    master.lean_towards(known);
    do {
        if (watch.stop_requested() || !master.solve()) {
            break;
        }
        root.bound = master.program().bound();
    } while (!master.program().ran_into_limit() && !is_mostly_fractional(master) && add_rows(master));
    if (root.bound == infinity) {
        return root;
    }
    const row_program& program = master.program();
    root.rows = program.rows();
    for (int r = 0; r < root.num_rows(); ++r) {
        root.multipliers.push_back(program.multiplier(r));
    }
    for (int j = 0; j < program.num_columns(); ++j) {
        const double nearest = std::round(program.value(j));
        root.values.push_back(std::abs(program.value(j) - nearest) < whole_tolerance ? nearest : program.value(j));
        root.reduced.push_back(program.preference(j));
    }
    for (int p = 0; p < static_cast<int>(problem.pairs.size()); ++p) {
        root.pair_columns.push_back(master.pair_column(p));
    }
    index_rows(root);
    return root;
}

}  // namespace solver
