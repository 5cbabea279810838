// The lines of a file that someone else wrote: plain or compressed by gzip, with any kind
// of line end, with or without a byte order mark.
#pragma once

#include <deque>
#include <string>
#include <string_view>
#include <vector>

#include <zlib.h>

#include "formats/reading_watch.hpp"

class text_source {
 public:
    // Throws unusable_input when the file does not open.
    explicit text_source(const std::string& path, const reading_watch& watch = {});
    ~text_source();
    text_source(const text_source&) = delete;
    text_source& operator=(const text_source&) = delete;

    // The next line, without its end; false after the last one. Throws unusable_input for
    // what cannot be read or is no text: a damaged archive, UTF-16, a spreadsheet.
    bool next_line(std::string& line);
    // Up to this many of the lines to come; they come all the same.
    std::vector<std::string> peek(std::size_t count);

    const std::string& path() const { return path_; }
    long line_number() const { return line_number_; }  // of the line that came last, from 1

    // unusable_input that names the file and this line, or the last one.
    [[noreturn]] void fail(const std::string& reason) const { fail_at(line_number_, reason); }
    [[noreturn]] void fail_at(long line, const std::string& reason) const;

 private:
    bool read_line(std::string& line);
    bool fill();
    void refuse_what_is_no_text() const;

    std::string path_;
    reading_watch watch_;
    gzFile file_;
    std::string block_;
    std::size_t position_ = 0;
    bool at_start_ = true;
    bool after_return_ = false;  // the last line ended with a carriage return
    long line_number_ = 0;
    std::deque<std::string> peeked_;
};

// A file name without ".gz" at its end.
std::string without_gz(std::string path);
