// The linear program of all pairs with nothing decided (bound/cut_master.hpp), solved once,
// and what it charges: by its multipliers, rows that a question leaves out still count in a
// bound, and columns that it leaves out are worth their reduced weight.
#pragma once

#include <vector>

#include "solver/bound/row_program.hpp"
#include "solver/record/back_end.hpp"
#include "solver/reduce/contested_problem.hpp"

namespace solver {

struct root_prices {
    std::vector<program_row> rows;
    std::vector<double> multipliers;  // by row, at least 0
    std::vector<double> values;       // by column, of an optimum; choices first, then pairs
    std::vector<double> reduced;      // by column: its weight less what the rows charge
    double bound = infinity;          // on all directions; infinity when stopped before there was one
    std::vector<int> pair_columns;    // -1 = the pair is one gate, and counts through its choice
    std::vector<int> column_first;    // rows that hold column j: column_rows[column_first[j]] ..
    std::vector<int> column_rows;

    int num_columns() const { return static_cast<int>(values.size()); }
    int num_rows() const { return static_cast<int>(rows.size()); }
};

// Leans towards the directions given, which are the best known.
root_prices find_root_prices(const contested_problem& problem, const directions& known, const solve_watch& watch);

}  // namespace solver
