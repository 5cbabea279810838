// An LP file taken apart word by word, and held to the record that it was written from.
#pragma once

#include <string>

#include "solver/record/model_record.hpp"

// What the text says otherwise than the record, of a model like the program's: every
// column between 0 and 1, every row at most a number. Empty = nothing.
std::string difference(const solver::model_record& record, const std::string& text);
