#include "report/progress_line.hpp"

#include <cmath>
#include <cstdio>

namespace {

std::string shown(const char* format, double value) {
    char text[32];
    std::snprintf(text, sizeof text, format, value);
    return std::isfinite(value) ? text : "-";
}

}  // namespace

void progress_line::renew() {
    line_.renew([this](long seconds) { return describe(seconds, progress_); });
}

std::string describe(long seconds, const solver::solve_progress& progress) {
    // A bound between two whole numbers of pairs proves the lower one.
    const double bound = std::floor(progress.bound + 1e-6);
    const double gap = (bound - progress.value) / progress.value * 100.0;
    return std::to_string(seconds) + " s: " + shown("%.0f", progress.value) + " pairs, bound " + shown("%.0f", bound) +
           ", gap " + shown("%.1f", gap) + " %, " + progress.stage;
}
