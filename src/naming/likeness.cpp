#include "naming/likeness.hpp"

#include <algorithm>

namespace {

constexpr std::string_view byte_order_mark = "\xef\xbb\xbf";

std::string_view without_surroundings(std::string_view name) {
    const auto is_around = [](char c) {
        return static_cast<unsigned char>(c) <= ' ' || c == '\x7f' || c == '"' || c == '\'';
    };
    if (name.starts_with(byte_order_mark)) {
        name.remove_prefix(byte_order_mark.size());
    }
    while (!name.empty() && is_around(name.front())) {
        name.remove_prefix(1);
    }
    while (!name.empty() && is_around(name.back())) {
        name.remove_suffix(1);
    }
    return name;
}

bool is_digit(char c) {
    return c >= '0' && c <= '9';
}

std::string_view without_version(std::string_view name) {
    std::size_t end = name.size();
    while (end > 0 && is_digit(name[end - 1])) {
        --end;
    }
    const bool is_version = end < name.size() && end > 1 && name[end - 1] == '.';
    return is_version ? name.substr(0, end - 1) : name;
}

// Both of different lengths or contents; true when one edit makes them equal.
bool is_one_edit_apart(std::string_view left, std::string_view right) {
    if (left.size() > right.size()) {
        std::swap(left, right);
    }
    if (right.size() - left.size() > 1) {
        return false;
    }
    const auto difference = std::mismatch(left.begin(), left.end(), right.begin());
    const std::string_view left_rest = left.substr(static_cast<std::size_t>(difference.first - left.begin()));
    const std::string_view right_rest = right.substr(static_cast<std::size_t>(difference.second - right.begin()));
    if (left.size() < right.size()) {
        return left_rest == right_rest.substr(1);
    }
    return !left_rest.empty() && (left_rest.substr(1) == right_rest.substr(1) ||
                                  (left_rest.size() > 1 && left_rest[0] == right_rest[1] &&
                                   left_rest[1] == right_rest[0] && left_rest.substr(2) == right_rest.substr(2)));
}

std::vector<std::string> shorter_names(const std::string& key) {
    std::vector<std::string> shorter{key};
    for (std::size_t i = 0; i < key.size(); ++i) {
        shorter.push_back(key.substr(0, i) + key.substr(i + 1));
    }
    return shorter;
}

}  // namespace

const char* describe(likeness how) {
    constexpr const char* words[] = {"the same", "what stands around it", "letter case", "dash, underscore or blank",
                                     "version",  "one character"};
    return how == likeness::none ? "nothing in common" : words[static_cast<int>(how)];
}

std::string alike_key(std::string_view name, likeness how) {
    if (how == likeness::same) {
        return std::string(name);
    }
    std::string key(without_surroundings(name));
    if (how >= likeness::version) {
        key = without_version(key);
    }
    for (char& c : key) {
        if (how >= likeness::letter_case && c >= 'a' && c <= 'z') {
            c = static_cast<char>(c - 'a' + 'A');
        }
        if (how >= likeness::separators && (c == '-' || c == ' ')) {
            c = '_';
        }
    }
    return key;
}

name_matcher::name_matcher(const std::vector<std::string>& names) : names_(names) {
    std::sort(names_.begin(), names_.end());
    names_.erase(std::unique(names_.begin(), names_.end()), names_.end());
    for (std::size_t i = 0; i < names_.size(); ++i) {
        for (likeness how = likeness::same; how <= likeness::version; how = likeness{static_cast<int>(how) + 1}) {
            by_key_[static_cast<int>(how)][alike_key(names_[i], how)].push_back(static_cast<int>(i));
        }
    }
}

name_matcher::match name_matcher::closest(std::string_view name, likeness furthest) const {
    const auto named = [&](likeness how, std::vector<int> found) {
        std::sort(found.begin(), found.end());
        found.erase(std::unique(found.begin(), found.end()), found.end());
        match result{.how = how, .names = {}};
        for (const int i : found) {
            result.names.push_back(names_[static_cast<std::size_t>(i)]);
        }
        return result;
    };
    if (alike_key(name, likeness::surroundings).empty()) {
        return {};
    }
    for (likeness how = likeness::same; how <= std::min(furthest, likeness::version);
         how = likeness{static_cast<int>(how) + 1}) {
        const name_index& index = by_key_[static_cast<int>(how)];
        if (const auto found = index.find(alike_key(name, how)); found != index.end()) {
            return named(how, found->second);
        }
    }
    if (furthest < likeness::one_edit) {
        return {};
    }
    if (by_shorter_name_.empty()) {
        for (std::size_t i = 0; i < names_.size(); ++i) {
            for (const std::string& shorter : shorter_names(alike_key(names_[i], likeness::separators))) {
                by_shorter_name_[shorter].push_back(static_cast<int>(i));
            }
        }
    }
    // Names one edit apart have a common shorter name, or one is the other's.
    const std::string key = alike_key(name, likeness::separators);
    std::vector<int> near;
    for (const std::string& shorter : shorter_names(key)) {
        if (const auto found = by_shorter_name_.find(shorter); found != by_shorter_name_.end()) {
            std::copy_if(found->second.begin(), found->second.end(), std::back_inserter(near), [&](int i) {
                return is_one_edit_apart(key, alike_key(names_[static_cast<std::size_t>(i)], likeness::separators));
            });
        }
    }
    return near.empty() ? match{} : named(likeness::one_edit, near);
}
