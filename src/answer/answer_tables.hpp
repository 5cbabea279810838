// The rows as tab-separated tables (tables/table_text.hpp).
#pragma once

#include <string>

#include "answer/answer_rows.hpp"

// "first second file line confidence direction pairs regret_min regret_max status": a row
// per interaction, in the order of the files. Regret cells are empty where there is no
// chosen direction, and where regrets were not asked for.
std::string interactions_table(const std::vector<interaction_row>& rows);

// "cause effect line status why distance paths open_paths path price_min price_max
// against": a row per line of "ko". Cells that do not apply are empty.
std::string pairs_table(const std::vector<pair_row>& rows);
