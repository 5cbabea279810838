// Columns and rows of a program over choices and pairs: what the plain one (cut_master.hpp)
// and the tighter one (chain_bound.hpp) have in common.
//
// The columns of the choices come first, z = 1 when gate 2c is open: gate 2c is worth z,
// gate 2c+1 is worth 1 - z. Gates beyond those of the choices, where there are any, have
// columns of their own.
#pragma once

#include <optional>
#include <vector>

#include "solver/bound/row_program.hpp"
#include "solver/bound/separate.hpp"
#include "solver/reduce/contested_problem.hpp"

namespace solver {

// The weight of a pair of one gate goes to its choice, any other pair gets a column.
struct pair_layout {
    std::vector<double> weights;
    std::vector<int> pair_columns;  // -1 = the pair is one gate
    double constant = 0.0;
};
pair_layout lay_out_pairs(const contested_problem& problem);

// Appends a choice's gate's part of "... - gate" to a row.
void subtract_gate(program_row& row, int gate);

// Of the gates of the choices, given values of the columns.
std::vector<double> gate_values_of(const std::vector<double>& values, int num_choices);

// Where the gates of a network have their columns.
struct gate_columns {
    int num_gates;    // of the choices
    int first_other;  // column of the gate that follows them
};

// The row y <= sum of the cut's gates for the pair with this column. Nothing, when the cut
// holds both directions of a choice, one of which is always open.
std::optional<program_row> cut_row(int pair_column, const gate_cut& cut, const gate_columns& gates);

// Adds that row, if there is one.
void add_cut_row(row_program& program, int pair_column, const gate_cut& cut, const gate_columns& gates);

// Adds the rows of the cuts of the nets, one per pair, that the values break by more than
// tolerance. Values: of the gates, and of the columns for the pairs. Not all of them when
// stopped.
void add_broken_cut_rows(row_program& program, const std::vector<pair_net>& nets, const std::vector<int>& pair_columns,
                         const std::vector<double>& gate_values, const std::vector<double>& values, double tolerance,
                         const gate_columns& gates, const solve_watch& watch);

}  // namespace solver
