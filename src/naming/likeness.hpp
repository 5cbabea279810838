// Names that mean the same protein and are spelt differently, which is how most names
// get lost between two files.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

// From the closest to the furthest. Each allows what those before it allow, but for
// one_edit, which allows no version.
enum class likeness {
    same,
    surroundings,  // blanks, control characters, quotes or a byte order mark around the name
    letter_case,
    separators,  // dash, underscore and blank stand for one another
    version,     // ".1" at the end
    one_edit,    // a character too many, too few, another one, or two neighbours exchanged
    none,
};

// What is the difference, in words: "letter case".
const char* describe(likeness how);

// Equal for two names exactly when they are alike in this way, up to `version`.
std::string alike_key(std::string_view name, likeness how);

// Finds, among names, those that are most like another one.
class name_matcher {
 public:
    // Keeps what it needs of the names; repeats count once.
    explicit name_matcher(const std::vector<std::string>& names);

    struct match {
        likeness how = likeness::none;
        std::vector<std::string> names;  // all that are as close, sorted
    };
    // The names that are closest, no further than `furthest`.
    match closest(std::string_view name, likeness furthest) const;

 private:
    using name_index = std::unordered_map<std::string, std::vector<int>>;

    std::vector<std::string> names_;      // sorted
    name_index by_key_[5];                // by likeness, up to `version`
    mutable name_index by_shorter_name_;  // every name with one character left out, once this is asked for
};
