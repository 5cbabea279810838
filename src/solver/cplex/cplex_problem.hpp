// A record inside CPLEX: one environment with one problem in it.
#pragma once

#include <string>

#include "solver/cplex/cplex_library.hpp"
#include "solver/record/model_record.hpp"

namespace solver::cplex {

// Rows and columns as the record orders them, with the settings and priorities
// of the record; names stay outside, for nothing in a solve needs them. Every
// failure throws std::runtime_error with a reason of one line.
class loaded_problem {
 public:
    loaded_problem(const std::string& library_path, const model_record& record);
    ~loaded_problem();
    loaded_problem(const loaded_problem&) = delete;
    loaded_problem& operator=(const loaded_problem&) = delete;

    // Throws with CPLEX's own words when a call did not return 0.
    void require(int status) const;

    const library calls;
    environment* env = nullptr;
    problem* lp = nullptr;

 private:
    void close();
    void check_version() const;
    void set_parameters(const solve_settings& settings) const;
    void add_columns(const model_record& record) const;
    void add_rows(const model_record& record) const;
    void add_order(const model_record& record) const;
};

}  // namespace solver::cplex
