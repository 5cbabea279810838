// A record whose rows and columns stand in the order of its structure, which says
// nothing about the order in which an input file names the ends of an interaction.
#pragma once

#include <vector>

#include "solver/record/back_end.hpp"
#include "solver/structure/reach_structure.hpp"

namespace solver {

// Columns: gates by choice, flows by arc, idle flows, demands. Rows: by the columns
// that they hold. order takes, by position in the result, the column of the record.
model_record neutral_record(const model_record& record, const reach_structure& structure, std::vector<int>& order);

// Solves the neutral record; values come back in the order of the record given.
solve_answer solve_in_neutral_order(const model_record& record, const reach_structure& structure, record_solver solve,
                                    const solve_watch& watch);

}  // namespace solver
