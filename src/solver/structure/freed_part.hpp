// The problem that is left when only some choices may turn, and the way back from it.
#pragma once

#include <vector>

#include "solver/structure/settle.hpp"

namespace solver {

struct freed_part {
    settled_problem rest;  // of what the others leave open; its pairs count those of the problem given
    directions around;     // by choice of the problem given, what settling has decided among them

    // The directions that the rest's choices had.
    directions before() const;
    // All directions, with these for the rest's choices.
    directions with(const directions& chosen) const;
};

// free: by choice, 1 = may turn. The others keep their directions. Some best answer
// under that condition agrees with what settling decides.
freed_part free_choices(contested_problem problem, const std::vector<char>& free, const directions& current);

}  // namespace solver
