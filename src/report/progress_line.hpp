// One line on a terminal that says how far a long solve is.
#pragma once

#include <string>

#include "process/renewed_line.hpp"
#include "solver/record/back_end.hpp"

// As renewed_line says.
class progress_line {
 public:
    void set(const solver::solve_progress& progress) { progress_ = progress; }
    // To be called often; writes the line when it is time to.
    void renew();

 private:
    renewed_line line_;
    solver::solve_progress progress_{.stage = "start"};
};

// Seconds since the start, pairs satisfied, bound, gap in percent of the pairs, stage.
// What is not known yet is a dash.
std::string describe(long seconds, const solver::solve_progress& progress);
