#include "process/memory.hpp"

#include <malloc.h>

namespace {

constexpr int large = 1 << 20;  // bytes

}  // namespace

void give_back_large_blocks() {
#ifdef M_MMAP_THRESHOLD
    mallopt(M_MMAP_THRESHOLD, large);
#endif
}
