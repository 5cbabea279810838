// What reaches CPLEX, and what is said when there is none to speak of.
#include "solver/back_ends.hpp"
#include "solver/cplex_problem.hpp"
#include "solver/solve_record.hpp"
#include "solver/test_models.hpp"

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

// Asked back from the library itself, by its own names.
TEST(cplex, gets_every_setting_and_priority) {
    SKIP_WITHOUT_CPLEX();
    model_record record = record_of({{0}, {0}, {1, 0, 1, false}, {0}}, {});
    record.settings = {3, 4, 2, 1280.0, 0.25};
    record.column_priority = {7, 0, 9, 2.6};  // none for the second, and no order for a real one
    const cplex::loaded_problem loaded(test_cplex_library, record);
    const auto setting = [&](const char* get, const char* name, auto value) {
        int number = 0;
        loaded.require(call_cplex("CPXgetparamnum", loaded.env, name, &number));
        loaded.require(call_cplex(get, loaded.env, number, &value));
        return value;
    };
    const std::vector<std::pair<const char*, int>> whole{{"STARTALG", 3},  {"LPMETHOD", 3}, {"VARSEL", 4},
                                                         {"DIVETYPE", 2},  {"THREADS", 1},  {"PARALLELMODE", 1},
                                                         {"RANDOMSEED", 0}};
    for (const auto& [name, expected] : whole) {
        EXPECT_EQ(setting("CPXgetintparam", (std::string("CPX_PARAM_") + name).c_str(), -1), expected) << name;
    }
    const std::vector<std::pair<const char*, double>> real{
        {"WORKMEM", 1280.0}, {"EPGAP", 0.25}, {"EPAGAP", 1e-6}, {"EPINT", 1e-9}};
    for (const auto& [name, expected] : real) {
        EXPECT_EQ(setting("CPXgetdblparam", (std::string("CPX_PARAM_") + name).c_str(), -1.0), expected) << name;
    }
    int count = 0;
    int surplus = 0;
    std::vector<int> columns(4, -1);
    std::vector<int> priorities(4, -1);
    int* const no_directions = nullptr;
    loaded.require(call_cplex("CPXgetorder", loaded.env, loaded.lp, &count, columns.data(), priorities.data(),
                              no_directions, 4, &surplus));
    EXPECT_EQ(count, 2);
    EXPECT_EQ(columns, (std::vector<int>{0, 3, -1, -1}));
    EXPECT_EQ(priorities, (std::vector<int>{7, 3, -1, -1}));
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
