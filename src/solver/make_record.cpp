#include <algorithm>
#include <utility>

#include "solver/environment.hpp"

namespace solver {
namespace {

std::string name_of(const extractable_data& item) {
    return item.name == nullptr ? std::string() : *item.name;
}

int column_of(const variable_data& variable, model_record& record, column_index& columns) {
    int& column = columns[variable.index];
    if (column < 0) {
        column = record.num_columns();
        record.column_lower.push_back(variable.lower);
        record.column_upper.push_back(variable.upper);
        record.column_integral.push_back(variable.type == IloNumVar::Bool ? 1 : 0);
        record.column_names.push_back(name_of(variable));
    }
    return column;
}

// Terms in column order, a repeated variable once.
void append_row(const linear_term* terms, std::size_t count, model_record& record, column_index& columns,
                std::vector<std::pair<int, double>>& row) {
    row.clear();
    for (std::size_t i = 0; i < count; ++i) {
        row.emplace_back(column_of(*terms[i].variable, record, columns), terms[i].coefficient);
    }
    std::stable_sort(row.begin(), row.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
    const std::size_t first = record.row_column.size();
    for (const auto& [column, value] : row) {
        if (record.row_column.size() > first && record.row_column.back() == column) {
            record.row_value.back() += value;
        } else {
            record.row_column.push_back(column);
            record.row_value.push_back(value);
        }
    }
    record.row_start.push_back(record.row_column.size());
}

}  // namespace

model_record make_record(const model_data& model, column_index& columns) {
    const environment_data& environment = *model.environment;
    columns.assign(environment.variables.size(), -1);
    model_record record;
    record.row_start.reserve(model.constraints.size() + 1);
    record.row_upper.reserve(model.constraints.size());
    record.row_names.reserve(model.constraints.size());
    std::vector<std::pair<int, double>> row;
    for (const constraint_data* constraint : model.constraints) {
        append_row(environment.row_terms.data() + constraint->first_term, constraint->num_terms, record, columns, row);
        record.row_upper.push_back(constraint->upper);
        record.row_names.push_back(name_of(*constraint));
    }
    record.row_lower.assign(record.row_upper.size(), -infinity);
    if (model.objective != nullptr) {
        for (const linear_term& term : model.objective->terms) {
            column_of(*term.variable, record, columns);
        }
    }
    const auto num_columns = static_cast<std::size_t>(record.num_columns());
    record.column_objective.assign(num_columns, 0.0);
    record.column_priority.assign(num_columns, 0.0);
    if (model.objective != nullptr) {
        for (const linear_term& term : model.objective->terms) {
            record.column_objective[static_cast<std::size_t>(columns[term.variable->index])] += term.coefficient;
        }
        record.maximize = model.objective->sense == IloObjective::Maximize;
        record.objective_constant = model.objective->constant;
        record.objective_name = name_of(*model.objective);
    }
    return record;
}

}  // namespace solver
