// Which known directions a network has, and the same network with some of them hidden.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "answer/network_record.hpp"

// An interaction whose direction, first to second, the files know: a line of "directed"
// without its reverse, or a line of "test".
struct known_direction {
    std::string first;
    std::string second;
    interaction_file file = interaction_file::test;
    int line = 0;
};

// Input files in which the hidden directions stand in "test" and the other known ones in
// "directed". Only lines that the readers took are there, so these have nothing to report.
struct hidden_input {
    input_files input;
    std::vector<int> known;                      // by line of "test" from 0: position of the known direction
    std::vector<interaction> lines_of_test;      // by line from 0: where that interaction
    std::vector<interaction> lines_of_directed;  // stood in the files as they were
};

// What the readers make of these files, read anew after reset_run_state; what they print
// is given in messages. Throws unusable_input where there are too many proteins.
network_record read_network(const input_files& input, std::string& messages);

// In the order of the files.
std::vector<known_direction> known_directions(const network_record& network);

// hidden: by position among the known directions.
hidden_input hide(const input_files& input, const network_record& network, const std::vector<char>& hidden);

// By known direction the fold that it is hidden in, from 0: drawn by the seed, as evenly as
// can be. The same on every machine.
std::vector<int> draw_folds(std::size_t num_known, int num_folds, std::uint64_t seed);
