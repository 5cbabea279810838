#include "solver/bound/row_program.hpp"

#include <algorithm>
#include <utility>

#include "solver/structure/index.hpp"

namespace solver {

flat_rows flatten(const std::vector<program_row>& rows, std::size_t first) {
    flat_rows flat;
    for (std::size_t r = first; r < rows.size(); ++r) {
        flat.starts.push_back(flat.num_entries());
        flat.columns.insert(flat.columns.end(), rows[r].columns.begin(), rows[r].columns.end());
        flat.values.insert(flat.values.end(), rows[r].values.begin(), rows[r].values.end());
        flat.upper.push_back(rows[r].upper);
    }
    flat.starts.push_back(flat.num_entries());
    flat.lower.assign(flat.upper.size(), -infinity);
    return flat;
}

row_program::row_program(std::vector<double> weights, double constant, const solve_watch& watch)
    : highs_(watch), weights_(std::move(weights)), constant_(constant) {
    // Minimised, so that a row's dual has one sign whatever the solver's convention.
    std::vector<double> costs(weights_.size());
    std::transform(weights_.begin(), weights_.end(), costs.begin(), [](double weight) { return -weight; });
    const std::vector<double> lower(weights_.size(), 0.0);
    const std::vector<double> upper(weights_.size(), 1.0);
    Highs_addCols(highs_.get(), num_columns(), costs.data(), lower.data(), upper.data(), 0, nullptr, nullptr, nullptr);
}

void row_program::add_row(program_row row) {
    num_entries_ += static_cast<long>(row.columns.size());
    row.columns.shrink_to_fit();  // there may be a hundred thousand of them
    row.values.shrink_to_fit();
    rows_.push_back(std::move(row));
}

void row_program::favour(int column, double amount) {
    Highs_changeColCost(highs_.get(), column, -weights_[at(column)] - amount);
}

void row_program::solve_loosely(double tolerance) {
    is_loose_ = true;
    highs_.set_option("pdlp_optimality_tolerance", tolerance);
    highs_.set_option("ipm_optimality_tolerance", tolerance);
    highs_.set_option("pdlp_iteration_limit", 3000);
    highs_.set_option("run_crossover", "off");
    highs_.set_option("presolve", "off");  // takes longer than it saves
}

void row_program::limit_iterations(int limit) {
    highs_.set_option("simplex_iteration_limit", limit);
}

void row_program::pass_new_rows() {
    if (rows_passed_ == rows_.size()) {
        return;
    }
    const flat_rows flat = flatten(rows_, rows_passed_);
    Highs_addRows(highs_.get(), flat.num_rows(), flat.lower.data(), flat.upper.data(), flat.num_entries(),
                  flat.starts.data(), flat.columns.data(), flat.values.data());
    rows_passed_ = rows_.size();
}

bool row_program::solve() {
    pass_new_rows();
    if (is_loose_) {
        highs_.set_option("solver", "hipdlp");
    }
    run_end end = highs_.run();
    work_ = is_loose_ ? static_cast<double>(num_entries_) * highs_.int_info("pdlp_iteration_count")
                      : static_cast<double>(num_rows()) * highs_.int_info("simplex_iteration_count");
    // The first-order method does not get through every program; where it does not, its
    // last values are worth nothing.
    if (is_loose_ && end == run_end::finished && ran_into_limit()) {
        highs_.set_option("solver", "ipx");
        end = highs_.run();
    }
    if (end != run_end::finished) {
        return false;
    }
    const HighsInt status = highs_.model_status();
    if (status != kHighsModelStatusOptimal && status != kHighsModelStatusUnknown &&
        status != kHighsModelStatusIterationLimit) {
        return false;
    }
    // Any duals prove a bound, those of an unfinished solve too.
    values_.resize(weights_.size());
    multipliers_.resize(rows_.size());
    Highs_getSolution(highs_.get(), values_.data(), nullptr, nullptr, multipliers_.data());
    for (double& multiplier : multipliers_) {
        multiplier = std::max(0.0, -multiplier);
    }
    prove_bound();
    return true;
}

// Rows count their right side, columns the best that 0 and 1 leave of their weight.
void row_program::prove_bound() {
    bound_ = constant_;
    reduced_ = weights_;
    for (std::size_t r = 0; r < rows_.size(); ++r) {
        if (multipliers_[r] == 0.0) {
            continue;
        }
        bound_ += multipliers_[r] * rows_[r].upper;
        for (std::size_t t = 0; t < rows_[r].columns.size(); ++t) {
            reduced_[at(rows_[r].columns[t])] -= multipliers_[r] * rows_[r].values[t];
        }
    }
    for (const double weight : reduced_) {
        bound_ += std::max(0.0, weight);
    }
}

}  // namespace solver
