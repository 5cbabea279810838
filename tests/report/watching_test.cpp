// The two signals and the line on the terminal, each by itself.
#include <gtest/gtest.h>

#include "report/interruption.hpp"
#include "report/progress_line.hpp"

TEST(interruption, takes_a_signal_as_a_wish_and_gives_the_handlers_back) {
    for (const int signal_number : {SIGINT, SIGTERM}) {
        static int handled;
        handled = 0;
        std::signal(signal_number, [](int) { ++handled; });
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

TEST(progress_line, says_what_is_known) {
    using solver::infinity;
    EXPECT_EQ(describe(7, {"cuts", 4530, 4884.7}), "7 s: 4530 pairs, bound 4884, gap 7.8 %, cuts");
    EXPECT_EQ(describe(70, {"cuts", 12, 11.9999999}), "70 s: 12 pairs, bound 12, gap 0.0 %, cuts");
    EXPECT_EQ(describe(1, {"reduce", 90, infinity}), "1 s: 90 pairs, bound -, gap - %, reduce");
    EXPECT_EQ(describe(1, {"solve", 0, 8}), "1 s: 0 pairs, bound 8, gap - %, solve");
    EXPECT_EQ(describe(1, {"solve", -infinity, 8}), "1 s: - pairs, bound 8, gap - %, solve");
}
