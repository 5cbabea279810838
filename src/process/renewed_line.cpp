#include "process/renewed_line.hpp"

#include <new>

namespace {

constexpr auto interval = std::chrono::milliseconds(200);
const std::string wipe = "\r\033[K";

}  // namespace

renewed_line::~renewed_line() {
    if (is_shown_) {
        terminal_.write(wipe);
    }
}

void renewed_line::renew(const std::function<std::string(long seconds)>& text) {
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
        is_shown_ |= terminal_.write(wipe + text(seconds)) > 0;
    } catch (const std::bad_alloc&) {
        // A line less does no harm to the work.
    }
}

std::string bar_text(long seconds, const std::string& what, int done, int all) {
    constexpr std::size_t width = 20;
    const double share = all > 0 ? static_cast<double>(done) / all : 0.0;
    const auto filled = static_cast<std::size_t>(share * width);
    return std::to_string(seconds) + " s: " + what + " [" + std::string(filled, '#') +
           std::string(width - filled, '-') + "] " + std::to_string(static_cast<int>(100.0 * share)) + " %, " +
           std::to_string(done) + " of " + std::to_string(all);
}
