// The report: one HTML file that holds its data, its looks and its scripts, and asks no
// network for anything.
#pragma once

#include <string>

#include <nlohmann/json.hpp>

#include "results/results.hpp"

// What other subcommands left beside the answer; null where it is not there.
struct report_extras {
    nlohmann::ordered_json run;         // run.json
    nlohmann::ordered_json evaluation;  // evaluation.json
    nlohmann::ordered_json check;       // check.json
};

// Throws unusable_input where the program was built without the scripts that draw.
std::string report_page(const results::answer& answer, const report_extras& extras);

// The data of the page as JSON that may stand inside a script element: columns of
// numbers, proteins and words by position, -1 for an empty cell.
std::string report_data(const results::answer& answer, const report_extras& extras);
