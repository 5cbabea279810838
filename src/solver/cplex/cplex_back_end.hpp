// CPLEX as a back end.
#pragma once

#include <string>

#include "solver/record/back_end.hpp"

namespace solver {

// The whole record, with its settings and priorities. One thread, a fixed seed. The watch
// is called from a second thread. The library is the one that the build names, or the
// one given.
solve_answer solve_with_cplex(const model_record& record, const solve_watch& watch);
solve_answer solve_with_cplex_at(const std::string& library_path, const model_record& record, const solve_watch& watch);

// Of the library that the build names, "22.2.0". Throws std::runtime_error when it cannot
// be opened.
std::string cplex_version();

}  // namespace solver
