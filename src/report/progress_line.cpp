#include "report/progress_line.hpp"

#include <cmath>
#include <cstdio>
#include <new>

namespace {

constexpr auto interval = std::chrono::milliseconds(200);
const std::string wipe = "\r\033[K";

std::string shown(const char* format, double value) {
    char text[32];
    std::snprintf(text, sizeof text, format, value);
    return std::isfinite(value) ? text : "-";
}

}  // namespace

progress_line::~progress_line() {
    if (is_shown_) {
        terminal_.write(wipe);
    }
}

void progress_line::renew() {
    if (!terminal_.is_open()) {
        return;
    }
    const clock::time_point now = clock::now();
    if (now < next_) {
        return;
    }
    next_ = now + interval;
    const auto seconds = std::chrono::duration_cast<std::chrono::seconds>(now - start_).count();
    try {
        is_shown_ |= terminal_.write(wipe + describe(seconds, progress_)) > 0;
    } catch (const std::bad_alloc&) {
        // A line less does no harm to the solve.
    }
}

std::string describe(long seconds, const solver::solve_progress& progress) {
    // A bound between two whole numbers of pairs proves the lower one.
    const double bound = std::floor(progress.bound + 1e-6);
    const double gap = (bound - progress.value) / progress.value * 100.0;
    return std::to_string(seconds) + " s: " + shown("%.0f", progress.value) + " pairs, bound " + shown("%.0f", bound) +
           ", gap " + shown("%.1f", gap) + " %, " + progress.stage;
}
