// How far regrets or folds are, on a terminal.
#pragma once

#include <atomic>
#include <optional>
#include <string>
#include <thread>

#include "process/renewed_line.hpp"

class work_progress {
 public:
    explicit work_progress(std::string what) : what_(std::move(what)) {}

    // From any thread, one at a time.
    void set(int done, int all) {
        done_ = done;
        all_ = all;
    }
    // From any thread; only the one that made this shows anything, once there is something.
    void renew() {
        if (all_ == 0 || std::this_thread::get_id() != thread_) {
            return;
        }
        if (!line_) {
            line_.emplace();
        }
        line_->renew([this](long seconds) { return bar_text(seconds, what_, done_, all_); });
    }

 private:
    const std::string what_;
    const std::thread::id thread_ = std::this_thread::get_id();
    std::atomic<int> done_ = 0;
    std::atomic<int> all_ = 0;
    std::optional<renewed_line> line_;
};
