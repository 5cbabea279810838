// Told how far the reading of files is.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

// A file, and how many bytes of it, as it is on disk, are done: 0 when it opens, then
// more after each block that is read.
using reading_watch = std::function<void(const std::string& path, std::uint64_t position)>;
