#include "process/start_thread.hpp"

#include <pthread.h>
#include <sys/mman.h>

#include <new>
#include <system_error>
#include <utility>

namespace {

// To the system both are the same error, so this tries for itself.
bool is_room_for_a_stack() {
    pthread_attr_t attributes;
    std::size_t size = 0;
    if (pthread_attr_init(&attributes) != 0) {
        return false;
    }
    pthread_attr_getstacksize(&attributes, &size);
    pthread_attr_destroy(&attributes);
    void* const stack = mmap(nullptr, size, PROT_NONE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_STACK, -1, 0);
    return stack != MAP_FAILED && munmap(stack, size) == 0;
}

}  // namespace

std::thread start_thread(std::function<void()> work) {
    try {
        return std::thread(std::move(work));
    } catch (const std::system_error&) {
        if (!is_room_for_a_stack()) {
            throw std::bad_alloc();
        }
        throw;
    }
}
