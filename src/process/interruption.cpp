#include "process/interruption.hpp"

#include <algorithm>
#include <array>
#include <atomic>
#include <cstdint>
#include <ctime>

namespace {

constexpr std::array wishes = {SIGINT, SIGTERM, SIGHUP, SIGXCPU, SIGUSR1, SIGUSR2};
constexpr std::int64_t burst = 1'000'000'000;  // nanoseconds

// Nobody holds off a fault of the program's own, nor SIGKILL and SIGSTOP; the rest of
// these ends no program.
constexpr std::array left_alone = {SIGKILL, SIGSTOP, SIGSEGV, SIGBUS,  SIGFPE,  SIGILL,  SIGTRAP, SIGABRT,
                                   SIGSYS,  SIGCHLD, SIGCONT, SIGTSTP, SIGTTIN, SIGTTOU, SIGURG,  SIGWINCH};

std::atomic<std::int64_t> first_wish = 0;  // when it came; 0 = not yet
std::atomic<int> first_signal = 0;
std::atomic<bool> is_held = false;
static_assert(std::atomic<std::int64_t>::is_always_lock_free);  // else no handler may touch it
static_assert(std::atomic<bool>::is_always_lock_free);
static_assert(std::atomic<int>::is_always_lock_free);

bool is_installed = false;
std::array<struct sigaction, 65> old_actions;  // by number, of the signals that are changed
std::array<bool, 65> is_changed;

template <typename list>
bool contains(const list& numbers, int number) {
    return std::find(numbers.begin(), numbers.end(), number) != numbers.end();
}

// The time that no setting of the clock moves. May be asked by a handler.
std::int64_t now() {
    timespec time{};
    clock_gettime(CLOCK_MONOTONIC, &time);
    return std::int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec + 1;
}

extern "C" void note_signal(int signal_number) {
    const std::int64_t came = now();
    std::int64_t first = 0;
    if (first_wish.compare_exchange_strong(first, came)) {
        first_signal = signal_number;
        return;
    }
    if (came - first < burst || is_held || signal_number == SIGXCPU) {
        return;
    }
    std::signal(signal_number, SIG_DFL);
    std::raise(signal_number);  // arrives when this handler returns
}

// Puts a handler in place of what stands there. What is ignored stays ignored.
void change(int signal_number, void (*handler)(int)) {
    const auto n = static_cast<std::size_t>(signal_number);
    struct sigaction old {};
    if (is_changed[n] || sigaction(signal_number, nullptr, &old) != 0 || old.sa_handler == SIG_IGN) {
        return;
    }
    struct sigaction action {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    // None breaks into the handler of another, so the first to arrive is the first noted.
    sigemptyset(&action.sa_mask);
    for (const int wish : wishes) {
        sigaddset(&action.sa_mask, wish);
    }
    old_actions[n] = old;
    is_changed[n] = sigaction(signal_number, &action, nullptr) == 0;
}

template <typename condition>
void change_back(condition concerns) {
    for (int number = 1; number <= 64; ++number) {
        const auto n = static_cast<std::size_t>(number);
        if (is_changed[n] && concerns(number)) {
            sigaction(number, &old_actions[n], nullptr);
            is_changed[n] = false;
        }
    }
}

}  // namespace

interruption::interruption() {
    first_wish = 0;
    is_held = false;
    is_installed = true;
    for (const int wish : wishes) {
        change(wish, note_signal);
    }
}

interruption::~interruption() {
    change_back([](int) { return true; });
    is_installed = false;
}

bool interruption::requested() const {
    return first_wish != 0;
}

bool interruption::requested_before(std::chrono::nanoseconds ago) const {
    const std::int64_t first = first_wish;
    return first != 0 && now() - first >= ago.count();
}

void interruption::end_by_first_signal() const {
    std::signal(first_signal, SIG_DFL);
    std::raise(first_signal);
}

const interruption& lasting_interruption() {
    static const interruption& signals = *new interruption;
    return signals;
}

void hold_answer() {
    if (!is_installed) {
        return;
    }
    is_held = true;
    for (int number = 1; number <= SIGRTMAX; ++number) {
        if (!contains(wishes, number) && !contains(left_alone, number)) {
            change(number, SIG_IGN);
        }
    }
}

void release_answer() {
    is_held = false;
    change_back([](int number) { return !contains(wishes, number); });
}

void outlive_failed_writes() {
    std::signal(SIGPIPE, SIG_IGN);
    std::signal(SIGXFSZ, SIG_IGN);
}
