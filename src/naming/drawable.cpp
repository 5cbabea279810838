#include "naming/drawable.hpp"

#include <algorithm>
#include <array>

bool is_drawable(std::string_view name) {
    constexpr std::array<std::string_view, 6> words = {"node", "edge", "graph", "digraph", "subgraph", "strict"};
    const auto same_letter = [](char left, char right) {
        return (left >= 'A' && left <= 'Z' ? left + 32 : left) == right;
    };
    const bool is_word = std::any_of(words.begin(), words.end(), [&](std::string_view word) {
        return std::equal(name.begin(), name.end(), word.begin(), word.end(), same_letter);
    });
    return !is_word && name != "." && name != "-." && name.find('\\') == std::string_view::npos;
}
