#include <algorithm>
#include <string_view>
#include <utility>

#include "solver/modelling/environment.hpp"

namespace solver {
namespace {

using row_term = std::pair<int, double>;  // column, coefficient

std::string_view name_of(const extractable_data& item) {
    return item.name == nullptr ? std::string_view() : item.name;
}

class record_maker {
 public:
    record_maker(const model_data& model, column_index& columns)
        : environment_(*model.environment), model_(model), columns_(columns) {}

    model_record make() {
        columns_.assign(environment_.variables.size(), -1);
        reserve();
        for (const constraint_data* constraint : model_.constraints) {
            append_row(*constraint);
        }
        record_.row_lower.assign(record_.row_upper.size(), -infinity);
        if (model_.objective != nullptr) {
            for (const linear_term& term : model_.objective->terms) {
                column_of(term.variable);
            }
        }
        const auto num_columns = static_cast<std::size_t>(record_.num_columns());
        record_.column_objective.assign(num_columns, 0.0);
        record_.column_priority.assign(num_columns, 0.0);
        if (model_.objective != nullptr) {
            add_objective(*model_.objective);
        }
        return std::move(record_);
    }

 private:
    void reserve() {
        std::size_t num_terms = 0;
        for (const constraint_data* constraint : model_.constraints) {
            num_terms += constraint->num_terms;
        }
        record_.row_start.reserve(model_.constraints.size() + 1);
        record_.row_upper.reserve(model_.constraints.size());
        record_.row_names.reserve(model_.constraints.size());
        record_.row_column.reserve(num_terms);
        record_.row_value.reserve(num_terms);
    }

    int column_of(int index) {
        int& column = columns_[static_cast<std::size_t>(index)];
        if (column < 0) {
            const variable_data& variable = environment_.variables[static_cast<std::size_t>(index)];
            column = record_.num_columns();
            record_.column_lower.push_back(variable.lower);
            record_.column_upper.push_back(variable.upper);
            record_.column_integral.push_back(variable.type == IloNumVar::Bool ? 1 : 0);
            record_.column_names.push_back(name_of(variable));
        }
        return column;
    }

    // Terms in column order, a repeated variable once.
    void append_row(const constraint_data& constraint) {
        row_.clear();
        for (std::size_t i = 0; i < constraint.num_terms; ++i) {
            row_.emplace_back(column_of(constraint.terms[i].variable), constraint.terms[i].coefficient);
        }
        sort_row();
        const std::size_t first = record_.row_column.size();
        for (const auto& [column, value] : row_) {
            if (record_.row_column.size() > first && record_.row_column.back() == column) {
                record_.row_value.back() += value;
            } else {
                record_.row_column.push_back(column);
                record_.row_value.push_back(value);
            }
        }
        record_.row_start.push_back(record_.row_column.size());
        record_.row_upper.push_back(constraint.upper);
        record_.row_names.push_back(name_of(constraint));
    }

    // Most rows are a term or two out of order, and the library's stable sort asks for
    // memory at every call.
    void sort_row() {
        const auto by_column = [](const row_term& a, const row_term& b) { return a.first < b.first; };
        const auto out_of_order = std::is_sorted_until(row_.begin(), row_.end(), by_column);
        if (out_of_order == row_.end()) {
            return;
        }
        const auto left = row_.end() - out_of_order;
        if (left > 8) {
            std::stable_sort(row_.begin(), row_.end(), by_column);
            return;
        }
        for (auto term = out_of_order; term != row_.end(); ++term) {
            std::rotate(std::upper_bound(row_.begin(), term, *term, by_column), term, term + 1);
        }
    }

    void add_objective(const objective_data& objective) {
        for (const linear_term& term : objective.terms) {
            record_.column_objective[static_cast<std::size_t>(column_of(term.variable))] += term.coefficient;
        }
        record_.maximize = objective.sense == IloObjective::Maximize;
        record_.objective_constant = objective.constant;
        record_.objective_name = name_of(objective);
    }

    const environment_data& environment_;
    const model_data& model_;
    column_index& columns_;
    model_record record_;
    std::vector<row_term> row_;
};

}  // namespace

model_record make_record(const model_data& model, column_index& columns) {
    return record_maker(model, columns).make();
}

}  // namespace solver
