// How often directions are right: known ones are hidden, found again, and judged.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "answer/answer_run.hpp"
#include "evaluation/baselines.hpp"
#include "evaluation/hiding.hpp"

enum class way_of_hiding { all, folds, given };

inline constexpr std::array<const char*, 3> way_names = {"all", "folds", "given"};

struct evaluation_choices {
    way_of_hiding way = way_of_hiding::all;
    int folds = 10;
    std::uint64_t seed = 1;
    answer_choices run;  // jobs: processes for folds, else threads
    // How many folds of all are done; one at a time.
    std::function<void(int done, int all)> report = [](int, int) {};
};

struct judged_direction {
    int fold = 0;
    int known = 0;  // position among the known directions
    found_direction found = found_direction::none;
    interaction_status status = interaction_status::unused;
    bool has_regret = false;
    solver::proven_range regret;
    vote share = vote::undecided;     // of by_outgoing_share
    vote nearness = vote::undecided;  // of by_nearness_to_causes

    bool is_right() const { return found == found_direction::first_to_second; }
};

struct evaluated_run {
    int fold = 0;
    bool optimal = false;
    long value = 0;
    long bound = 0;
};

struct evaluation {
    std::vector<known_direction> known;
    std::vector<judged_direction> judged;  // of folds in their order, each in the order of known
    std::vector<evaluated_run> runs;       // folds that did not begin before a stop are not there
    std::string messages;                  // what the readers print about the files
    // Of all and given: the one run, its rows with the lines of the files as they are.
    std::optional<answered_run> run;
};

// Throws as answer_run and run_in_processes do.
evaluation evaluate(const input_files& input, const evaluation_choices& choices);
