// The text of the line on the terminal.
#include <gtest/gtest.h>

#include "report/progress_line.hpp"

TEST(progress_line, says_what_is_known) {
    using solver::infinity;
    EXPECT_EQ(describe(7, {"cuts", 4530, 4884.7}), "7 s: 4530 pairs, bound 4884, gap 7.8 %, cuts");
    EXPECT_EQ(describe(70, {"cuts", 12, 11.9999999}), "70 s: 12 pairs, bound 12, gap 0.0 %, cuts");
    EXPECT_EQ(describe(1, {"reduce", 90, infinity}), "1 s: 90 pairs, bound -, gap - %, reduce");
    EXPECT_EQ(describe(1, {"solve", 0, 8}), "1 s: 0 pairs, bound 8, gap - %, solve");
    EXPECT_EQ(describe(1, {"solve", -infinity, 8}), "1 s: - pairs, bound 8, gap - %, solve");
    EXPECT_EQ(bar_text(12, "regrets", 10, 40), "12 s: regrets [#####---------------] 25 %, 10 of 40");
    EXPECT_EQ(bar_text(2, "folds", 0, 0), "2 s: folds [--------------------] 0 %, 0 of 0");
}
