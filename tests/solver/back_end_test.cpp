// One suite for every back end: models stated in mathematics, each with its
// optimum and why it is one.
#include <atomic>
#include <cmath>

#include "back_ends.hpp"
#include "solver/solve_record.hpp"
#include "test_models.hpp"

using namespace solver;

namespace {

struct stated_model {
    const char* statement;
    model_record record;
    solve_status status;
    double optimum = 0.0;
};

constexpr double inf = infinity;

// Proteins A, B, C in a row; the pairs (A, C) and (C, A) need opposite directions.
model_record opposite_pairs() {
    const column chosen{0};             // A>B, B>A, B>C, C>B
    const column flow{0, 0, 1, false};  // A>B, B>C from A; C>B, B>A from C
    const column pair{1, 0, 1, false};  // (A, C), (C, A)
    return record_of({chosen, chosen, chosen, chosen, flow, flow, flow, flow, pair, pair},
                     {
                         {-inf, {1, 1}, 1},                          // packing
                         {-inf, {0, 0, 1, 1}, 1},                    //
                         {-inf, {-1, 0, 0, 0, 1}, 0},                // capacity
                         {-inf, {0, 0, -1, 0, 0, 1}, 0},             //
                         {-inf, {0, 0, 0, -1, 0, 0, 1}, 0},          //
                         {-inf, {0, -1, 0, 0, 0, 0, 0, 1}, 0},       //
                         {-inf, {0, 0, 0, 0, -1, 1}, 0},             // propagation
                         {-inf, {0, 0, 0, 0, 0, 0, -1, 1}, 0},       //
                         {-inf, {0, 0, 0, 0, 0, -1, 0, 0, 1}, 0},    // cover
                         {-inf, {0, 0, 0, 0, 0, 0, 0, -1, 0, 1}, 0}  //
                     });
}

// Twelve five-cycles whose neighbours exclude each other, beside a weight of 100,000.
model_record odd_cycles() {
    std::vector<column> columns(60, {1});
    std::vector<row> rows(60, {-inf, std::vector<double>(60, 0.0), 1});
    for (std::size_t c = 0; c < 60; ++c) {
        rows[c].coefficients[c] = rows[c].coefficients[c % 5 == 4 ? c - 4 : c + 1] = 1;
    }
    columns.push_back({100000});
    model_record record = record_of(columns, rows);
    record.settings.relative_gap = 0.0;
    return record;
}

std::vector<stated_model> stated_models() {
    const auto optimal = solve_status::optimal;
    const column x{8, 0, inf, true};
    const column y{5, 0, inf, true};
    const column real{1, 0, inf, false};
    const std::vector<row> wedge{{-inf, {1, 1}, 6}, {-inf, {9, 5}, 45}};
    return {
        {"Opposite pairs over one path: its first arc goes one way, so 1 of 2; two optima tie", opposite_pairs(),
         optimal, 1},
        {"max a+b+c, a+b<=1, b+c<=1, a+c<=1, binary: the halves give 1.5, but any two exclude each other",
         record_of({{1}, {1}, {1}}, {{-inf, {1, 1}, 1}, {-inf, {0, 1, 1}, 1}, {-inf, {1, 0, 1}, 1}}), optimal, 1},
        {"A five-cycle holds two that are no neighbours, so 24 of 60, not the 30 of the halves; a gap of 1e-4 of "
         "100,024 would hide ten of them",
         odd_cycles(), optimal, 100024},
        {"max 8x+5y, x+y<=6, 9x+5y<=45, whole: 41.25 at (3.75, 2.25), but whole points give at most 40, at (5, 0)",
         record_of({x, y}, wedge), optimal, 40},
        {"The same with y real: x = 3 gives 39, x = 4 leaves y = 1.8 and 41, x = 5 gives 40",
         record_of({x, {5, 0, inf, false}}, wedge), optimal, 41},
        {"max x+y, x+2y<=4, 3x+y<=6: both rows are tight at (1.6, 1.2), a linear program",
         record_of({real, real}, {{-inf, {1, 2}, 4}, {-inf, {3, 1}, 6}}), optimal, 2.8},
        {"max x-y, x = 2y-1, -9 <= x+y <= 5, x free, y >= -1: x-y = y-1, and x+y = 3y-1 ends y at 2",
         record_of({{1, -inf, inf, false}, {-1, -1, inf, false}}, {{-1, {1, -2}, -1}, {-9, {1, 1}, 5}}), optimal, 1},
        {"max x over 0 <= x <= 1, no rows, and a column that counts for nothing",
         record_of({{1}, {0, 0, 1, false}}, {}), optimal, 1},
        {"A row without terms, 0 <= 1, binds nothing", record_of({{1}}, {{-inf, {}, 1}}), optimal, 1},
        {"a+b >= 3 over two binaries", record_of({{1}, {1}}, {{3, {1, 1}, inf}}), solve_status::infeasible},
        {"2a+2b = 3 over two binaries has only halves", record_of({{1}, {1}}, {{3, {2, 2}, 3}}),
         solve_status::infeasible},
        {"max x, x-y <= 1: both grow without end", record_of({real, {0, 0, inf, false}}, {{-inf, {1, -1}, 1}}),
         solve_status::unbounded},
    };
}

}  // namespace

