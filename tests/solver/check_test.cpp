// Answers are believed only after a check.
#include <cmath>

#include "solver/back_ends.hpp"
#include "solver/concert.hpp"
#include "solver/solve_record.hpp"
#include "solver/test_models.hpp"

using namespace solver;

namespace {

// max y, a + b <= 1, y <= a, z = 1 - a: the optimum 1 at (1, 0, 1, 0), and every
// column at another end breaks a row or the value.
model_record one_way() {
    return record_of({{0}, {0}, {1, 0, 1, false}, {0, 0, 1, false}},
                     {{-infinity, {1, 1}, 1}, {-infinity, {-1, 0, 1}, 0}, {1, {1, 0, 0, 1}, 1}});
}

solve_answer claimed;  // what the stand-in back end says

solve_answer check(std::vector<double> values, double objective) {
    claimed = {solve_status::optimal, std::move(values), objective, objective, ""};
    return solve_record(one_way(), [](const model_record&, const solve_watch&) { return claimed; }, {});
}

}  // namespace

TEST(check, takes_a_right_answer_and_makes_it_exact) {
    const solve_answer answer = check({0.9999999, -1e-9, 1.0000000001, -0.0}, 0.9999999);
    ASSERT_EQ(answer.status, solve_status::optimal) << answer.reason;
    EXPECT_EQ(answer.values, (std::vector<double>{1.0, 0.0, 1.0, 0.0}));
    EXPECT_EQ(answer.objective, 1.0);
    for (const double value : answer.values) {
        EXPECT_FALSE(std::signbit(value));
    }
    EXPECT_FALSE(std::signbit(check({0, 0, -0.0, 1}, -0.0).objective));
}

TEST(check, rejects_one_value_flipped) {
    const std::vector<double> right{1, 0, 1, 0};
    for (std::size_t c = 0; c < right.size(); ++c) {
        std::vector<double> wrong = right;
        wrong[c] = 1.0 - wrong[c];
        const solve_answer answer = check(wrong, 1.0);
        EXPECT_EQ(answer.status, solve_status::error) << "column " << c;
        EXPECT_FALSE(answer.reason.empty());
    }
}

TEST(check, rejects_what_is_no_answer) {
    const double nan = std::nan("");
    EXPECT_EQ(check({1, 0, 1}, 1).status, solve_status::error) << "a value is missing";
    EXPECT_EQ(check({}, 1).status, solve_status::error) << "no values";
    EXPECT_EQ(check({0.5, 0, 0.5, 0.5}, 0.5).status, solve_status::error) << "half a direction";
    EXPECT_EQ(check({2, -1, 1, -1}, 1).status, solve_status::error) << "out of bounds";
    EXPECT_EQ(check({1, 0, 1.00001, 0}, 1).status, solve_status::error) << "just out of bounds";
    EXPECT_EQ(check({0, 1, 1e-4, 1}, 0).status, solve_status::error) << "a row just broken";
    EXPECT_EQ(check({1, 0, nan, 0}, 1).status, solve_status::error);
    EXPECT_EQ(check({1, 0, 1, 0}, nan).status, solve_status::error);
    EXPECT_EQ(check({1, 0, 1, 0}, 2).status, solve_status::error) << "more than it is worth";
}

TEST(check, a_session_passes_failures_on) {
    const IloEnv env;
    const IloModel model(env);
    model.add(2 * IloNumVar(env, 0.0, 1.0, IloNumVar::Bool) <= 1.0);
    IloCplex cplex(model);
    cplex.use_back_end([](const model_record&, const solve_watch&) {
        return solve_answer{solve_status::optimal, {1.0}, 0.0, 0.0, ""};
    });
    EXPECT_FALSE(cplex.solve());
    EXPECT_EQ(cplex.getStatus(), IloCplex::Error);
    EXPECT_EQ(cplex.failure_reason(), "the answer breaks row 1");
    EXPECT_THROW(cplex.getObjValue(), IloException);
    cplex.use_back_end([](const model_record&, const solve_watch&) {
        return solve_answer{solve_status::infeasible, {}, 0.0, 0.0, "for a reason"};
    });
    EXPECT_FALSE(cplex.solve());
    EXPECT_EQ(cplex.getStatus(), IloCplex::Infeasible);
    EXPECT_EQ(cplex.failure_reason(), "for a reason");
}
