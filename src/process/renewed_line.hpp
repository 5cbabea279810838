// One line on a terminal that is written anew while something long goes on.
#pragma once

#include <chrono>
#include <functional>
#include <string>

#include "process/terminal_writer.hpp"

// Stands on standard error when that is a terminal, and nowhere otherwise. Appears after
// a second, is written anew at most five times a second, and is wiped away in the end.
// One thread at a time, whichever that is.
class renewed_line {
 public:
    renewed_line() = default;
    ~renewed_line();
    renewed_line(const renewed_line&) = delete;
    renewed_line& operator=(const renewed_line&) = delete;

    // To be called often; when it is time to, writes what the text says of the seconds
    // that have passed.
    void renew(const std::function<std::string(long seconds)>& text);

 private:
    using clock = std::chrono::steady_clock;
    const terminal_writer terminal_;
    const clock::time_point start_ = clock::now();
    clock::time_point next_ = start_ + std::chrono::seconds(1);
    bool is_shown_ = false;
};

// "12 s: regrets [#####---------------] 25 %, 10 of 40".
std::string bar_text(long seconds, const std::string& what, int done, int all);
