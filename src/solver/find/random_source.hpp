// Random numbers that are the same on every machine: the standard's engine, and none of
// its distributions, which every library draws in its own way.
#pragma once

#include <cstddef>
#include <cstdint>
#include <random>

namespace solver {

class random_source {
 public:
    explicit random_source(std::uint64_t seed) : engine_(seed) {}

    bool coin() { return (engine_() & 1) != 0; }
    // 0 to limit - 1; limit at least 1.
    std::size_t below(std::size_t limit) {
        return static_cast<std::size_t>((static_cast<unsigned __int128>(engine_()) * limit) >> 64);
    }
    // In [0, 1).
    double share() { return static_cast<double>(engine_() >> 11) * 0x1.0p-53; }

 private:
    std::mt19937_64 engine_;
};

}  // namespace solver
