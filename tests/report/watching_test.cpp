// The two signals, by themselves.
#include <gtest/gtest.h>

#include "report/interruption.hpp"

namespace {

int handled = 0;

void count_signal(int) {
    ++handled;
}

}  // namespace

TEST(interruption, takes_a_signal_as_a_wish_and_gives_the_handlers_back) {
    for (const int signal_number : {SIGINT, SIGTERM}) {
        handled = 0;
        std::signal(signal_number, count_signal);
        for (int turn = 0; turn < 2; ++turn) {
            const interruption signals;
            EXPECT_FALSE(signals.requested());
            std::raise(signal_number);
            EXPECT_TRUE(signals.requested());
        }
        EXPECT_EQ(handled, 0);
        std::raise(signal_number);
        EXPECT_EQ(handled, 1);
        std::signal(signal_number, SIG_DFL);
    }
}

TEST(interruption, ends_the_program_by_the_second_signal) {
    for (const auto& [first, second] : {std::pair(SIGINT, SIGTERM), {SIGTERM, SIGINT}, {SIGINT, SIGINT}}) {
        EXPECT_EXIT(
            {
                const interruption signals;
                std::raise(first);
                std::raise(second);
            },
            testing::KilledBySignal(second), "");
    }
}
