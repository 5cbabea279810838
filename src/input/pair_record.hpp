// The record that all files but the list of names are made of: two protein names,
// each ended by a single blank, and the rest of the line.
#pragma once

#include <string>
#include <string_view>

#include "input/text_file.hpp"

struct pair_record {
    std::size_t start = 0;  // of the record in the file's text; where the text ends within one, of that
    std::string first;
    std::string second;
    std::string rest;         // up to the line feed; a C string too
    bool line_ended = false;  // false: the file ended before the line feed
};

// Reads the next record; false when the file ends before both names do, or is cut. Only a
// blank ends a name, so a name may run across a line end. A record with a name of
// more than 19 bytes is reported and skipped up to the end of the line on which
// it began: in a file with tabs for blanks no name ever ends, and each of its
// lines is to be refused by itself.
bool read_pair_record(text_file& file, pair_record& record);

// The same without a word, one step at a time, for those who say more about a file
// than a run does. What is not whole leaves nothing of use in the record; a name that
// is too long is shown by its start.
enum class record_end { whole, name_too_long, file_ended };
record_end take_pair_record(text_file& file, pair_record& record, std::string_view& long_name);
