// What the subcommands that run the program have in common.
#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <vector>

#include <CLI/CLI.hpp>

#include "answer/answer_run.hpp"

struct run_options {
    std::string input;
    std::string output;
    std::string time_limit;  // "30s", "10m", "2h"; empty = none
    std::string regret_time;
    bool no_regret = false;
    int jobs = 0;  // 0 = as many as there are processors
};

// INPUT, OUTPUT and the limits.
void add_run_options(CLI::App& command, run_options& options);

// The choices that the options say, but for what is to be written and watched.
answer_choices choices_of(const run_options& options);

// The folder with its slash; it is made when it is not there. Throws unusable_input when it
// cannot be made or written to.
std::string output_folder(const std::string& path);

// Seconds of "30s", "10m" or "2h"; nothing when the text is none of these.
std::optional<double> seconds_of(const std::string& text);

// What the program was called with, and when it began.
class run_clock {
 public:
    explicit run_clock(std::vector<std::string> arguments);
    provenance now() const;

 private:
    std::vector<std::string> arguments_;
    std::string started_;
    std::chrono::steady_clock::time_point start_ = std::chrono::steady_clock::now();
};
