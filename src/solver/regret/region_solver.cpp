#include "solver/regret/region_solver.hpp"

#include <algorithm>

namespace solver {
namespace {

constexpr int many_rows = 2000;

}  // namespace

region_solver::region_solver(const solve_watch& watch) : watch_(watch), highs_(watch) {
    highs_.set_option("presolve", "off");
    highs_.set_option("solver", "simplex");
}

void region_solver::forget() {
    num_columns_ = num_rows_ = 0;
    Highs_clearModel(highs_.get());
}

void region_solver::pass(const region_columns& columns, const flat_rows& new_rows) {
    const HighsInt known = num_columns_;
    if (known > 0) {
        Highs_changeColsCostByRange(highs_.get(), 0, known - 1, columns.costs.data());
        Highs_changeColsBoundsByRange(highs_.get(), 0, known - 1, columns.lower.data(), columns.upper.data());
    }
    num_columns_ = static_cast<HighsInt>(columns.costs.size());
    if (num_columns_ > known) {
        Highs_addCols(highs_.get(), num_columns_ - known, columns.costs.data() + known, columns.lower.data() + known,
                      columns.upper.data() + known, 0, nullptr, nullptr, nullptr);
    }
    if (new_rows.num_rows() > 0) {
        Highs_addRows(highs_.get(), new_rows.num_rows(), new_rows.lower.data(), new_rows.upper.data(),
                      new_rows.num_entries(), new_rows.starts.data(), new_rows.columns.data(), new_rows.values.data());
    }
    num_rows_ += new_rows.num_rows();
}

// A small program ends before anybody would ask for a stop.
bool region_solver::run() {
    if (num_rows_ > many_rows ? highs_.run() != run_end::finished : Highs_run(highs_.get()) == kHighsStatusError) {
        return false;
    }
    values_.resize(static_cast<std::size_t>(num_columns_));
    multipliers_.resize(static_cast<std::size_t>(num_rows_));
    Highs_getSolution(highs_.get(), values_.data(), nullptr, nullptr, multipliers_.data());
    for (double& multiplier : multipliers_) {
        multiplier = std::max(0.0, -multiplier);
    }
    return highs_.model_status() == kHighsModelStatusOptimal;
}

bool region_solver::solve(const region_columns& columns, const flat_rows& new_rows) {
    pass(columns, new_rows);
    if (run()) {
        return true;
    }
    if (watch_.stop_requested()) {
        return false;
    }
    Highs_clearSolver(highs_.get());  // some runs from a known basis end without a status
    return run();
}

}  // namespace solver
