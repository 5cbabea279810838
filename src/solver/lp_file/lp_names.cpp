#include "solver/lp_file/lp_names.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <string_view>
#include <unordered_set>

namespace solver {
namespace {

// What stands for a character that a name may not hold; 0 = the character is legal.
constexpr std::array<char, 256> substitutes = [] {
    std::array<char, 256> table{};
    std::fill(table.begin(), table.begin() + 0x20, '_');
    table[0x7f] = '_';
    constexpr std::string_view illegal = " \\*+-/:<=>[]^|";
    constexpr std::string_view substitute = "__apmd.leg()cb";
    for (std::size_t i = 0; i < illegal.size(); ++i) {
        table[static_cast<unsigned char>(illegal[i])] = substitute[i];
    }
    return table;
}();

char substitute_of(char character) {
    return substitutes[static_cast<unsigned char>(character)];
}

// A name may not begin as a number may; such a one gets a '_' in front, and so
// does one that begins with a character that is replaced.
bool begins_illegally(std::string_view name) {
    constexpr std::string_view beginnings_of_numbers = ".0123456789eE";
    return beginnings_of_numbers.find(name.front()) != std::string_view::npos || substitute_of(name.front()) != '\0';
}

bool is_legal(std::string_view name) {
    return !begins_illegally(name) &&
           std::all_of(name.begin(), name.end(), [](char character) { return substitute_of(character) == '\0'; });
}

void add_legal(std::string_view name, name_list& legal) {
    if (is_legal(name)) {
        legal.add_part(name);
        return;
    }
    if (begins_illegally(name)) {
        legal.add_part('_');
    }
    for (const char character : name) {
        const char substitute = substitute_of(character);
        legal.add_part(substitute == '\0' ? character : substitute);
    }
}

// A name that some unnamed item gets by default.
bool is_default_name(std::string_view name, char prefix, const name_list& names) {
    if (name.size() < 2 || name[0] != prefix || name[1] == '0') {
        return false;
    }
    std::size_t position = 0;
    const char* end = name.data() + name.size();
    const auto parsed = std::from_chars(name.data() + 1, end, position);
    return parsed.ec == std::errc() && parsed.ptr == end && position <= names.size() && names[position - 1].empty();
}

bool need_tags(const name_list& names, char prefix) {
    std::unordered_set<std::string_view> seen;
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string_view name = names[i];
        if (!name.empty() && (!is_legal(name) || !seen.insert(name).second || is_default_name(name, prefix, names))) {
            return true;
        }
    }
    return false;
}

}  // namespace

lp_names::lp_names(const name_list& names, char prefix) : prefix_(prefix), tagged_(need_tags(names, prefix)) {
    for (std::size_t i = 0; i < names.size(); ++i) {
        const std::string_view name = names[i];
        if (!name.empty()) {
            add_legal(name, legal_);
            if (tagged_) {
                char digits[20];
                const char* end = std::to_chars(digits, digits + sizeof digits, i).ptr;
                legal_.add_part('#');
                legal_.add_part({digits, static_cast<std::size_t>(end - digits)});
            }
        }
        legal_.end_name();
    }
}

std::string_view lp_names::operator[](std::size_t index) const {
    const std::string_view kept = legal_[index];
    if (!kept.empty()) {
        return kept;
    }
    char* end = made_;
    *end++ = prefix_;
    end = std::to_chars(end, made_ + sizeof made_, index + 1).ptr;
    if (tagged_) {
        *end++ = '#';
        end = std::to_chars(end, made_ + sizeof made_, index).ptr;
    }
    return {made_, static_cast<std::size_t>(end - made_)};
}

}  // namespace solver
