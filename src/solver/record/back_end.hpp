// What a back end is: a function from a model to an answer, and what the two are told of
// each other meanwhile.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "solver/record/model_record.hpp"

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

// Called from one thread at a time, as a rule the one that solves.
struct solve_watch {
    std::function<bool()> stop_requested = [] { return false; };  // cheap; asked often
    std::function<void(const solve_progress&)> report = [](const auto&) {};
};

struct reach_structure;  // solver/structure

// A back end says what it takes: the record as it stands, or, where the record has that
// structure, the structure instead. Values are given for all columns of the record.
using record_solver = solve_answer (*)(const model_record&, const solve_watch&);
using structure_solver = solve_answer (*)(const reach_structure&, int num_columns, const solve_watch&);

struct back_end {
    record_solver of_record;
    structure_solver of_structure = nullptr;  // null = takes records only

    constexpr back_end(record_solver record, structure_solver structure = nullptr)
        : of_record(record), of_structure(structure) {}
};

}  // namespace solver
