// HiGHS as a back end.
#pragma once

#include <string>

#include "solver/record/back_end.hpp"

namespace solver {

// The whole record as it stands. One thread, a fixed seed.
solve_answer solve_with_highs(const model_record& record, const solve_watch& watch);

std::string highs_version();  // of the library that is linked, "1.15.1"

}  // namespace solver
