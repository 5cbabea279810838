#include "solver/check/solve_record.hpp"

#include <algorithm>
#include <cmath>
#include <exception>
#include <new>
#include <optional>
#include <utility>

#include "solver/structure/neutral_order.hpp"
#include "solver/structure/reach_structure.hpp"
#include "solver/structure/reach_values.hpp"

namespace solver {
namespace {

std::string column_label(const model_record& record, int column) {
    const std::string_view name = record.column_names[static_cast<std::size_t>(column)];
    return name.empty() ? "column " + std::to_string(column + 1) : std::string(name);
}

// A slack that grows with the row: each term brings its own error.
double row_tolerance(double bound, std::size_t num_terms) {
    return feasibility_tolerance * (std::max(1.0, std::abs(bound)) + static_cast<double>(num_terms));
}

solve_answer failed(const std::string& reason) {
    solve_answer answer;
    answer.status = solve_status::error;
    answer.reason = reason;
    return answer;
}

bool has_values(const solve_answer& answer) {
    return answer.status == solve_status::optimal || answer.status == solve_status::feasible;
}

// The answer with its values made exact, or what is wrong with it.
solve_answer believed(const model_record& record, solve_answer answer) {
    if (!has_values(answer)) {
        return answer;
    }
    double objective = 0.0;
    const std::string fault = check_values(record, answer.values, objective);
    if (!fault.empty()) {
        return failed(fault);
    }
    const double shortfall = record.maximize ? answer.objective - objective : objective - answer.objective;
    if (!(shortfall <= feasibility_tolerance * std::max(1.0, std::abs(answer.objective)))) {
        return failed("the answer's objective is not the one claimed for it");
    }
    answer.objective = objective;
    return answer;
}

solve_answer solve_and_check(const model_record& record, const std::optional<reach_structure>& structure,
                             const back_end& solver, const solve_watch& watch) {
    if (record.num_columns() == 0) {
        solve_answer answer;
        answer.status = solve_status::optimal;
        answer.objective = answer.bound = record.objective_constant;
        return answer;
    }
    if (!structure) {
        return believed(record, solver.of_record(record, watch));
    }
    if (solver.of_structure != nullptr) {
        return believed(record, solver.of_structure(*structure, record.num_columns(), watch));
    }
    solve_answer answer = believed(record, solve_in_neutral_order(record, *structure, solver.of_record, watch));
    directions chosen;
    if (has_values(answer)) {
        chosen = directions_of(*structure, answer.values);
    } else if (answer.status == solve_status::unknown && watch.stop_requested()) {
        // Stopped before anything was found; any directions are a solution.
        chosen.assign(static_cast<std::size_t>(structure->num_choices()), 0);
        answer = {.status = solve_status::feasible,
                  .values = {},
                  .objective = record.objective_constant + static_cast<double>(reached_weight(*structure, chosen)),
                  .bound = infinity,
                  .reason = {}};
    } else {
        return answer;
    }
    answer.values = values_of(*structure, chosen, record.num_columns());
    return believed(record, std::move(answer));
}

}  // namespace

std::string check_values(const model_record& record, std::vector<double>& values, double& objective) {
    if (values.size() != static_cast<std::size_t>(record.num_columns())) {
        return "the answer has " + std::to_string(values.size()) + " values for " +
               std::to_string(record.num_columns()) + " columns";
    }
    objective = record.objective_constant;
    for (std::size_t c = 0; c < values.size(); ++c) {
        double& value = values[c];
        const double snapped = record.column_integral[c] != 0
                                   ? std::round(value)
                                   : std::clamp(value, record.column_lower[c], record.column_upper[c]);
        const double tolerance = record.column_integral[c] != 0 ? integrality_tolerance : feasibility_tolerance;
        if (!(std::abs(value - snapped) <= tolerance) || snapped < record.column_lower[c] ||
            snapped > record.column_upper[c]) {
            return "the value of " + column_label(record, static_cast<int>(c)) + " is out of its bounds or not whole";
        }
        value = snapped + 0.0;  // no minus zero
        objective += record.column_objective[c] * value;
    }
    objective += 0.0;
    for (std::size_t r = 0; r < record.row_upper.size(); ++r) {
        double activity = 0.0;
        for (std::size_t t = record.row_start[r]; t < record.row_start[r + 1]; ++t) {
            activity += record.row_value[t] * values[static_cast<std::size_t>(record.row_column[t])];
        }
        const std::size_t num_terms = record.row_start[r + 1] - record.row_start[r];
        if (activity > record.row_upper[r] + row_tolerance(record.row_upper[r], num_terms) ||
            activity < record.row_lower[r] - row_tolerance(record.row_lower[r], num_terms)) {
            return "the answer breaks row " + std::to_string(r + 1);
        }
    }
    return {};
}

namespace {

// With a solver that refuses what it is given: no reason to lose the message.
template <typename work>
solve_answer answered_or_failed(const work& solve) {
    try {
        return solve();
    } catch (const std::bad_alloc&) {
        return failed("ERROR: out of memory");
    } catch (const std::exception& failure) {
        return failed(failure.what());
    }
}

}  // namespace

solve_answer solve_record(const model_record& record, const back_end& solver, const solve_watch& watch) {
    return answered_or_failed([&] { return solve_and_check(record, find_reach_structure(record), solver, watch); });
}

solve_answer solve_record(const model_record& record, const std::optional<reach_structure>& structure,
                          const back_end& solver, const solve_watch& watch) {
    return answered_or_failed([&] { return solve_and_check(record, structure, solver, watch); });
}

}  // namespace solver
