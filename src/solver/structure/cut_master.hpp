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

#include <vector>

#include "solver/structure/contested_problem.hpp"
#include "solver/structure/row_program.hpp"
#include "solver/structure/separate.hpp"

namespace solver {

// Columns of a program of choices and pairs: the weight of a pair of one gate goes to
// its choice, any other pair gets a column of its own.
struct pair_layout {
    std::vector<double> weights;
    std::vector<int> pair_columns;
    double constant = 0.0;
};
pair_layout lay_out_pairs(const contested_problem& problem);

// Appends a gate's part of "... - gate" to a row over choices.
void subtract_gate(program_row& row, int gate);

class cut_master {
 public:
    cut_master(const contested_problem& problem, const solve_watch& watch);

    // Prefers these directions among those of equal weight.
    void lean_towards(const directions& chosen);

    bool solve() { return program_.solve(); }

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
    void add_cut(int pair, const gate_cut& cut);

    const contested_problem& problem_;
    const solve_watch& watch_;
    std::vector<int> pair_columns_;
    row_program program_;
};

}  // namespace solver
