// A run with all that its answer rests on: the phases of the program, then regrets and
// prices, then the rows of the tables.
#pragma once

#include <functional>
#include <optional>
#include <string>

#include "answer/run_record.hpp"

struct answer_choices {
    std::optional<std::string> output;  // folder, with its slash, of the run's own three files; none = no files
    std::optional<double> time_limit;   // seconds for the solve
    bool with_regrets = true;
    std::optional<double> regret_time;  // seconds for regrets and prices
    int jobs = 1;                       // threads for them; what is found does not depend on it
    // A wish to end early, from any thread: everything is then written with what there is.
    std::function<bool()> stop_requested = [] { return false; };
    // How many regrets and prices of all are settled; from any thread, one at a time.
    std::function<void(int settled, int all)> report = [](int, int) {};
};

struct answered_run {
    network_record network;
    answer_rows rows;
    run_outcome outcome;
};

// Over the state that start-up or reset_run_state left. Prints what the program prints.
// Throws unusable_input where there are more proteins than a network may have, and
// std::runtime_error where the solve fails.
answered_run answer_run(const input_files& input, const answer_choices& choices);

// Writes the tables and run.json, each whole or not at all, and copies the input's
// aliases.tsv, if there is one. Throws std::system_error.
void write_answer(const std::string& output, const input_files& input, const answered_run& run,
                  const provenance& origin);
// Takes away what write_answer leaves, so that a run that fails leaves no old tables.
void remove_answer(const std::string& output);
