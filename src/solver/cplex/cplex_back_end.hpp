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

}  // namespace solver
