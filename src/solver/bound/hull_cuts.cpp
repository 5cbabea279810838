#include "solver/bound/hull_cuts.hpp"

#include <algorithm>
#include <cmath>

#include "solver/structure/index.hpp"

namespace solver {
namespace {

constexpr double least_shortfall = 1e-3;  // theta
constexpr double zero = 1e-9;             // of a multiplier

// The largest value of the cut's left side.
double largest_sum(const hull_cut& cut, const std::vector<conditional>& conditionals) {
    const std::size_t num_directions = std::size_t{1} << cut.choice_factors.size();
    double largest = -infinity;
    for (std::size_t direction = 0; direction < num_directions; ++direction) {
        double sum = 0.0;
        for (std::size_t c = 0; c < cut.choice_factors.size(); ++c) {
            sum += (direction >> c & 1) != 0 ? cut.choice_factors[c] : 0.0;
        }
        for (std::size_t k = 0; k < conditionals.size(); ++k) {
            sum += conditionals[k].allowed[direction] ? cut.conditional_factors[k] : 0.0;
        }
        largest = std::max(largest, sum);
    }
    return largest;
}

}  // namespace

hull_separator::hull_separator(const solve_watch& watch) : highs_(watch) {
    highs_.set_option("presolve", "off");
    highs_.set_option("solver", "simplex");
}

// Rows: the sum of lambda, each choice, each conditional. Columns: lambda by direction, theta.
void hull_separator::pass_program(const std::vector<double>& values, const std::vector<conditional>& conditionals) {
    const int num_choices = static_cast<int>(values.size());
    const int num_conditionals = static_cast<int>(conditionals.size());
    const int num_directions = 1 << num_choices;
    const int num_rows = 1 + num_choices + num_conditionals;
    std::vector<HighsInt> starts;
    std::vector<HighsInt> rows;
    for (int direction = 0; direction < num_directions; ++direction) {
        starts.push_back(static_cast<HighsInt>(rows.size()));
        rows.push_back(0);
        for (int c = 0; c < num_choices; ++c) {
            if ((direction >> c & 1) != 0) {
                rows.push_back(1 + c);
            }
        }
        for (int k = 0; k < num_conditionals; ++k) {
            if (conditionals[at(k)].allowed[at(direction)]) {
                rows.push_back(1 + num_choices + k);
            }
        }
    }
    starts.push_back(static_cast<HighsInt>(rows.size()));
    for (int row = 1 + num_choices; row < num_rows; ++row) {
        rows.push_back(row);
    }
    starts.push_back(static_cast<HighsInt>(rows.size()));
    const std::vector<double> entries(rows.size(), 1.0);
    std::vector<double> costs(at(num_directions), 0.0);
    costs.push_back(1.0);
    const std::vector<double> lower(at(num_directions + 1), 0.0);
    const std::vector<double> upper(at(num_directions + 1), infinity);
    std::vector<double> row_lower{1.0};
    row_lower.insert(row_lower.end(), values.begin(), values.end());
    std::vector<double> row_upper = row_lower;
    row_upper.resize(at(num_rows), infinity);
    for (const conditional& variable : conditionals) {
        row_lower.push_back(variable.value);
    }
    Highs_passLp(highs_.get(), num_directions + 1, num_rows, static_cast<HighsInt>(rows.size()),
                 kHighsMatrixFormatColwise, kHighsObjSenseMinimize, 0.0, costs.data(), lower.data(), upper.data(),
                 row_lower.data(), row_upper.data(), starts.data(), rows.data(), entries.data());
}

hull_cut hull_separator::find(const std::vector<double>& values, const std::vector<conditional>& conditionals) {
    pass_program(values, conditionals);
    if (Highs_run(highs_.get()) != kHighsStatusOk || highs_.model_status() != kHighsModelStatusOptimal ||
        highs_.double_info("objective_function_value") < least_shortfall) {
        return {};
    }
    std::vector<double> duals(1 + values.size() + conditionals.size());
    Highs_getSolution(highs_.get(), nullptr, nullptr, nullptr, duals.data());
    hull_cut cut;
    for (std::size_t c = 0; c < values.size(); ++c) {
        const double factor = duals[1 + c];
        cut.choice_factors.push_back(std::abs(factor) < zero ? 0.0 : factor);
        cut.violation += cut.choice_factors.back() * values[c];
    }
    for (std::size_t k = 0; k < conditionals.size(); ++k) {
        const double factor = duals[1 + values.size() + k];
        cut.conditional_factors.push_back(factor < zero ? 0.0 : factor);
        cut.violation += cut.conditional_factors.back() * conditionals[k].value;
    }
    cut.limit = largest_sum(cut, conditionals);
    cut.violation -= cut.limit;
    return cut;
}

}  // namespace solver
