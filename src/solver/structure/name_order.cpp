#include "solver/structure/name_order.hpp"

#include <cstdint>

namespace solver {
namespace {

// FNV-1a with a final mix: neighbouring names land far apart.
std::uint64_t hash_of(std::string_view name) {
    std::uint64_t hash = 14695981039346656037ULL;
    for (const char character : name) {
        hash = (hash ^ static_cast<unsigned char>(character)) * 1099511628211ULL;
    }
    hash ^= hash >> 33;
    hash *= 0xff51afd7ed558ccdULL;
    return hash ^ (hash >> 33);
}

}  // namespace

bool stands_before(std::string_view name, std::string_view other) {
    const std::uint64_t hash = hash_of(name);
    const std::uint64_t other_hash = hash_of(other);
    return hash < other_hash || (hash == other_hash && name < other);
}

}  // namespace solver
