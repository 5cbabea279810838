// A linear program over a region of a larger one, for a question that moves few columns.
//
// In the region are a few rows of the larger program and the columns that they hold. All
// other rows are priced at the multipliers of the larger program's optimum (Lagrangian
// relaxation, Geoffrion 1974), so their columns are worth their reduced weights, and any
// duals of the region's rows, clipped to their signs, prove a bound on everything. What the
// region leaves out stays at that optimum. So only rows that hold a column that moved can be
// broken, or no longer be worth their price: these are taken in, and cuts that the moved
// choices break are added, until there are none. Then the bound is that of the whole program.
//
// Bounded: a program of some tens of rows each time, and what was moved is all that is looked
// at in between.
#pragma once

#include <deque>
#include <vector>

#include "solver/regret/region_solver.hpp"
#include "solver/regret/root_prices.hpp"

namespace solver {

class region_program {
 public:
    // All must outlive this.
    region_program(const contested_problem& problem, const root_prices& root, const solve_watch& watch);

    // Forgets the region and all below.
    void begin();
    // Adds to a column's weight; bounds are those of the sum, less the amount.
    void favour(int column, double amount);
    void fix(int column, double value);
    void release(int column) { fixed_[static_cast<std::size_t>(local(column))] = not_fixed; }
    // Takes in the rows that hold a column.
    void take_in(int column);

    // Solves the region's program. False when the solver failed.
    bool solve();
    // Takes in what the last solution breaks or charges too much for. False when there is nothing.
    bool grow();
    // Takes in rows that follow from the region's and that the last solution breaks
    // (parity_cuts.hpp). False when there are none.
    bool cut_fractions();

    double bound() const { return bound_; }
    // In the order in which they were taken in.
    const std::vector<int>& columns() const { return columns_; }
    double value(int column) const { return values_[static_cast<std::size_t>(column)]; }
    int num_rows() const { return static_cast<int>(region_.size()); }

 private:
    static constexpr double not_fixed = -1.0;
    struct priced_row {
        const program_row* row;
        double price;
    };

    int local(int column);
    void add_row(const program_row& row, double price);
    region_columns make_columns() const;
    flat_rows take_new_rows();
    void prove_bound();
    void take_in_rows_of(int column);
    void take_in_cuts(int column);
    void separate(int pair);
    void set_value(int column, double value);

    const contested_problem& problem_;
    const root_prices& root_;
    region_solver solver_;
    std::vector<std::vector<int>> pairs_of_gate_;  // those with a column
    std::vector<int> pair_of_column_;              // -1 = of a choice

    std::vector<double> values_;       // by column, the root's outside of the region
    std::vector<double> gate_values_;  // likewise
    std::vector<int> local_of_;        // by column: its place in the region, -1 = outside
    std::vector<char> has_row_;        // by row of the root
    std::vector<char> is_separated_;   // by pair, during grow

    std::vector<int> columns_;  // of the region, and by place in it:
    std::vector<double> weights_;
    std::vector<double> fixed_;
    std::vector<priced_row> region_;
    std::vector<int> root_rows_;        // of region_
    std::deque<program_row> own_rows_;  // cuts that the root does not have
    double favoured_ = 0.0;
    std::size_t rows_passed_ = 0;  // to the solver
    double bound_ = infinity;
};

}  // namespace solver
