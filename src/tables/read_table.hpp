// Reading back the tables that this project writes.
#pragma once

#include <string>
#include <vector>

struct table {
    std::string path;
    std::vector<std::string> header;
    std::vector<std::vector<std::string>> rows;  // as many cells each as the header, unescaped

    // Position of a column. Throws unusable_input when there is none of this name.
    std::size_t column(const std::string& name) const;
};

// Throws unusable_input, with file, line and reason, where the file cannot be read, has
// no header, or a row has another number of cells than the header.
table read_table(const std::string& path);
