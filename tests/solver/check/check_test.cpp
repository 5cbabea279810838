// Answers are believed only after a check.
#include <cmath>

#include <gtest/gtest.h>

#include "solver/check/solve_record.hpp"
#include "solver/support/test_models.hpp"

using namespace solver;

namespace {

// max y, a + b <= 1, y <= a, z = 1 - a: the optimum 1 at (1, 0, 1, 0), and every
// column at another end breaks a row or the value.
solve_answer check(const std::vector<double>& values, double objective) {
    static solve_answer claimed;
    claimed = {solve_status::optimal, values, objective, objective, ""};
    return solve_record(record_of({{0}, {0}, {1, 0, 1, false}, {0, 0, 1, false}},
                                  {{-infinity, {1, 1}, 1}, {-infinity, {-1, 0, 1}, 0}, {1, {1, 0, 0, 1}, 1}}),
                        +[](const model_record&, const solve_watch&) { return claimed; }, {});
}

}  // namespace

TEST(check, takes_a_right_answer_and_makes_it_exact) {
    const solve_answer answer = check({0.9999999, -1e-9, 1.0000000001, -0.0}, 0.9999999);
    ASSERT_EQ(answer.status, solve_status::optimal) << answer.reason;
    EXPECT_EQ(answer.values, (std::vector<double>{1.0, 0.0, 1.0, 0.0}));
    EXPECT_EQ(answer.objective, 1.0);
    EXPECT_FALSE(std::signbit(answer.values[1]) || std::signbit(answer.values[3]));
    EXPECT_FALSE(std::signbit(check({0, 0, -0.0, 1}, -0.0).objective));
}

TEST(check, rejects_what_is_no_answer) {
    const double nan = std::nan("");
    struct {
        const char* fault;
        std::vector<double> values;
        double objective = 1.0;
    } const cases[] = {
        {"flipped", {0, 0, 1, 0}},
        {"flipped", {1, 1, 1, 0}},
        {"flipped", {1, 0, 0, 0}},
        {"flipped", {1, 0, 1, 1}},
        {"a value is missing", {1, 0, 1}},
        {"no values", {}},
        {"half a direction", {0.5, 0, 0.5, 0.5}, 0.5},
        {"out of bounds", {2, -1, 1, -1}},
        {"just out of bounds", {1, 0, 1.00001, 0}},
        {"a row just broken", {0, 1, 1e-4, 1}, 0},
        {"no number", {1, 0, nan, 0}},
        {"no number", {1, 0, 1, 0}, nan},
        {"more than it is worth", {1, 0, 1, 0}, 2},
    };
    for (const auto& [fault, values, objective] : cases) {
        const solve_answer answer = check(values, objective);
        EXPECT_EQ(answer.status, solve_status::error) << fault;
        EXPECT_FALSE(answer.reason.empty()) << fault;
    }
}
