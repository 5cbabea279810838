// Names that the drawings of a run cannot bear. Their labels are written bare where the
// graph library takes them for an identifier or a number, and in double quotes, with only
// the quotes inside escaped, where not.
#pragma once

#include <string_view>

// False for a word of Graphviz's language in any case, for "." and "-.", which pass for
// numbers, and for a name with a backslash, which takes the meaning of what follows it.
bool is_drawable(std::string_view name);
