// What the CPLEX back end says when there is no CPLEX to speak of.
#include <gtest/gtest.h>

#include "back_ends.hpp"
#include "solver/solve_record.hpp"
#include "test_models.hpp"

using namespace solver;

namespace {

void expect_reason(const solve_answer& answer, const std::string& part) {
    EXPECT_EQ(answer.status, solve_status::error);
    EXPECT_NE(answer.reason.find(part), std::string::npos) << answer.reason;
    EXPECT_EQ(answer.reason.find('\n'), std::string::npos) << answer.reason;
}

solve_answer solve_at(const char* library_path) {
    return solve_with_cplex_at(library_path, record_of({{1}}, {}), {});
}

}  // namespace

TEST(cplex, says_in_one_line_why_it_cannot_solve) {
    expect_reason(solve_at(""), "the build names no CPLEX library");
    expect_reason(solve_at("/nowhere/libcplex2220.so"), "cannot be opened: /nowhere/libcplex2220.so");
    expect_reason(solve_at("libm.so.6"), "lacks CPXopenCPLEX");
    expect_reason(solve_at(STAND_IN_WITHOUT_LICENCE), "licence?): CPLEX Error 32201: no licence was found");
    expect_reason(solve_at(STAND_IN_TOO_OLD), "too old: version 12.7, and 12.8 is the oldest");
}

TEST(cplex, says_that_the_edition_is_too_small) {
    SKIP_WITHOUT_CPLEX();
    const model_record record = record_of(std::vector<column>(1001, {1}), {});
    const solve_answer answer = solve_with_test_cplex(record, {});
    if (answer.status == solve_status::optimal) {
        GTEST_SKIP() << "left out: this CPLEX is no Community Edition";
    }
    expect_reason(answer, "1016");
}

TEST(cplex, says_what_setting_it_does_not_take) {
    SKIP_WITHOUT_CPLEX();
    model_record record = record_of({{1}}, {});
    record.settings.root_algorithm = 99;
    expect_reason(solve_with_test_cplex(record, {}), "CPLEX Error");
}
