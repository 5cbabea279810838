// What a cell says: numbers, thresholds on them, and the many ways to say nothing.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

// Empty, "-", NA, NaN, null, none, in any case: no value.
bool is_missing(std::string_view cell);

// The same of a name: Drosophila has a gene "nan", so that capitals count.
bool is_missing_name(std::string_view cell);

// A decimal number, blanks around it allowed; nothing for anything else, such as a missing
// value, a decimal comma or a number with more behind it.
std::optional<double> number_of(std::string_view cell);

// A threshold: "padj<=0.05", "|log2fc|>=1", "method = yeast two-hybrid".
struct condition {
    enum class comparison { less, at_most, at_least, more, equal, unequal };

    std::string text;  // as the user wrote it
    std::string column;
    bool is_absolute = false;
    comparison how = comparison::equal;
    std::string value;
    std::optional<double> number;  // of the value; there must be one but for = and !=
};

// Throws unusable_input when the text is no condition.
condition read_condition(const std::string& text);

// Whether the cell meets it. Numbers are compared as numbers where both are, and cells with
// no value meet nothing but "!=". Nothing: the cell is no number where one is needed.
std::optional<bool> meets(const condition& threshold, std::string_view cell);

// Whether a word means that an interaction has a direction, and which.
enum class direction_word { unknown, undirected, forward, backward, both };
direction_word read_direction(std::string_view cell);
