// The example's regrets and prices are those that plain solving gives.
#include <algorithm>
#include <iostream>

#include <gtest/gtest.h>

#include "driver/run.hpp"
#include "solver/regret/plain_regrets.hpp"

TEST(regrets, of_the_example_equal_plain_solving) {
    const IloCplex session = run_phases(files_below(EXAMPLE_FOLDER "/"), {});
    const solver::model_record& record = session.solved_record();
    const solver::solve_answer& answer = session.answer();
    ASSERT_EQ(answer.status, solver::solve_status::optimal);
    const auto found = solver::find_regrets(record, answer, {}, {});
    ASSERT_TRUE(found);
    const solver::regret_report plain = plain_regrets(record, answer);
    EXPECT_EQ(found->regret, plain.regret);
    EXPECT_EQ(found->price, plain.price);
    const auto above_nothing = [](const solver::proven_range& range) { return range.lower > 0; };
    const auto decided = std::count_if(plain.regret.begin(), plain.regret.end(), above_nothing);
    const auto lost = std::count_if(plain.price.begin(), plain.price.end(), above_nothing);
    EXPECT_GT(decided, 10);
    EXPECT_EQ(lost, 3);
    std::cout << "compared the example's " << decided << " regrets and " << lost
              << " prices above 0, and those of 0, with plain solving\n";
}
