// Rows of cells: tables with tabs, commas, semicolons or runs of blanks between the cells,
// which may stand in double quotes (RFC 4180). The rules are few and the files large, so
// they are read here, row by row, with the line on which each row began.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "formats/text_source.hpp"

struct row_shape {
    char separator = '\t';  // ' ': runs of blanks
    bool has_quotes = true;
};

// The separator that the line is most likely to have: tab, comma, semicolon, blank.
char guess_separator(std::string_view line);

class delimited_rows {
 public:
    delimited_rows(text_source& source, row_shape shape) : source_(source), shape_(shape) {}

    // The next row that is not empty; false after the last. Throws unusable_input for
    // quotes that never close.
    bool next(std::vector<std::string>& cells);
    long line() const { return line_; }  // on which the row began

 private:
    text_source& source_;
    row_shape shape_;
    long line_ = 0;
    std::string text_;
};

// A table with a header, or without one.
class delimited_table {
 public:
    // Lines at the start that begin with "#" and hold no separator are passed over. Where
    // the header has one name less than the first row has cells, as R writes it, the first
    // column has no name. Without a header columns are found by their numbers alone.
    delimited_table(text_source& source, bool has_header, bool has_quotes = true);

    // Position of a column by its name as it stands, or by its number from 1.
    std::optional<std::size_t> find(const std::string& name) const;
    // The first of these names that is there; letters and digits alone count, in any case.
    std::optional<std::size_t> find_like(const std::vector<std::string>& names) const;
    // The column that was asked for in a role, by its name or number; where none was, the
    // first of the usual names. Throws unusable_input when what was asked for is not there.
    std::optional<std::size_t> find_asked(const std::map<std::string, std::string>& asked, const std::string& role,
                                          const std::vector<std::string>& usual) const;
    const std::vector<std::string>& header() const { return header_; }
    // "a, b and c", for messages.
    std::string list_columns() const;

    // The next row. Throws unusable_input when it has another number of cells than the
    // header or, without one, than the first row.
    bool next(std::vector<std::string>& cells);
    long line() const { return line_; }
    text_source& source() const { return source_; }

 private:
    text_source& source_;
    bool has_header_;
    delimited_rows rows_;
    std::vector<std::string> header_;
    std::size_t num_columns_ = 0;
    std::vector<std::string> first_row_;  // read with the header, which it tells how to read
    bool has_first_row_ = false;
    long line_ = 0;
};

// Letters and digits alone, in lower case.
std::string plain_word(std::string_view text);
// Without the blanks around it.
std::string_view trimmed(std::string_view text);
