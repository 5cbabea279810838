// The back ends that can be chosen by name, put together.
#pragma once

#include <string>

#include "solver/record/back_end.hpp"

namespace solver {

// The search that takes a model apart by its structure, with HiGHS for the programs on
// the way; a model that does not fit the structure goes to HiGHS as it is.
extern const back_end search_with_highs;

// The back end that the build names, and the solver behind it with its version.
const back_end& default_back_end();
std::string default_solver();

}  // namespace solver
