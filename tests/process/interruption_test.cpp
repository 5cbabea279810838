// Signals as wishes, by themselves.
#include "process/interruption.hpp"

#include <chrono>
#include <thread>

#include <gtest/gtest.h>

using namespace std::chrono_literals;

namespace {

constexpr auto past_the_burst = 1050ms;

}  // namespace

TEST(interruption, takes_signals_as_a_wish_and_gives_the_handlers_back) {
    for (const int signal_number : {SIGINT, SIGTERM, SIGHUP, SIGXCPU, SIGUSR1, SIGUSR2}) {
        static int handled;
        handled = 0;
        std::signal(signal_number, [](int) { ++handled; });
        for (int turn = 0; turn < 2; ++turn) {
            const interruption signals;
            EXPECT_FALSE(signals.requested());
            std::raise(signal_number);
            EXPECT_TRUE(signals.requested());
            std::raise(SIGTERM);  // of the same burst
            std::raise(signal_number);
        }
        EXPECT_EQ(handled, 0);
        std::raise(signal_number);
        EXPECT_EQ(handled, 1);
        std::signal(signal_number, SIG_DFL);
    }
}

TEST(interruption, ends_the_program_by_a_second_signal_after_the_burst) {
    testing::GTEST_FLAG(death_test_style) = "threadsafe";
    for (const auto& [first, second] : {std::pair(SIGINT, SIGTERM), {SIGTERM, SIGHUP}, {SIGXCPU, SIGINT}}) {
        EXPECT_EXIT(
            {
                const interruption signals;
                std::raise(first);
                std::this_thread::sleep_for(past_the_burst);
                std::raise(SIGXCPU);  // which the system repeats by itself
                std::raise(second);
            },
            testing::KilledBySignal(second), "");
    }
}

TEST(interruption, holds_off_every_signal_while_an_answer_is_written) {
    EXPECT_EXIT(
        {
            const interruption signals;
            std::raise(SIGTERM);
            std::this_thread::sleep_for(past_the_burst);
            hold_answer();
            for (const int signal_number : {SIGTERM, SIGINT, SIGHUP, SIGQUIT, SIGALRM, SIGRTMIN + 1}) {
                std::raise(signal_number);
            }
            release_answer();
            std::raise(SIGQUIT);
        },
        testing::KilledBySignal(SIGQUIT), "");
}

TEST(interruption, leaves_ignored_what_was_ignored) {
    std::signal(SIGINT, SIG_IGN);
    {
        const interruption signals;
        std::raise(SIGINT);
        EXPECT_FALSE(signals.requested());
    }
    EXPECT_EQ(std::signal(SIGINT, SIG_DFL), SIG_IGN);
}
