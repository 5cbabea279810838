// The words of the tables, in the order of the values that they stand for.
#pragma once

#include <array>

#include "results/results.hpp"

namespace results {

inline constexpr std::array file_words = {"test", "directed", "undirected"};
inline constexpr std::array direction_words = {"known", "first_to_second", "second_to_first", "none"};
inline constexpr std::array interaction_status_words = {"known", "decided", "tied", "unused", "open"};
inline constexpr std::array pair_status_words = {"explained", "lost", "unreachable", "same_protein", "unknown_name"};

}  // namespace results
