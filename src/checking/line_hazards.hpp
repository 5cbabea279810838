// What can be seen of a file's lines without reading them as a run does.
#pragma once

#include "checking/findings.hpp"
#include "checking/source_lines.hpp"

// Of names.txt, one name a line.
void find_name_hazards(const source_lines& lines, file_check& file);
// Of the other files, whose lines are two names and a rest.
void find_pair_hazards(const source_lines& lines, file_check& file);
