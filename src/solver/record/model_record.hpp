// The neutral record of a model: what every back end, the LP writer and the
// checker read. Nothing in it belongs to one solver.
#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "solver/record/name_list.hpp"
#include "solver/record/number_list.hpp"

namespace solver {

inline constexpr double infinity = std::numeric_limits<double>::infinity();

// Settings under neutral names; what is not set is left to the back end.
struct solve_settings {
    std::optional<int> root_algorithm;      // 3 = network simplex
    std::optional<int> variable_selection;  // 3 = strong branching
    std::optional<int> dive_type;           // 3 = guided dive
    std::optional<double> work_memory;      // megabytes
    std::optional<double> relative_gap;     // 0 = proven optimality
};

// Columns in the order in which they first appear in the rows; rows in the order
// in which they were added, stored one after the other (compressed sparse rows).
struct model_record {
    number_list column_lower;
    number_list column_upper;
    std::vector<char> column_integral;  // 1 = must take an integer value
    number_list column_objective;
    std::vector<double> column_priority;  // branching priority, 0 = none; as many as are needed
    name_list column_names;               // empty = unnamed

    std::vector<std::size_t> row_start{0};  // number of rows + 1 entries
    std::vector<int> row_column;
    number_list row_value;
    number_list row_lower;  // -infinity = none
    number_list row_upper;  // infinity = none
    name_list row_names;    // empty = unnamed

    bool maximize = true;
    double objective_constant = 0.0;
    std::string objective_name;
    solve_settings settings;

    int num_columns() const { return static_cast<int>(column_lower.size()); }
    int num_rows() const { return static_cast<int>(row_lower.size()); }
    bool has_integral_column() const {
        return std::find(column_integral.begin(), column_integral.end(), 1) != column_integral.end();
    }
};

}  // namespace solver
