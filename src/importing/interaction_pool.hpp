// Interactions from all files together: what is known of each two proteins.
#pragma once

#include <cstdint>
#include <functional>
#include <limits>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "formats/foreign_rows.hpp"

class interaction_pool {
 public:
    // Two proteins, by number, the smaller number first, and how sure each way is.
    struct entry {
        int first;
        int second;
        double forward = unsaid;
        double backward = unsaid;
        double undirected = unsaid;
        long directed_rows = 0;
        long undirected_rows = 0;
    };
    static constexpr double unsaid = -std::numeric_limits<double>::infinity();  // no row says so

    // Of rows that say the same the highest confidence counts; without one it is 1.
    void add(const interaction_row& row, int source);

    const std::vector<std::string>& names() const { return names_; }
    const std::vector<entry>& entries() const { return entries_; }
    // The files, by number, that mention a name.
    const std::vector<int>& sources_of(int name) const { return sources_[static_cast<std::size_t>(name)]; }
    // Number of a name, -1 when no row has it.
    int find(const std::string& name) const;

    // The same with some names become others: the new name of each number.
    interaction_pool renamed(const std::vector<std::string>& new_names) const;

 private:
    int number_of_name(std::string_view name, int source);
    entry& entry_of(int first, int second);
    void merge(int first, int second, const entry& said);

    std::vector<std::string> names_;
    std::vector<std::vector<int>> sources_;
    // Names are looked up as they stand in a row, without a copy of their own.
    struct name_hash {
        using is_transparent = void;
        std::size_t operator()(std::string_view name) const { return std::hash<std::string_view>()(name); }
    };
    std::unordered_map<std::string, int, name_hash, std::equal_to<>> numbers_;
    std::vector<entry> entries_;
    std::unordered_map<std::uint64_t, std::size_t> places_;  // by both numbers
};
