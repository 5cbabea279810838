#include "formats/cell_values.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>

#include "formats/delimited_text.hpp"
#include "tables/unusable_input.hpp"

namespace {

std::string lower(std::string_view text) {
    std::string word(trimmed(text));
    std::transform(word.begin(), word.end(), word.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    return word;
}

bool is_one_of(const std::string& word, std::initializer_list<const char*> words) {
    return std::find(words.begin(), words.end(), word) != words.end();
}

}  // namespace

bool is_missing(std::string_view cell) {
    return is_one_of(lower(cell), {"", "-", "na", "n/a", "#n/a", "nan", "null", "none"});
}

bool is_missing_name(std::string_view cell) {
    return is_one_of(std::string(trimmed(cell)), {"", "-", "NA", "N/A", "#N/A", "NaN"});
}

std::optional<double> number_of(std::string_view cell) {
    std::string_view text = trimmed(cell);
    if (text.starts_with('+') && !text.starts_with("+-")) {
        text.remove_prefix(1);
    }
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    // What is too small for a double is near enough to 0, as p values are at times.
    if (error == std::errc::result_out_of_range && text.find("e-") != std::string_view::npos) {
        number = 0;
    } else if (error != std::errc()) {
        return std::nullopt;
    }
    if (end != text.data() + text.size() || std::isnan(number)) {
        return std::nullopt;
    }
    return number;
}

condition read_condition(const std::string& text) {
    const auto fail = [&](const std::string& why) { throw unusable_input("condition '" + text + "': " + why); };
    const std::size_t sign = text.find_first_of("<>=!");
    condition result;
    result.text = text;
    if (sign == std::string::npos || (text[sign] == '!' && text.substr(sign, 2) != "!=")) {
        fail("holds none of <, <=, >=, >, = and !=");
    }
    const bool has_equal = sign + 1 < text.size() && text[sign + 1] == '=';
    using enum condition::comparison;
    result.how = text[sign] == '<'   ? (has_equal ? at_most : less)
                 : text[sign] == '>' ? (has_equal ? at_least : more)
                 : text[sign] == '!' ? unequal
                                     : equal;
    std::string_view column = trimmed(std::string_view(text).substr(0, sign));
    result.is_absolute = column.size() > 2 && column.front() == '|' && column.back() == '|';
    if (result.is_absolute) {
        column = trimmed(column.substr(1, column.size() - 2));
    }
    result.column = column;
    result.value = trimmed(std::string_view(text).substr(sign + (has_equal ? 2 : 1)));
    result.number = number_of(result.value);
    if (result.column.empty()) {
        fail("names no column");
    }
    if (!result.number && (result.is_absolute || (result.how != equal && result.how != unequal))) {
        fail("'" + result.value + "' is not a number");
    }
    return result;
}

std::optional<bool> meets(const condition& threshold, std::string_view cell) {
    using enum condition::comparison;
    std::optional<double> number = number_of(cell);
    if (!number && is_missing(cell)) {
        return threshold.how == unequal;
    }
    const bool is_text = threshold.how == equal || threshold.how == unequal;
    if (!threshold.number || (!number && is_text && !threshold.is_absolute)) {
        return (trimmed(cell) == threshold.value) == (threshold.how == equal);
    }
    if (!number) {
        return std::nullopt;
    }
    const double found = threshold.is_absolute ? std::abs(*number) : *number;
    const double limit = *threshold.number;
    switch (threshold.how) {
        case less:
            return found < limit;
        case at_most:
            return found <= limit;
        case at_least:
            return found >= limit;
        case more:
            return found > limit;
        case equal:
            return found == limit;
        default:
            return found != limit;
    }
}

direction_word read_direction(std::string_view cell) {
    const std::string word = lower(cell);
    if (is_one_of(word,
                  {"d", "directed", "1", "1.0", "true", "t", "yes", "y", "->", "-->", "=>", "forward", "-|", "--|"})) {
        return direction_word::forward;
    }
    if (is_one_of(word, {"u", "undirected", "0", "0.0", "false", "f", "no", "n", "--", "-", "unknown", ""})) {
        return direction_word::undirected;
    }
    if (is_one_of(word, {"<-", "<--", "<=", "backward", "reverse", "|-", "|--"})) {
        return direction_word::backward;
    }
    return is_one_of(word, {"<->", "<-->", "both", "bidirectional", "bidirected"}) ? direction_word::both
                                                                                   : direction_word::unknown;
}
