#include "solver/structure/hull_cuts.hpp"

#include <algorithm>
#include <cmath>

#include "solver/structure/index.hpp"

namespace solver {
namespace {

// A bit of a direction is set where the choice's gate 2c is open.
bool opens(int direction, int gate, const std::vector<int>& choices) {
    const auto position = std::find(choices.begin(), choices.end(), gate / 2) - choices.begin();
    return (direction >> position & 1) == (gate % 2 == 0 ? 1 : 0);
}

}  // namespace

hull_cut find_hull_cut(const std::vector<int>& choices, const std::vector<double>& values,
                       const std::vector<product_value>& products, const solve_watch& watch) {
    const int num_choices = static_cast<int>(choices.size());
    const int num_products = static_cast<int>(products.size());
    const int num_directions = 1 << num_choices;
    const int num_rows = 1 + num_choices + num_products;

    // Rows: the sum of lambda, each choice, each product. Columns: lambda by direction, theta.
    std::vector<HighsInt> starts;
    std::vector<HighsInt> rows;
    std::vector<double> entries;
    for (int direction = 0; direction <= num_directions; ++direction) {
        starts.push_back(static_cast<HighsInt>(rows.size()));
        const bool is_theta = direction == num_directions;
        for (int row = is_theta ? 1 + num_choices : 0; row < num_rows; ++row) {
            const int choice = row - 1;
            const int product = choice - num_choices;
            const bool present = is_theta || row == 0 ||
                                 (product < 0 ? (direction >> choice & 1) != 0
                                              : opens(direction, products[at(product)].first_gate, choices) &&
                                                    opens(direction, products[at(product)].second_gate, choices));
            if (present) {
                rows.push_back(row);
                entries.push_back(1.0);
            }
        }
    }
    starts.push_back(static_cast<HighsInt>(rows.size()));
    std::vector<double> costs(at(num_directions), 0.0);
    costs.push_back(1.0);
    const std::vector<double> lower(at(num_directions + 1), 0.0);
    const std::vector<double> upper(at(num_directions + 1), infinity);
    std::vector<double> row_lower{1.0};
    row_lower.insert(row_lower.end(), values.begin(), values.end());
    for (const product_value& product : products) {
        row_lower.push_back(product.value);
    }
    std::vector<double> row_upper(row_lower.begin(), row_lower.begin() + 1 + num_choices);
    row_upper.resize(at(num_rows), infinity);

    hull_cut cut{std::vector<double>(at(num_choices)), std::vector<double>(at(num_products)), 0.0, 0.0};
    highs_handle highs(watch);
    highs.set_option("presolve", "off");
    highs.set_option("solver", "simplex");
    Highs_passLp(highs.get(), num_directions + 1, num_rows, static_cast<HighsInt>(rows.size()),
                 kHighsMatrixFormatColwise, kHighsObjSenseMinimize, 0.0, costs.data(), lower.data(), upper.data(),
                 row_lower.data(), row_upper.data(), starts.data(), rows.data(), entries.data());
    if (Highs_run(highs.get()) != kHighsStatusOk || highs.model_status() != kHighsModelStatusOptimal ||
        highs.double_info("objective_function_value") < 1e-3) {
        return cut;
    }
    std::vector<double> duals(at(num_rows));
    Highs_getSolution(highs.get(), nullptr, nullptr, nullptr, duals.data());
    for (int c = 0; c < num_choices; ++c) {
        cut.choice_factors[at(c)] = std::abs(duals[at(1 + c)]) < 1e-9 ? 0.0 : duals[at(1 + c)];
        cut.violation += cut.choice_factors[at(c)] * values[at(c)];
    }
    for (int k = 0; k < num_products; ++k) {
        const double factor = duals[at(1 + num_choices + k)];
        cut.product_factors[at(k)] = factor < 1e-9 ? 0.0 : factor;
        cut.violation += cut.product_factors[at(k)] * products[at(k)].value;
    }
    cut.limit = -infinity;
    for (int direction = 0; direction < num_directions; ++direction) {
        double sum = 0.0;
        for (int c = 0; c < num_choices; ++c) {
            sum += (direction >> c & 1) != 0 ? cut.choice_factors[at(c)] : 0.0;
        }
        for (int k = 0; k < num_products; ++k) {
            if (cut.product_factors[at(k)] > 0.0 && opens(direction, products[at(k)].first_gate, choices) &&
                opens(direction, products[at(k)].second_gate, choices)) {
                sum += cut.product_factors[at(k)];
            }
        }
        cut.limit = std::max(cut.limit, sum);
    }
    cut.violation -= cut.limit;
    return cut;
}

}  // namespace solver
