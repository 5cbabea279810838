// Told how far an import is.
#pragma once

#include <functional>
#include <map>
#include <string>

#include "formats/reading_watch.hpp"

struct import_plan;

// What it does, and how much of all of this is done. Called often while something long goes on.
using import_watch = std::function<void(const std::string& what, int done, int all)>;

// Sums the bytes of all files of a plan up, and tells them in kilobytes. A file that is read
// more often than the plan names it, as STRING's files of names are, counts anew each time.
class reading_progress {
 public:
    reading_progress(const import_plan& plan, const import_watch& watch);
    void set(const std::string& path, std::uint64_t position);

 private:
    const import_watch& watch_;
    std::map<std::string, int> to_come_;
    std::uint64_t all_ = 0;
    std::uint64_t done_ = 0;
    // STRING's names are read while the links are open.
    std::map<std::string, std::uint64_t> positions_;
};
