#include "solver/structure/neutral_order.hpp"

#include <algorithm>
#include <numeric>
#include <utility>

#include "solver/structure/index.hpp"

namespace solver {
namespace {

std::vector<int> column_order(const reach_structure& structure) {
    std::vector<int> order;
    for (const int column : structure.gate_column) {
        if (column >= 0) {
            order.push_back(column);
        }
    }
    for (const std::vector<int>* columns : {&structure.arc_column, &structure.idle_columns, &structure.demand_column}) {
        order.insert(order.end(), columns->begin(), columns->end());
    }
    return order;
}

template <typename list_type>
list_type picked(const list_type& values, const std::vector<int>& order) {
    list_type result;
    result.reserve(order.size());
    for (const int index : order) {
        result.push_back(values[at(index)]);
    }
    return result;
}

// What is not there counts as 0.
std::vector<double> picked_priorities(const std::vector<double>& priorities, const std::vector<int>& order) {
    std::vector<double> result;
    result.reserve(order.size());
    for (const int index : order) {
        result.push_back(at(index) < priorities.size() ? priorities[at(index)] : 0.0);
    }
    return result;
}

name_list picked_names(const name_list& names, const std::vector<int>& order) {
    name_list result;
    for (const int index : order) {
        result.push_back(names[at(index)]);
    }
    return result;
}

}  // namespace

model_record neutral_record(const model_record& record, const reach_structure& structure, std::vector<int>& order) {
    order = column_order(structure);
    model_record made;
    made.column_lower = picked(record.column_lower, order);
    made.column_upper = picked(record.column_upper, order);
    made.column_integral = picked(record.column_integral, order);
    made.column_objective = picked(record.column_objective, order);
    made.column_priority = picked_priorities(record.column_priority, order);
    made.column_names = picked_names(record.column_names, order);
    made.maximize = record.maximize;
    made.objective_constant = record.objective_constant;
    made.objective_name = record.objective_name;
    made.settings = record.settings;

    std::vector<int> position(order.size());
    for (std::size_t p = 0; p < order.size(); ++p) {
        position[at(order[p])] = static_cast<int>(p);
    }
    std::vector<std::vector<std::pair<int, double>>> rows(at(record.num_rows()));
    for (std::size_t r = 0; r < rows.size(); ++r) {
        for (std::size_t t = record.row_start[r]; t < record.row_start[r + 1]; ++t) {
            rows[r].emplace_back(position[at(record.row_column[t])], record.row_value[t]);
        }
        std::sort(rows[r].begin(), rows[r].end());
    }
    std::vector<int> row_order(rows.size());
    std::iota(row_order.begin(), row_order.end(), 0);
    std::stable_sort(row_order.begin(), row_order.end(), [&rows](int a, int b) { return rows[at(a)] < rows[at(b)]; });
    for (const int row : row_order) {
        for (const auto& [column, value] : rows[at(row)]) {
            made.row_column.push_back(column);
            made.row_value.push_back(value);
        }
        made.row_start.push_back(made.row_column.size());
    }
    made.row_lower = picked(record.row_lower, row_order);
    made.row_upper = picked(record.row_upper, row_order);
    made.row_names = picked_names(record.row_names, row_order);
    return made;
}

solve_answer solve_in_neutral_order(const model_record& record, const reach_structure& structure, record_solver solve,
                                    const solve_watch& watch) {
    std::vector<int> order;
    solve_answer answer = solve(neutral_record(record, structure, order), watch);
    // Other sizes are for the check to find.
    if (answer.values.size() == order.size()) {
        std::vector<double> values(order.size());
        for (std::size_t p = 0; p < order.size(); ++p) {
            values[at(order[p])] = answer.values[p];
        }
        answer.values = std::move(values);
    }
    return answer;
}

}  // namespace solver
