// HiGHS on a small program that grows by columns and rows: each run starts from the basis of
// the one before.
#pragma once

#include <vector>

#include "solver/bound/row_program.hpp"
#include "solver/highs/highs_handle.hpp"

namespace solver {

// By column; those of the solve before come first.
struct region_columns {
    std::vector<double> costs;
    std::vector<double> lower;
    std::vector<double> upper;
};

class region_solver {
 public:
    // The watch must outlive this.
    explicit region_solver(const solve_watch& watch);

    void forget();
    // Minimises the costs under all rows so far. False when stopped or failed.
    bool solve(const region_columns& columns, const flat_rows& new_rows);

    // Of the last solve; multipliers at least 0.
    const std::vector<double>& values() const { return values_; }
    const std::vector<double>& multipliers() const { return multipliers_; }

 private:
    void pass(const region_columns& columns, const flat_rows& new_rows);
    bool run();

    const solve_watch& watch_;
    highs_handle highs_;
    HighsInt num_columns_ = 0;
    HighsInt num_rows_ = 0;
    std::vector<double> values_;
    std::vector<double> multipliers_;
};

}  // namespace solver
