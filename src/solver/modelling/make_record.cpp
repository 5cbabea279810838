#include <algorithm>
#include <string_view>
#include <utility>

#include "solver/modelling/environment.hpp"

namespace solver {
namespace {

using row_term = std::pair<int, double>;  // column, coefficient

constexpr int rows_at_once = 4096;  // between two questions

class record_maker {
 public:
    record_maker(const model_data& model, column_index& columns)
        : environment_(*model.environment), model_(model), columns_(columns) {}

    std::optional<model_record> make(const std::function<bool()>& cut_requested) {
        columns_.assign(static_cast<std::size_t>(environment_.num_variables()), -1);
        reserve();
        for (const model_data::range& range : model_.constraints) {
            for (int row = range.first; row < range.last; ++row) {
                if (row % rows_at_once == 0 && cut_requested()) {
                    return std::nullopt;
                }
                append_row(row);
            }
        }
        record_.row_lower.assign(record_.row_upper.size(), -infinity);
        if (model_.objective >= 0) {
            const objective_data& objective = environment_.objectives[static_cast<std::size_t>(model_.objective)];
            for (const linear_term& term : objective.terms) {
                column_of(term.variable);
            }
            record_.column_objective.assign(record_.column_integral.size(), 0.0);
            add_objective(objective);
        } else {
            record_.column_objective.assign(record_.column_integral.size(), 0.0);
        }
        return std::move(record_);
    }

 private:
    void reserve() {
        std::size_t num_rows = 0;
        std::size_t num_terms = 0;
        for (const model_data::range& range : model_.constraints) {
            num_rows += static_cast<std::size_t>(range.last - range.first);
            num_terms += environment_.row_start[static_cast<std::size_t>(range.last)] -
                         environment_.row_start[static_cast<std::size_t>(range.first)];
        }
        record_.row_start.reserve(num_rows + 1);
        record_.row_upper.reserve(num_rows);
        record_.row_column.reserve(num_terms);
        record_.row_value.reserve(num_terms);
    }

    int column_of(int variable) {
        const auto index = static_cast<std::size_t>(variable);
        int& column = columns_[index];
        if (column < 0) {
            column = record_.num_columns();
            record_.column_lower.push_back(environment_.variable_lower[index]);
            record_.column_upper.push_back(environment_.variable_upper[index]);
            record_.column_integral.push_back(environment_.variable_integral[index]);
            add_name(environment_.variable_names.name_of(variable, variable_place_), record_.column_names);
        }
        return column;
    }

    static void add_name(const char* name, name_list& list) {
        list.push_back(name == nullptr ? std::string_view() : name);
    }

    // Terms in column order, a repeated variable once.
    void append_row(int row) {
        const auto index = static_cast<std::size_t>(row);
        row_.clear();
        for (std::size_t t = environment_.row_start[index]; t < environment_.row_start[index + 1]; ++t) {
            row_.emplace_back(column_of(environment_.row_variable[t]), environment_.row_coefficient[t]);
        }
        sort_row();
        const std::size_t first = record_.row_column.size();
        for (const auto& [column, value] : row_) {
            if (record_.row_column.size() > first && record_.row_column.back() == column) {
                record_.row_value.set(record_.row_value.size() - 1, record_.row_value.back() + value);
            } else {
                record_.row_column.push_back(column);
                record_.row_value.push_back(value);
            }
        }
        record_.row_start.push_back(record_.row_column.size());
        record_.row_upper.push_back(environment_.row_upper[index]);
        add_name(environment_.row_names.name_of(row, row_place_), record_.row_names);
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
            const auto column = static_cast<std::size_t>(column_of(term.variable));
            record_.column_objective.set(column, record_.column_objective[column] + term.coefficient);
        }
        record_.maximize = objective.sense == IloObjective::Maximize;
        record_.objective_constant = objective.constant;
        const char* name = environment_.objective_names.name_of(model_.objective);
        record_.objective_name = name == nullptr ? "" : name;
    }

    const environment_data& environment_;
    const model_data& model_;
    column_index& columns_;
    model_record record_;
    std::vector<row_term> row_;
    std::size_t variable_place_ = 0;  // among the names
    std::size_t row_place_ = 0;
};

}  // namespace

std::optional<model_record> make_record(const model_data& model, column_index& columns,
                                        const std::function<bool()>& cut_requested) {
    return record_maker(model, columns).make(cut_requested);
}

}  // namespace solver
