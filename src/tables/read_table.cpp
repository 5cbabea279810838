#include "tables/read_table.hpp"

#include <algorithm>
#include <fstream>

#include "tables/table_text.hpp"
#include "tables/unusable_input.hpp"

namespace {

std::vector<std::string> split_row(const std::string& line) {
    std::vector<std::string> cells;
    std::size_t start = 0;
    for (;;) {
        const std::size_t tab = line.find('\t', start);
        cells.push_back(unescape_cell(std::string_view(line).substr(start, tab - start)));
        if (tab == std::string::npos) {
            return cells;
        }
        start = tab + 1;
    }
}

}  // namespace

std::size_t table::column(const std::string& name) const {
    const auto found = std::find(header.begin(), header.end(), name);
    if (found == header.end()) {
        throw unusable_input(path + ":1: there is no column " + name);
    }
    return static_cast<std::size_t>(found - header.begin());
}

table read_table(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file.good()) {
        throw unusable_input(path + ": cannot be opened");
    }
    table result;
    result.path = path;
    std::string line;
    for (long number = 1; std::getline(file, line); ++number) {
        std::vector<std::string> cells = split_row(line);
        if (number == 1) {
            result.header = std::move(cells);
        } else if (cells.size() == result.header.size()) {
            result.rows.push_back(std::move(cells));
        } else {
            throw unusable_input(path + ":" + std::to_string(number) + ": " + std::to_string(cells.size()) +
                                 " cells, but the header has " + std::to_string(result.header.size()));
        }
    }
    if (result.header.empty()) {
        throw unusable_input(path + ": has no header line");
    }
    return result;
}
