// Models for the tests of the solver layer.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "solver/record/back_end.hpp"

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

// Appends, and gives the column's position.
int add_column(solver::model_record& record, const column& added, const std::string& name = {});
// Appends lower <= sum of value * column <= upper.
void add_row(solver::model_record& record, double lower, std::vector<std::pair<int, double>> terms, double upper);

// Appends first <= sum of the others.
void add_bound(solver::model_record& record, int first, const std::vector<int>& others);

// A model in mathematics, with its optimum and why it is one.
struct stated_model {
    const char* statement;
    solver::model_record record;
    solver::solve_status status;
    double optimum = 0.0;
    bool has_range = false;  // a row with two different sides
};
std::vector<stated_model> stated_models();

// Two of the stated ones. The second has a relative gap of 0, and bounds far from whole.
solver::model_record opposite_pairs();
solver::model_record odd_cycles();

// A contested model of the program's shape, small enough for every edition: at most
// 1,000 rows and columns. Names by chance, by the seed: plain, with hyphens or bytes
// beyond ASCII, short and so repeated, long, or none. Same seed, same model.
solver::model_record named_reach_model(unsigned seed);

// 100 binaries in 10 knapsacks, about half of everything fits in each: solutions come at
// once, a proof of the optimum takes long.
solver::model_record long_solve();
