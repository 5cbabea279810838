// From the files that people have to the five files of a run.
#pragma once

#include "importing/import_plan.hpp"
#include "importing/import_watch.hpp"

inline constexpr std::size_t most_proteins = 9999;  // that a run takes

// Reads all files of the plan and makes one network of them. Of two proteins joined by
// several rows, rows with a direction win over those without, and of rows that say the same
// the highest confidence counts. Knockout pairs stay if both names are in the network, once
// each. More than 9,999 proteins are cut down to what lies on a shortest path of a pair.
//
// Throws unusable_input for what cannot be read, when nothing remains, when a run could not
// find all names, and when too many proteins remain: the text then says how many each
// confidence threshold would leave.
import_result import_network(const import_plan& plan, const import_watch& watch = {});

// The account as text for people, and as JSON together with the plan and the
// version of the program.
std::string import_text(const import_plan& plan, const import_result& result);
std::string import_json(const import_plan& plan, const import_result& result, const std::string& version);

// Writes the five files, import.json and aliases.tsv into the folder, which is made if it is
// not there; all of them or none. Throws unusable_input when the folder holds input files
// that no import wrote, std::system_error when writing fails.
void write_import(const std::string& folder, const import_plan& plan, const import_result& result,
                  const std::string& version);
