// Rows that follow from others by adding them up, halving and rounding.
//
// All variables are whole and every row has whole coefficients and a whole right side. So
// where a sum of rows has even coefficients and an odd right side, half of it may be rounded
// down: what an odd cycle of pairs at odds needs (zero-half cuts, Caprara and Fischetti 1996).
// Of the rows that a solution meets exactly, those that add up to even coefficients on the
// fractional columns are found by elimination modulo 2 (Andreello, Caprara and Fischetti
// 2007); columns at 0 or 1 are rounded at no loss. Each row found is broken by one half.
//
// Bounded: an elimination of the rows that hold a fractional column, or nothing where these are
// more than some hundreds.
#pragma once

#include <vector>

#include "solver/bound/row_program.hpp"

namespace solver {

// Values by column, in [0, 1]; whole but for rounding errors where they are not fractional.
std::vector<program_row> find_parity_cuts(const std::vector<const program_row*>& rows,
                                          const std::vector<double>& values);

}  // namespace solver
