// What a back end is: one function from a record to an answer.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "solver/model_record.hpp"

namespace solver {

enum class solve_status { unknown, feasible, optimal, infeasible, unbounded, infeasible_or_unbounded, error };

struct solve_answer {
    solve_status status = solve_status::unknown;
    std::vector<double> values;  // one per column of the record; empty = no solution
    double objective = 0.0;
    double bound = infinity;  // proven bound on the objective
    std::string reason;       // one line, set when there is no solution
};

// What a running solve tells its watcher, and how it is asked to stop.
struct solve_progress {
    const char* stage = "";
    double value = 0.0;  // best objective so far
    double bound = infinity;
};

struct solve_watch {
    std::function<bool()> stop_requested = [] { return false; };  // cheap; asked often
    std::function<void(const solve_progress&)> report = [](const auto&) {};
};

using back_end_function = solve_answer (*)(const model_record&, const solve_watch&);

// The back end that the build names.
back_end_function default_back_end();

// HiGHS on the whole record as it stands. One thread, a fixed seed.
solve_answer solve_with_highs(const model_record& record, const solve_watch& watch);

// The search that takes a model apart by its structure, with HiGHS for the programs on
// the way; on a model that does not fit the structure, HiGHS on the whole record.
solve_answer search_with_highs(const model_record& record, const solve_watch& watch);

// CPLEX on the whole record, with its settings and priorities. One thread, a fixed
// seed. The watch is called from a second thread. The library is the one that the
// build names, or the one given.
solve_answer solve_with_cplex(const model_record& record, const solve_watch& watch);
solve_answer solve_with_cplex_at(const std::string& library_path, const model_record& record, const solve_watch& watch);

}  // namespace solver
