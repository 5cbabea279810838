// What a run would make of an input folder, and why, without a run.
#pragma once

#include "checking/network_check.hpp"
#include "input/read_data.hpp"

// Takes the same files as read_data and changes none of the run's own state. A file that
// does not open is a finding.
//
// Only the search for paths takes long: `watch` is told after each cause how many pairs, of all, are done.
input_check check_input(const input_opener& open_input, const search_watch& watch = {});

// As text for people, and as JSON. Line numbers, names and pairs are cut after `shown` of
// a kind; their count always stands beside them.
std::string check_text(const input_check& check, std::size_t shown);
std::string check_json(const input_check& check, std::size_t shown);
