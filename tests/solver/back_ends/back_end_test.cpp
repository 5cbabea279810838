// One suite for every back end: models stated in mathematics, each with its
// optimum and why it is one.
#include <atomic>
#include <cmath>

#include "solver/check/solve_record.hpp"
#include "solver/support/back_ends.hpp"
#include "solver/support/test_models.hpp"

using namespace solver;

class every_solve : public testing::TestWithParam<named_back_end> {
 protected:
    void SetUp() override {
        if (std::string(GetParam().name) == "cplex") {
            SKIP_WITHOUT_CPLEX();
        }
    }
    solve_answer solve(const model_record& record, const solve_watch& watch = {}) const {
        return solve_record(record, GetParam().solve, watch);
    }
};

INSTANTIATE_TEST_SUITE_P(back_end, every_solve, testing::ValuesIn(every_back_end),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_P(every_solve, finds_the_optimum_and_proves_it) {
    for (const stated_model& model : stated_models()) {
        SCOPED_TRACE(model.statement);
        const solve_answer answer = solve(model.record);
        const bool may_be_either = model.status == solve_status::unbounded;
        EXPECT_TRUE(answer.status == model.status ||
                    (may_be_either && answer.status == solve_status::infeasible_or_unbounded))
            << static_cast<int>(answer.status) << " " << answer.reason;
        if (model.status == solve_status::optimal) {
            EXPECT_NEAR(answer.objective, model.optimum, 1e-6);
            EXPECT_NEAR(answer.bound, model.optimum, 1e-4);
        }
    }
}

TEST_P(every_solve, minimizes_and_adds_the_constant) {
    // min 3 + 2x, x >= 1.5 and whole: x = 2.
    model_record record = record_of({{2, 0, 10, true}}, {{1.5, {1}, infinity}});
    record.maximize = false;
    record.objective_constant = 3.0;
    EXPECT_EQ(solve(record).objective, 7.0);
}

TEST_P(every_solve, stops_at_the_gap_asked_for) {
    model_record record = odd_cycles();
    record.settings.relative_gap = 0.05;
    const solve_answer answer = solve(record);
    EXPECT_EQ(answer.status, solve_status::optimal);
    EXPECT_GT(answer.bound, answer.objective + 1.0);
}

TEST_P(every_solve, takes_every_setting_and_stays_silent) {
    model_record record = opposite_pairs();
    record.settings = {3, 3, 3, 1280.0, 0.0};
    record.column_priority = {4, 1, 2.5, 1e12, 7, 0, 0, 0, 0, 0};
    testing::internal::CaptureStdout();
    const solve_answer answer = solve(record);
    EXPECT_EQ(testing::internal::GetCapturedStdout(), "");
    EXPECT_EQ(answer.objective, 1.0) << answer.reason;
    for (const double value : answer.values) {
        EXPECT_FALSE(std::signbit(value));
    }
}

TEST_P(every_solve, solves_random_models_alike_twice) {
    for (unsigned seed = 0; seed < 10; ++seed) {
        const model_record record = named_reach_model(seed);
        const solve_answer answer = solve(record);
        ASSERT_EQ(answer.status, solve_status::optimal) << answer.reason;
        EXPECT_EQ(solve(record).values, answer.values);
    }
}

TEST_P(every_solve, keeps_the_best_solution_when_stopped) {
    std::atomic<bool> found = false;
    solve_watch watch;
    watch.report = [&](const solve_progress& progress) {
        EXPECT_LE(progress.value, progress.bound);
        found = found || std::isfinite(progress.value);
    };
    watch.stop_requested = [&] { return found.load(); };
    const solve_answer answer = solve(long_solve(), watch);
    EXPECT_EQ(answer.status, solve_status::feasible) << answer.reason;
    EXPECT_GT(answer.objective, 0.0);
    EXPECT_GT(answer.bound, answer.objective);
}

TEST_P(every_solve, has_no_solution_when_stopped_at_once) {
    solve_watch watch;
    watch.stop_requested = [] { return true; };
    model_record record = long_solve();
    record.row_lower = record.row_upper;  // no longer solved by nothing at all
    const solve_answer answer = solve(record, watch);
    EXPECT_EQ(answer.status, solve_status::unknown);
    EXPECT_TRUE(answer.values.empty());
    EXPECT_EQ(answer.reason.find('\n'), std::string::npos);
}
