// "ko": which protein's loss was seen to change which other protein.
#pragma once

#include "input/text_file.hpp"

// Appends every effect to its cause's targets in `sources`, repeats and all, and
// counts the pairs in num_of_pairs. Reports a file that does not open, and lines
// with an unknown name.
void read_knockouts(text_file& file);
