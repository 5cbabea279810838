// Models for the tests of the solver layer.
#pragma once

#include <vector>

#include "solver/concert.hpp"

struct column {
    double objective;
    double lower = 0.0;
    double upper = 1.0;
    bool integral = true;
};

struct row {
    double lower;  // lower <= the columns by their coefficients, zeros left out at the end <= upper
    std::vector<double> coefficients;
    double upper;
};

solver::model_record record_of(const std::vector<column>& columns, const std::vector<row>& rows);

// A model of the program's shape, small enough for every edition: packing pairs
// of binaries, flows below them, flows below sums of flows, and weights below
// sums of flows. Names by chance, by the seed: plain, with hyphens or bytes
// beyond ASCII, short and so repeated, long, or none. Same seed, same model.
solver::model_record random_record(unsigned seed);

// 100 binaries in 10 knapsacks, half of everything fits in each: solutions come at
// once, a proof of the optimum takes long.
solver::model_record long_solve();
