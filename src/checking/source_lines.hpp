// The lines of a file by their numbers, for telling where something stands.
#pragma once

#include <cstddef>
#include <string_view>
#include <vector>

class source_lines {
 public:
    // The text must outlive this. What follows the last line feed is a line if it is not empty.
    explicit source_lines(std::string_view text);

    long count() const { return static_cast<long>(starts_.size()) - 1; }
    // Lines are counted from 1. Without the line feed.
    std::string_view line(long number) const;
    bool is_ended(long number) const;
    // The line that holds the byte at this position.
    long number_at(std::size_t position) const;

 private:
    std::string_view text_;
    std::vector<std::size_t> starts_;  // of each line, and the end of the text
};
