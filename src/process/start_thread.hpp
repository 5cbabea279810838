// Threads, and why one cannot be had.
#pragma once

#include <functional>
#include <thread>

// A thread that runs this. Throws std::bad_alloc when there is no memory for its stack,
// std::system_error when the system wants no further thread.
std::thread start_thread(std::function<void()> work);
