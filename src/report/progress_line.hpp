// One line on a terminal that says how far a long solve is.
#pragma once

#include <chrono>
#include <string>

#include "process/terminal_writer.hpp"
#include "solver/record/back_end.hpp"

// Stands on standard error when that is a terminal, and nowhere otherwise. Appears
// when a solve takes longer than a second, is written anew at most five times a
// second, and is wiped away in the end. One thread at a time.
class progress_line {
 public:
    progress_line() = default;
    ~progress_line();
    progress_line(const progress_line&) = delete;
    progress_line& operator=(const progress_line&) = delete;

    void set(const solver::solve_progress& progress) { progress_ = progress; }
    // To be called often; writes the line when it is time to.
    void renew();

 private:
    using clock = std::chrono::steady_clock;
    const terminal_writer terminal_;
    const clock::time_point start_ = clock::now();
    clock::time_point next_ = start_ + std::chrono::seconds(1);
    bool is_shown_ = false;
    solver::solve_progress progress_{.stage = "start"};
};

// Seconds since the start, pairs satisfied, bound, gap in percent of the pairs, stage.
// What is not known yet is a dash.
std::string describe(long seconds, const solver::solve_progress& progress);
