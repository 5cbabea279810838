// What every answer better than a known one must have in common.
//
// The program's bound falls by a choice's reduced weight when the choice leaves the
// direction that the program prefers. Where it would fall below the next better weight,
// the choice keeps that direction (Dantzig, Fulkerson and Johnson 1954), which settles
// more choices in turn (settle.hpp).
#pragma once

#include <optional>

#include "solver/bound/row_program.hpp"
#include "solver/reduce/settle.hpp"

namespace solver {

// The rest of the problem, after a solve of a program whose columns begin with the
// choices. Nothing, if less than half of the choices are fixed.
std::optional<settled_problem> fix_choices(const contested_problem& problem, const row_program& program, long weight);

}  // namespace solver
