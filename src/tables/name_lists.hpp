// Paths and lists of pairs inside one cell: A>B>C, and CAUSE>EFFECT;CAUSE>EFFECT;+3 with
// the number of those that are not shown. In a name, > and ; and the backslash have a
// backslash before them. The cell is still to be escaped like any other.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

std::string path_cell(const std::vector<std::string>& names);
std::vector<std::string> read_path_cell(std::string_view cell);

struct pair_list {
    std::vector<std::pair<std::string, std::string>> pairs;
    long more = 0;  // pairs that are not shown
    bool operator==(const pair_list&) const = default;
};

std::string pair_list_cell(const pair_list& list);
// What is no pair and no number of further pairs is passed over.
pair_list read_pair_list_cell(std::string_view cell);
