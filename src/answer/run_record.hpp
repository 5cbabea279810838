// What a run was: of what it was made, how it ended, and what its tables count.
#pragma once

#include <string>
#include <vector>

#include <nlohmann/json.hpp>

#include "answer/answer_rows.hpp"

struct provenance {
    std::string version;                 // of this project
    std::vector<std::string> arguments;  // subcommand first
    std::string started;                 // UTC, "2026-01-31T12:00:00Z"
    double duration = 0.0;               // seconds
};

struct run_outcome {
    std::string solver;  // name and version
    std::string status;  // as standard output shows it
    long value = 0;      // pairs explained
    long bound = 0;      // no orientation explains more
    bool has_regrets = false;
};

// In a fixed order of keys. Two runs of the same input differ in "started" and
// "duration_seconds" alone, whatever the machine.
nlohmann::ordered_json run_json(const provenance& origin, const run_outcome& outcome, const input_files& input,
                                const answer_rows& rows);

// What run.json and evaluation.json begin with: program, arguments, times, and the input
// files with their SHA-256 digests and numbers of lines.
nlohmann::ordered_json origin_json(const provenance& origin, const input_files& input);

// As a file holds it: two blanks for each level, a line feed at the end. Bytes that are
// no UTF-8 are shown as U+FFFD.
std::string json_text(const nlohmann::ordered_json& json);
