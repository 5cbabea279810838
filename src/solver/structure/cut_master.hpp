// The linear program of a contested problem: one variable z per choice (gate 2c is
// worth z, gate 2c+1 is worth 1 - z), one y per pair, and for every pair as many of
// its cuts as it takes. No direction is left out for being unused: at an optimum
// nothing is lost by choosing one.
//
// Rows are never more than violated cuts, so the program stays small, and its bound
// is at least as tight as that of the flow model, whose rows count a prefix that two
// arcs share once for each.
#pragma once

#include <vector>

#include "solver/highs_handle.hpp"
#include "solver/structure/contested_problem.hpp"
#include "solver/structure/separate.hpp"

namespace solver {

// sum of value * column <= upper
struct master_row {
    std::vector<int> columns;
    std::vector<double> values;
    double upper;
};

class cut_master {
 public:
    cut_master(const contested_problem& problem, const solve_watch& watch);

    // Solves the program with the rows so far. False when stopped or failed: then the
    // values are those of the solve before.
    bool solve();

    // The largest weight that any directions can reach, proven by the duals of the last
    // solve: recomputed from them, clipped to their signs, so that no tolerance of the
    // solver enters.
    double proven_bound() const { return proven_bound_; }

    double choice_value(int choice) const { return values_[static_cast<std::size_t>(choice)]; }

    // Adds the cuts that the values of the last solve break; their number.
    int add_broken_cuts(double tolerance) { return add_cuts_broken_by(values_, tolerance); }
    // The same for any values of the columns.
    int add_cuts_broken_by(const std::vector<double>& values, double tolerance);

    // Of the last solve: what its duals alone prove, and by how much the bound falls at
    // least when a choice leaves the direction that it prefers (positive: gate 2c).
    double last_bound() const { return last_bound_; }
    double preference(int choice) const { return reduced_[static_cast<std::size_t>(choice)]; }

    const std::vector<master_row>& rows() const { return rows_; }
    const std::vector<double>& column_weights() const { return weights_; }
    double constant() const { return constant_; }
    int num_choices() const { return num_choices_; }
    int num_columns() const { return static_cast<int>(weights_.size()); }
    int pair_column(int pair) const { return pair_columns_[static_cast<std::size_t>(pair)]; }

 private:
    void add_cut(int pair, const gate_cut& cut);
    void flush_rows();
    void read_solution();

    const contested_problem& problem_;
    highs_handle highs_;
    int num_choices_;
    std::vector<double> weights_;    // by column
    std::vector<int> pair_columns_;  // -1 = the pair is one gate, and counts through its choice
    double constant_ = 0.0;
    std::vector<master_row> rows_;
    std::size_t rows_passed_ = 0;
    std::vector<double> values_;
    std::vector<double> reduced_;
    double last_bound_ = infinity;
    double proven_bound_;
};

}  // namespace solver
