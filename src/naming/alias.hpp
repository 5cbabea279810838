// Names that the five input files or the drawings cannot hold get another one there.
#pragma once

#include <map>
#include <string>
#include <string_view>
#include <vector>

inline constexpr std::size_t longest_name = 19;  // bytes

// True for 1 to 19 visible ASCII characters that the drawings can bear.
bool can_stand(std::string_view name);

// By name, an alias for each of those that cannot stand: readable, unlike all names and all
// other aliases. Greek letters are spelt out, anything else that is not visible ASCII
// becomes an underscore; what is then too long, or taken, is cut and ends in "~" and four
// characters of the name's digest, so that it stays the same when other names come and go.
// `names` holds no name twice; their order does not matter.
std::map<std::string, std::string> make_aliases(const std::vector<std::string>& names);
