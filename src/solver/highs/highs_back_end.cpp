// The whole record through HiGHS, as it stands. Priorities, the root algorithm,
// the branching rule, the dives and the memory bound have no counterpart there.
#include "solver/highs/highs_back_end.hpp"

#include <utility>
#include <vector>

#include "solver/highs/highs_handle.hpp"

namespace solver {
namespace {

solve_status status_of(HighsInt model_status, bool has_values) {
    switch (model_status) {
        case kHighsModelStatusOptimal:
        case kHighsModelStatusModelEmpty:
            return solve_status::optimal;
        case kHighsModelStatusInfeasible:
            return solve_status::infeasible;
        case kHighsModelStatusUnbounded:
            return solve_status::unbounded;
        case kHighsModelStatusUnboundedOrInfeasible:
            return solve_status::infeasible_or_unbounded;
        case kHighsModelStatusTimeLimit:
        case kHighsModelStatusIterationLimit:
        case kHighsModelStatusSolutionLimit:
        case kHighsModelStatusInterrupt:
            return has_values ? solve_status::feasible : solve_status::unknown;
        default:
            return solve_status::error;
    }
}

HighsInt pass_model(const highs_handle& highs, const model_record& record) {
    const HighsInt num_columns = record.num_columns();
    const HighsInt num_rows = record.num_rows();
    const std::vector<HighsInt> starts(record.row_start.begin(), record.row_start.end());
    const std::vector<HighsInt> integrality(record.column_integral.begin(), record.column_integral.end());
    const std::vector<double> objective = record.column_objective.plain();
    const std::vector<double> lower = record.column_lower.plain();
    const std::vector<double> upper = record.column_upper.plain();
    const std::vector<double> row_lower = record.row_lower.plain();
    const std::vector<double> row_upper = record.row_upper.plain();
    const std::vector<double> values = record.row_value.plain();
    return Highs_passMip(highs.get(), num_columns, num_rows, static_cast<HighsInt>(record.row_column.size()),
                         kHighsMatrixFormatRowwise, record.maximize ? kHighsObjSenseMaximize : kHighsObjSenseMinimize,
                         record.objective_constant, objective.data(), lower.data(), upper.data(), row_lower.data(),
                         row_upper.data(), starts.data(), record.row_column.data(), values.data(), integrality.data());
}

}  // namespace

solve_answer solve_with_highs(const model_record& record, const solve_watch& watch) {
    solve_answer answer;
    highs_handle highs(watch);
    if (record.settings.relative_gap) {
        highs.set_option("mip_rel_gap", *record.settings.relative_gap);
    }
    incumbent found;
    const run_end end = pass_model(highs, record) == kHighsStatusError ? run_end::failed : highs.run(found);
    if (end == run_end::failed) {
        answer.status = solve_status::error;
        answer.reason = "HiGHS gives up on the model with an error";
        return answer;
    }
    const bool has_values = !found.values.empty();
    answer.status =
        status_of(end == run_end::abandoned ? kHighsModelStatusInterrupt : highs.model_status(), has_values);
    if (has_values) {
        answer.values = std::move(found.values);
        answer.objective = found.objective;
        answer.bound = record.has_integral_column() ? found.bound : found.objective;
    } else if (answer.status == solve_status::optimal) {
        answer.status = solve_status::error;
        answer.reason = "HiGHS calls the model optimal and gives no solution";
    }
    return answer;
}

std::string highs_version() {
    return Highs_version();
}

}  // namespace solver
