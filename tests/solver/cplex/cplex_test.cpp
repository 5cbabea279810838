// What reaches CPLEX, and what is said when there is none to speak of.
#include "solver/check/solve_record.hpp"
#include "solver/cplex/cplex_problem.hpp"
#include "solver/support/back_ends.hpp"
#include "solver/support/test_models.hpp"

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

// As the library itself writes them down, those that are not its defaults.
TEST(cplex, gets_every_setting_and_priority) {
    SKIP_WITHOUT_CPLEX();
    model_record record = record_of({{0}, {0}, {1, 0, 1, false}, {0}}, {});
    record.settings = {3, 4, 2, 1280.0, 0.25};
    record.column_priority = {7, 0, 9, 2.6};  // none for the second, and no order for a real one
    const cplex::loaded_problem loaded(test_cplex_library, record);
    const std::string settings =
        written_by([&](const char* path) { loaded.require(call_cplex("CPXwriteparam", loaded.env, path)); });
    EXPECT_EQ(settings.substr(settings.find('\n')), R"(
CPXPARAM_LPMethod                                3
CPXPARAM_Threads                                 1
CPXPARAM_Parallel                                1
CPXPARAM_RandomSeed                              0
CPXPARAM_MIP_Strategy_StartAlgorithm             3
CPXPARAM_MIP_Strategy_VariableSelect             4
CPXPARAM_MIP_Strategy_Dive                       2
CPXPARAM_WorkMem                                 1280
CPXPARAM_MIP_Tolerances_MIPGap                   0.25
CPXPARAM_MIP_Tolerances_Integrality              1.0000000000000001e-09
)");
    const std::string order =
        written_by([&](const char* path) { loaded.require(call_cplex("CPXordwrite", loaded.env, loaded.lp, path)); });
    EXPECT_TRUE(
        order.ends_with("\n    x1                            7\n    x4                            3\nENDATA\n"));
}

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
