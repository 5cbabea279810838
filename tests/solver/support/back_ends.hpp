// The back ends that every test of a back end runs against.
#pragma once

#include <dlfcn.h>
#include <unistd.h>

#include <cstdio>
#include <fstream>
#include <sstream>
#include <string>

#include <gtest/gtest.h>

#include "solver/back_ends/back_ends.hpp"
#include "solver/cplex/cplex_back_end.hpp"
#include "solver/highs/highs_back_end.hpp"

struct named_back_end {
    const char* name;
    solver::back_end solve;
};
inline void PrintTo(const named_back_end& back_end, std::ostream* out) {
    *out << back_end.name;
}

// CPLEX by the library that the tests are built with; "" = there is none.
inline const std::string test_cplex_library = TEST_CPLEX_LIBRARY;
inline solver::solve_answer solve_with_test_cplex(const solver::model_record& record,
                                                  const solver::solve_watch& watch) {
    return solver::solve_with_cplex_at(test_cplex_library, record, watch);
}

// A function of CPLEX's that only tests call.
template <typename... arguments>
int call_cplex(const char* name, arguments... given) {
    void* handle = dlopen(test_cplex_library.c_str(), RTLD_NOW | RTLD_LOCAL);
    return reinterpret_cast<int (*)(arguments...)>(dlsym(handle, name))(given...);
}

// What a function that gets a path writes there. Tests run side by side.
template <typename writer>
std::string written_by(const writer& write) {
    const std::string path = testing::TempDir() + "netorient_" + std::to_string(getpid());
    write(path.c_str());
    std::ostringstream text;
    text << std::ifstream(path, std::ios::binary).rdbuf();
    std::remove(path.c_str());
    return text.str();
}

#define SKIP_WITHOUT_CPLEX() \
    if (test_cplex_library.empty()) GTEST_SKIP() << "left out: no CPLEX library (NETORIENT_TEST_CPLEX_LIBRARY)"

inline const named_back_end every_back_end[] = {
    {"highs", solver::solve_with_highs}, {"search", solver::search_with_highs}, {"cplex", solve_with_test_cplex}};