class back_end : public testing::TestWithParam<named_back_end> {
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

INSTANTIATE_TEST_SUITE_P(every, back_end, testing::ValuesIn(every_back_end),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_P(back_end, finds_the_optimum_and_proves_it) {
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

TEST_P(back_end, minimizes_and_adds_the_constant) {
    // min 3 + 2x, x >= 1.5 and whole: x = 2.
    model_record record = record_of({{2, 0, 10, true}}, {{1.5, {1}, inf}});
    record.maximize = false;
    record.objective_constant = 3.0;
    EXPECT_EQ(solve(record).objective, 7.0);
}

TEST_P(back_end, stops_at_the_gap_asked_for) {
    model_record record = odd_cycles();
    record.settings.relative_gap = 0.05;
    const solve_answer answer = solve(record);
    EXPECT_EQ(answer.status, solve_status::optimal);
    EXPECT_GT(answer.bound, answer.objective + 1.0);
}

TEST_P(back_end, takes_every_setting_and_stays_silent) {
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

TEST_P(back_end, solves_random_models_alike_twice) {
    for (unsigned seed = 0; seed < 10; ++seed) {
        const model_record record = random_record(seed);
        const solve_answer answer = solve(record);
        ASSERT_EQ(answer.status, solve_status::optimal) << answer.reason;
        EXPECT_EQ(solve(record).values, answer.values);
    }
}

TEST_P(back_end, keeps_the_best_solution_when_stopped) {
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

TEST_P(back_end, has_no_solution_when_stopped_at_once) {
    solve_watch watch;
    watch.stop_requested = [] { return true; };
    model_record record = long_solve();
    record.row_lower = record.row_upper;  // no longer solved by nothing at all
    const solve_answer answer = solve(record, watch);
    EXPECT_EQ(answer.status, solve_status::unknown);
    EXPECT_TRUE(answer.values.empty());
    EXPECT_EQ(answer.reason.find('\n'), std::string::npos);
}

TEST(back_ends, agree_on_random_models) {
    SKIP_WITHOUT_CPLEX();
    for (unsigned seed = 0; seed < 100; ++seed) {
        model_record record = random_record(seed);
        record.settings.relative_gap = 0.0;
        const solve_answer highs = solve_record(record, solve_with_highs, {});
        const solve_answer cplex = solve_record(record, solve_with_test_cplex, {});
        ASSERT_EQ(highs.status, solve_status::optimal) << seed << " " << highs.reason;
        ASSERT_EQ(cplex.status, solve_status::optimal) << seed << " " << cplex.reason;
        EXPECT_NEAR(highs.objective, cplex.objective, 1e-6) << seed;
        EXPECT_NEAR(solve_record(record, search_with_highs, {}).objective, cplex.objective, 1e-6) << seed;
    }
}
