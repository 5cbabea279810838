// One input file, whole in memory. A field is at most 19 bytes of a name, yet the
// file around it may be anything, so nothing here scans further than it must.
#pragma once

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

struct text_file {
    std::string path;  // as messages name it
    std::string text;
    bool opened = true;
    std::size_t position = 0;  // first byte not yet read
    bool quiet = false;        // true = nothing is printed of it: somebody reads it again

    // Asked now and then: true = the rest is left unread, as if the file ended here.
    std::function<bool()> cut_requested = [] { return false; };
    int records_until_asked = 0;

    // How far line feeds were counted for messages, and the line reached there.
    std::size_t counted = 0;
    int line = 1;
};

// A folder or an unreadable file counts as not opened.
text_file open_text_file(const std::string& path);

// The bytes up to the next line feed or the end of the file. A line feed is
// consumed and not returned; `ended` tells whether there was one.
std::string_view take_line(text_file& file, bool& ended);

// The part of a field that a character buffer would show: up to a null byte.
std::string_view as_c_string(std::string_view field);

// Prints one error line about a name that is too long to be a protein's: the
// file, the line on which its record began, and the start of the field. Records
// must be reported in file order. Says nothing of a quiet file.
void report_long_name(text_file& file, std::size_t record_start, std::string_view field);
