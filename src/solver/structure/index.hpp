// Numbers of choices, gates, nodes and arcs are ints, since -1 means none; containers
// are indexed by std::size_t.
#pragma once

#include <cstddef>

namespace solver {

constexpr std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

}  // namespace solver
