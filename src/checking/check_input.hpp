// What a run would make of an input folder, and why, without a run.
#pragma once

#include "checking/findings.hpp"
#include "input/read_data.hpp"

// Takes the same files as read_data and changes none of the run's own state. A file that
// does not open is a finding.
input_check check_input(const input_opener& open_input);

// As text for people, and as JSON. Line numbers, names and pairs are cut after `shown` of
// a kind; their count always stands beside them.
std::string check_text(const input_check& check, std::size_t shown);
std::string check_json(const input_check& check, std::size_t shown);
