#include "report/progress_line.hpp"

#include <unistd.h>

#include <cmath>
#include <cstdio>

namespace {

constexpr auto interval = std::chrono::milliseconds(200);
const std::string wipe = "\r\033[K";

std::string shown(const char* format, double value) {
    char text[32];
    std::snprintf(text, sizeof text, format, value);
    return std::isfinite(value) ? text : "-";
}

void write_to_terminal(const std::string& text) {
    // Not worth a second try: the next line comes anyway.
    [[maybe_unused]] const auto written = ::write(STDERR_FILENO, text.data(), text.size());
}

}  // namespace

progress_line::progress_line() : on_terminal_(isatty(STDERR_FILENO) == 1) {}

progress_line::~progress_line() {
    if (is_shown_) {
        write_to_terminal(wipe);
    }
}

void progress_line::renew() {
    if (!on_terminal_) {
        return;
    }
    const clock::time_point now = clock::now();
    if (now < next_) {
        return;
    }
    next_ = now + interval;
    is_shown_ = true;
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(now - start_).count();
    write_to_terminal(wipe + describe(seconds, progress_));
}

std::string describe(long seconds, const solver::solve_progress& progress) {
    // A bound between two whole numbers of pairs proves the lower one.
    const double bound = std::floor(progress.bound + 1e-6);
    const double gap = (bound - progress.value) / progress.value * 100.0;
    return std::to_string(seconds) + " s: " + shown("%.0f", progress.value) + " pairs, bound " + shown("%.0f", bound) +
           ", gap " + shown("%.1f", gap) + " %, " + progress.stage;
}
