// An evaluation as a table, as JSON, and as text for people.
#pragma once

#include <string>

#include <nlohmann/json.hpp>

#include "evaluation/summary.hpp"

// "fold first second file line found right status regret_min regret_max outgoing_share
// nearer_to_causes": a row per hidden direction, first to second. found as in
// interactions.tsv; right is yes or no, empty when none was found; each baseline says
// right, wrong or undecided.
std::string evaluation_table(const evaluation& made);

nlohmann::ordered_json evaluation_json(const evaluation& made, const evaluation_summary& summary,
                                       const evaluation_choices& choices, const provenance& origin,
                                       const input_files& input);

std::string evaluation_text(const evaluation_summary& summary, const evaluation& made,
                            const evaluation_choices& choices);
