// The text of tab-separated tables: one header line, then a line per row, each ended by
// a line feed. Cells may hold any bytes; what would break a line is escaped.
#pragma once

#include <string>
#include <string_view>
#include <vector>

// Backslash, tab, line feed and carriage return as \\, \t, \n and \r.
std::string escape_cell(std::string_view text);
// The way back. A backslash before any other character stands for itself.
std::string unescape_cell(std::string_view cell);

// Lists inside a cell: separators in an item are escaped by a backslash, so that the
// list can be taken apart again. The result is still to be escaped as a cell.
std::string join_list(const std::vector<std::string>& items, char separator);
std::vector<std::string> split_list(std::string_view list, char separator);

// Appends the cells, escaped, as one line.
void append_row(std::string& text, const std::vector<std::string>& cells);
