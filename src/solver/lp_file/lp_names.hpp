// Names as an LP file may hold them.
#pragma once

#include "solver/record/name_list.hpp"

namespace solver {

// Legal, distinct names for rows or columns: prefix ('c' or 'x') and number for an
// unnamed one; if any name is illegal or repeats, every one gets '#' and its position.
name_list lp_names(const name_list& names, char prefix);

}  // namespace solver
