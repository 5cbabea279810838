#include "report/interruption.hpp"

#include <atomic>

namespace {

std::atomic<bool> signalled = false;
static_assert(std::atomic<bool>::is_always_lock_free);  // else no handler may touch it

extern "C" void note_signal(int signal_number) {
    if (signalled.exchange(true)) {
        std::signal(signal_number, SIG_DFL);
        std::raise(signal_number);  // arrives when this handler returns
    }
}

}  // namespace

interruption::interruption() {
    signalled = false;
    struct sigaction action {};
    action.sa_handler = note_signal;
    action.sa_flags = SA_RESTART;
    // Neither signal breaks into the other's handler, so the first to arrive is the first noted.
    sigemptyset(&action.sa_mask);
    sigaddset(&action.sa_mask, SIGINT);
    sigaddset(&action.sa_mask, SIGTERM);
    sigaction(SIGINT, &action, &old_interrupt_);
    sigaction(SIGTERM, &action, &old_terminate_);
}

interruption::~interruption() {
    sigaction(SIGINT, &old_interrupt_, nullptr);
    sigaction(SIGTERM, &old_terminate_, nullptr);
}

bool interruption::requested() const {
    return signalled;
}
