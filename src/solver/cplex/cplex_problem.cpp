#include "solver/cplex/cplex_problem.hpp"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <vector>

namespace solver::cplex {
namespace {

std::string error_text(const library& calls, const environment* env, int status) {
    char text[error_string_size] = "";
    calls.CPXgeterrorstring(env, status, text);
    const std::string words = one_line(text);
    return words.empty() ? "CPLEX Error " + std::to_string(status) : words;
}

// Only the order of priorities counts to CPLEX, which takes whole ones from 0 on.
int whole_priority(double priority) {
    return static_cast<int>(std::round(std::clamp(priority, 0.0, 1e9)));
}

}  // namespace

loaded_problem::loaded_problem(const std::string& library_path, const model_record& record)
    : calls(open_library(library_path)) {
    int status = 0;
    env = calls.CPXopenCPLEX(&status);
    if (env == nullptr) {
        throw std::runtime_error("CPLEX does not start (is there a licence?): " + error_text(calls, nullptr, status));
    }
    try {
        check_version();
        set_parameters(record.settings);
        lp = calls.CPXcreateprob(env, &status, "");
        require(status);
        add_columns(record);
        add_rows(record);
        add_order(record);
    } catch (...) {
        close();
        throw;
    }
}

loaded_problem::~loaded_problem() {
    close();
}

void loaded_problem::close() {
    if (lp != nullptr) {
        calls.CPXfreeprob(env, &lp);
    }
    calls.CPXcloseCPLEX(&env);
}

void loaded_problem::require(int status) const {
    if (status != 0) {
        throw std::runtime_error(error_text(calls, env, status));
    }
}

void loaded_problem::check_version() const {
    int version = 0;
    require(calls.CPXversionnumber(env, &version));
    if (version < oldest_version) {
        throw std::runtime_error("the CPLEX library is too old: version " + std::to_string(version / 1000000) + "." +
                                 std::to_string(version / 10000 % 100) + ", and 12.8 is the oldest that will do");
    }
}

void loaded_problem::set_parameters(const solve_settings& settings) const {
    // The same run gives the same answer on every machine.
    require(calls.CPXsetintparam(env, threads, 1));
    require(calls.CPXsetintparam(env, parallel_mode, 1));
    require(calls.CPXsetintparam(env, random_seed, 0));
    // A binary that is 1e-5 off, CPLEX's default, would not hold its row once it
    // is rounded: the flow behind it may be that much too large.
    require(calls.CPXsetdblparam(env, integrality, 1e-9));
    if (settings.root_algorithm) {
        // One parameter to Concert, which sets the method of the root of a MIP and of a plain LP.
        require(calls.CPXsetintparam(env, start_algorithm, *settings.root_algorithm));
        require(calls.CPXsetintparam(env, lp_method, *settings.root_algorithm));
    }
    if (settings.variable_selection) {
        require(calls.CPXsetintparam(env, variable_selection, *settings.variable_selection));
    }
    if (settings.dive_type) {
        require(calls.CPXsetintparam(env, dive_type, *settings.dive_type));
    }
    if (settings.work_memory) {
        require(calls.CPXsetdblparam(env, work_memory, *settings.work_memory));
    }
    if (settings.relative_gap) {
        // The absolute gap stays at its default of 1e-6: with whole weights two
        // different objective values are at least 1 apart, so it hides nothing.
        require(calls.CPXsetdblparam(env, relative_gap, *settings.relative_gap));
    }
}

void loaded_problem::add_columns(const model_record& record) const {
    const auto num_columns = static_cast<std::size_t>(record.num_columns());
    std::vector<double> lower(num_columns);
    std::vector<double> upper(num_columns);
    std::string type(num_columns, 'C');
    for (std::size_t c = 0; c < num_columns; ++c) {
        lower[c] = std::max(record.column_lower[c], -infinite);
        upper[c] = std::min(record.column_upper[c], infinite);
        if (record.column_integral[c] != 0) {
            type[c] = lower[c] >= 0.0 && upper[c] <= 1.0 ? 'B' : 'I';
        }
    }
    require(calls.CPXnewcols(env, lp, record.num_columns(), record.column_objective.plain().data(), lower.data(),
                             upper.data(), record.has_integral_column() ? type.data() : nullptr, nullptr));
    require(calls.CPXchgobjsen(env, lp, record.maximize ? maximize : minimize));
    require(calls.CPXchgobjoffset(env, lp, record.objective_constant));
}

void loaded_problem::add_rows(const model_record& record) const {
    const auto num_rows = static_cast<std::size_t>(record.num_rows());
    std::vector<double> right_side(num_rows);
    std::string sense(num_rows, 'L');
    std::vector<int> ranged;
    std::vector<double> range;
    for (std::size_t r = 0; r < num_rows; ++r) {
        const double lower = record.row_lower[r];
        const double upper = record.row_upper[r];
        right_side[r] = std::min(upper, infinite);
        if (lower == upper) {
            sense[r] = 'E';
        } else if (lower > -infinite) {
            sense[r] = upper < infinite ? 'R' : 'G';
            right_side[r] = lower;
        }
        if (sense[r] == 'R') {
            ranged.push_back(static_cast<int>(r));
            range.push_back(upper - lower);
        }
    }
    const std::vector<int> starts(record.row_start.begin(), record.row_start.end());
    require(calls.CPXaddrows(env, lp, 0, record.num_rows(), static_cast<int>(record.row_column.size()),
                             right_side.data(), sense.data(), starts.data(), record.row_column.data(),
                             record.row_value.plain().data(), nullptr, nullptr));
    if (!ranged.empty()) {
        require(calls.CPXchgrngval(env, lp, static_cast<int>(ranged.size()), ranged.data(), range.data()));
    }
}

void loaded_problem::add_order(const model_record& record) const {
    std::vector<int> columns;
    std::vector<int> priorities;
    for (std::size_t c = 0; c < record.column_priority.size(); ++c) {
        const double priority = record.column_priority[c];
        if (priority > 0.0 && record.column_integral[c] != 0) {
            columns.push_back(static_cast<int>(c));
            priorities.push_back(whole_priority(priority));
        }
    }
    if (!columns.empty()) {
        require(
            calls.CPXcopyorder(env, lp, static_cast<int>(columns.size()), columns.data(), priorities.data(), nullptr));
    }
}

}  // namespace solver::cplex
