// An order of names that says nothing about where they stood in a file.
#pragma once

#include <string_view>

namespace solver {

// By a hash of the names, and of equal hashes by the names: a strict order.
bool stands_before(std::string_view name, std::string_view other);

}  // namespace solver
