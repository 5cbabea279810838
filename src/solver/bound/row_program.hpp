// A linear program over variables in [0, 1] that grows by rows, and a bound on it that
// can be believed: maximise the weights subject to sums <= their right sides.
#pragma once

#include <vector>

#include "solver/highs/highs_handle.hpp"

namespace solver {

// sum of value * column <= upper
struct program_row {
    std::vector<int> columns;
    std::vector<double> values;
    double upper = 0.0;
};

// Rows one after another, as HiGHS takes them.
struct flat_rows {
    std::vector<HighsInt> starts;
    std::vector<HighsInt> columns;
    std::vector<double> values;
    std::vector<double> lower;  // none
    std::vector<double> upper;
    HighsInt num_rows() const { return static_cast<HighsInt>(upper.size()); }
    HighsInt num_entries() const { return static_cast<HighsInt>(columns.size()); }
};
flat_rows flatten(const std::vector<program_row>& rows, std::size_t first);

class row_program {
 public:
    // A constant is added to every objective and bound. The watch must outlive this.
    row_program(std::vector<double> weights, double constant, const solve_watch& watch);

    void add_row(program_row row);
    // Adds to a column's weight in solves to come, but not in the bounds and preferences
    // that they prove.
    void favour(int column, double amount);
    // From here on solves by HiGHS's first-order method, to the given relative tolerance, and
    // where that fails by its interior point method.
    void solve_loosely(double tolerance);

    // A simplex solve that takes more iterations ends there; what it gives is a bound all
    // the same, if a weak one.
    void limit_iterations(int limit);

    // False when stopped or failed; then everything below is of the solve before.
    bool solve();
    // Of the last solve: iterations of the simplex method times rows, or those of the
    // first-order method times entries.
    double work() const { return work_; }
    bool ran_into_limit() const { return highs_.model_status() == kHighsModelStatusIterationLimit; }

    const std::vector<double>& values() const { return values_; }
    double value(int column) const { return values_[static_cast<std::size_t>(column)]; }

    // No values in [0, 1] that keep the rows weigh more: recomputed from the duals of the
    // last solve, clipped to their signs, so that no tolerance of the solver enters.
    double bound() const { return bound_; }
    // By how much, at least, that bound falls when a column leaves the end of [0, 1] that
    // it prefers: positive for 1.
    double preference(int column) const { return reduced_[static_cast<std::size_t>(column)]; }

    // What the last solve charges for a row, at least 0; 0 for a row added since.
    double multiplier(int row) const {
        return static_cast<std::size_t>(row) < multipliers_.size() ? multipliers_[static_cast<std::size_t>(row)] : 0.0;
    }

    const std::vector<program_row>& rows() const { return rows_; }
    const std::vector<double>& weights() const { return weights_; }
    double constant() const { return constant_; }
    int num_columns() const { return static_cast<int>(weights_.size()); }
    int num_rows() const { return static_cast<int>(rows_.size()); }

 private:
    void pass_new_rows();
    void prove_bound();

    highs_handle highs_;
    std::vector<double> weights_;
    double constant_;
    std::vector<program_row> rows_;
    std::size_t rows_passed_ = 0;
    std::vector<double> values_;
    std::vector<double> reduced_;  // by column: weight less what the rows charge
    std::vector<double> multipliers_;
    bool is_loose_ = false;
    long num_entries_ = 0;
    double work_ = 0.0;
    double bound_ = infinity;
};

}  // namespace solver
