// The linear program of a contested problem: one variable z per choice (gate 2c is
// worth z, gate 2c+1 is worth 1 - z), one y per pair, and for every pair as many of
// its cuts as it takes. No direction is left out for being unused: at an optimum
// nothing is lost by choosing one.
//
// Rows are never more than broken cuts, so the program stays small, and its bound is
// at least as tight as that of the flow model, whose rows count a prefix that two arcs
// share once for each.
//
// Where few pairs are at odds, nearly every vertex of the program is an optimum, and the
// one that a solver comes upon breaks cuts of pairs that nobody disputes. So of equals
// the program is made to take those near directions that are known to be good, by a
// weight too small to outweigh a pair: then nearly all cuts are of pairs at odds, and
// there are few (perturbation towards a point that is trusted, as in stabilised column
// generation, du Merle, Villeneuve, Desrosiers and Hansen 1999). Bounds do not rest on
// it: they are proven with the true weights.
#pragma once

#include <utility>
#include <vector>

#include "solver/bound/pair_rows.hpp"

namespace solver {

class cut_master {
 public:
    cut_master(const contested_problem& problem, const solve_watch& watch);

    // Prefers these directions among those of equal weight.
    void lean_towards(const directions& chosen);

    bool solve() { return program_.solve(); }
    // From here on by a first-order method, to the given relative tolerance (row_program.hpp).
    void solve_loosely(double tolerance) { program_.solve_loosely(tolerance); }
    // A row that all directions keep.
    void add_row(program_row row) { program_.add_row(std::move(row)); }

    // Choices come first among the columns.
    const row_program& program() const { return program_; }
    bool is_fractional(int choice) const;
    long num_fractional() const;

    // Adds the cuts that the values of the last solve break; their number. Not all of
    // them when stopped.
    int add_broken_cuts(double tolerance) { return add_cuts_broken_by(program_.values(), tolerance); }
    // The same for any values of the columns.
    int add_cuts_broken_by(const std::vector<double>& values, double tolerance);

    int num_choices() const { return problem_.num_choices(); }
    // The column of a pair's y; -1 = the pair is one gate, and counts through its choice.
    int pair_column(int pair) const { return pair_columns_[static_cast<std::size_t>(pair)]; }

 private:
    cut_master(const contested_problem& problem, pair_layout layout, const solve_watch& watch);
    gate_columns gates() const { return {2 * num_choices(), program_.num_columns()}; }

    const contested_problem& problem_;
    const solve_watch& watch_;
    std::vector<int> pair_columns_;
    row_program program_;
};

}  // namespace solver
