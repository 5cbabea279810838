#include "solver/regret/region_program.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <optional>
#include <utility>

#include "solver/bound/pair_rows.hpp"
#include "solver/regret/parity_cuts.hpp"
#include "solver/structure/index.hpp"

namespace solver {
namespace {

constexpr double tolerance = 1e-6;      // of a value, and of a row's sum
constexpr double cut_tolerance = 1e-4;  // of a cut
constexpr double least_price = 1e-9;    // that a row may leave unpaid
constexpr double leaning = 1e-5;        // towards the root's values, as there towards the answer

}  // namespace

region_program::region_program(const contested_problem& problem, const root_prices& root, const solve_watch& watch)
    : problem_(problem),
      root_(root),
      solver_(watch),
      pairs_of_gate_(2 * problem.choices.size()),
      pair_of_column_(root.values.size(), -1),
      values_(root.values),
      gate_values_(gate_values_of(root.values, problem.num_choices())),
      local_of_(root.values.size(), -1),
      has_row_(root.rows.size(), 0),
      is_separated_(problem.pairs.size(), 0) {
    for (std::size_t p = 0; p < problem.pairs.size(); ++p) {
        if (root.pair_columns[p] < 0) {
            continue;
        }
        pair_of_column_[at(root.pair_columns[p])] = static_cast<int>(p);
        for (const net_arc& arc : problem.pairs[p].arcs) {
            if (arc.gate != open_gate) {
                std::vector<int>& pairs = pairs_of_gate_[at(arc.gate)];
                if (pairs.empty() || pairs.back() != static_cast<int>(p)) {
                    pairs.push_back(static_cast<int>(p));
                }
            }
        }
    }
}

void region_program::begin() {
    for (const int column : columns_) {
        set_value(column, root_.values[at(column)]);
        local_of_[at(column)] = -1;
    }
    for (const int row : root_rows_) {
        has_row_[at(row)] = 0;
    }
    columns_.clear();
    weights_.clear();
    fixed_.clear();
    region_.clear();
    root_rows_.clear();
    own_rows_.clear();
    favoured_ = 0.0;
    bound_ = infinity;
    rows_passed_ = 0;
    solver_.forget();
}

void region_program::set_value(int column, double value) {
    values_[at(column)] = value;
    if (column < problem_.num_choices()) {
        gate_values_[at(2 * column)] = std::clamp(value, 0.0, 1.0);
        gate_values_[at(2 * column + 1)] = 1.0 - gate_values_[at(2 * column)];
    }
}

// Takes the column in when it is still outside.
int region_program::local(int column) {
    int& place = local_of_[at(column)];
    if (place < 0) {
        place = static_cast<int>(columns_.size());
        columns_.push_back(column);
        weights_.push_back(root_.reduced[at(column)]);
        fixed_.push_back(not_fixed);
    }
    return place;
}

void region_program::favour(int column, double amount) {
    weights_[at(local(column))] += amount;
    favoured_ += amount;
}

void region_program::fix(int column, double value) {
    fixed_[at(local(column))] = value;
}

void region_program::add_row(const program_row& row, double price) {
    region_.push_back({&row, price});
    for (std::size_t t = 0; t < row.columns.size(); ++t) {
        weights_[at(local(row.columns[t]))] += price * row.values[t];
    }
}

void region_program::take_in(int column) {
    for (int i = root_.column_first[at(column)]; i < root_.column_first[at(column) + 1]; ++i) {
        const int row = root_.column_rows[at(i)];
        if (has_row_[at(row)] == 0) {
            has_row_[at(row)] = 1;
            root_rows_.push_back(row);
            add_row(root_.rows[at(row)], root_.multipliers[at(row)]);
        }
    }
}

region_columns region_program::make_columns() const {
    region_columns made{std::vector<double>(columns_.size()), std::vector<double>(columns_.size(), 0.0),
                        std::vector<double>(columns_.size(), 1.0)};
    for (std::size_t j = 0; j < columns_.size(); ++j) {
        const double stay = root_.values[at(columns_[j])];
        made.costs[j] = -weights_[j];
        if (columns_[j] < problem_.num_choices() && (stay == 0.0 || stay == 1.0)) {
            made.costs[j] += stay == 1.0 ? -leaning : leaning;
        }
        if (fixed_[j] != not_fixed) {
            made.lower[j] = made.upper[j] = fixed_[j];
        }
    }
    return made;
}

flat_rows region_program::take_new_rows() {
    flat_rows flat;
    for (; rows_passed_ < region_.size(); ++rows_passed_) {
        const program_row& row = *region_[rows_passed_].row;
        flat.starts.push_back(flat.num_entries());
        std::transform(row.columns.begin(), row.columns.end(), std::back_inserter(flat.columns),
                       [this](int column) { return local_of_[at(column)]; });
        flat.values.insert(flat.values.end(), row.values.begin(), row.values.end());
        flat.upper.push_back(row.upper);
    }
    flat.starts.push_back(flat.num_entries());
    flat.lower.assign(flat.upper.size(), -infinity);
    return flat;
}

bool region_program::solve() {
    if (!solver_.solve(make_columns(), take_new_rows())) {
        return false;
    }
    prove_bound();
    for (std::size_t j = 0; j < columns_.size(); ++j) {
        const double value = solver_.values()[j];
        const double nearest = std::round(value);
        set_value(columns_[j], std::abs(value - nearest) < tolerance ? nearest : value);
    }
    return true;
}

void region_program::prove_bound() {
    bound_ = root_.bound - favoured_;
    std::vector<double> reduced = weights_;
    for (std::size_t r = 0; r < region_.size(); ++r) {
        const double multiplier = solver_.multipliers()[r];
        const program_row& row = *region_[r].row;
        bound_ += (multiplier - region_[r].price) * row.upper;
        if (multiplier > 0.0) {
            for (std::size_t t = 0; t < row.columns.size(); ++t) {
                reduced[at(local_of_[at(row.columns[t])])] -= multiplier * row.values[t];
            }
        }
    }
    for (std::size_t j = 0; j < columns_.size(); ++j) {
        bound_ -= std::max(0.0, root_.reduced[at(columns_[j])]);
        bound_ += fixed_[j] == not_fixed ? std::max(0.0, reduced[j]) : fixed_[j] * reduced[j];
    }
}

bool region_program::grow() {
    const int before = num_rows();
    const std::size_t num_columns = columns_.size();
    std::vector<int> moved;
    for (std::size_t j = 0; j < num_columns; ++j) {
        const int column = columns_[j];
        if (std::abs(values_[at(column)] - root_.values[at(column)]) > tolerance) {
            moved.push_back(column);
        }
    }
    for (const int column : moved) {
        take_in_rows_of(column);
    }
    const auto first_own = own_rows_.size();
    for (const int column : moved) {
        take_in_cuts(column);
    }
    std::fill(is_separated_.begin(), is_separated_.end(), 0);
    for (std::size_t r = first_own; r < own_rows_.size(); ++r) {
        add_row(own_rows_[r], 0.0);
    }
    return num_rows() > before;
}

bool region_program::cut_fractions() {
    std::vector<const program_row*> rows;
    for (const priced_row& priced : region_) {
        rows.push_back(priced.row);
    }
    std::vector<program_row> cuts = find_parity_cuts(rows, values_);
    for (program_row& cut : cuts) {
        own_rows_.push_back(std::move(cut));
        add_row(own_rows_.back(), 0.0);
    }
    return !cuts.empty();
}

// Those that are broken, or that have a price and slack.
void region_program::take_in_rows_of(int column) {
    for (int i = root_.column_first[at(column)]; i < root_.column_first[at(column) + 1]; ++i) {
        const int r = root_.column_rows[at(i)];
        if (has_row_[at(r)] != 0) {
            continue;
        }
        const program_row& row = root_.rows[at(r)];
        double slack = row.upper;
        for (std::size_t t = 0; t < row.columns.size(); ++t) {
            slack -= row.values[t] * values_[at(row.columns[t])];
        }
        if (slack < -tolerance || (slack > tolerance && root_.multipliers[at(r)] > least_price)) {
            has_row_[at(r)] = 1;
            root_rows_.push_back(r);
            add_row(row, root_.multipliers[at(r)]);
            // Its pair is looked at again when this row is kept.
            const int pair = pair_of_column_[at(row.columns.front())];
            if (slack < 0.0 && pair >= 0) {
                is_separated_[at(pair)] = 1;
            }
        }
    }
}

// Of the pairs that the column's move leaves with less.
void region_program::take_in_cuts(int column) {
    const double by = values_[at(column)] - root_.values[at(column)];
    if (column >= problem_.num_choices()) {
        if (by > 0.0) {
            separate(pair_of_column_[at(column)]);
        }
        return;
    }
    for (const int pair : pairs_of_gate_[at(2 * column + (by > 0.0 ? 1 : 0))]) {
        separate(pair);
    }
}

void region_program::separate(int pair) {
    const int column = root_.pair_columns[at(pair)];
    if (is_separated_[at(pair)] != 0) {
        return;
    }
    is_separated_[at(pair)] = 1;
    std::vector<gate_cut> cuts;
    find_cuts(problem_.pairs[at(pair)], gate_values_, values_[at(column)], cut_tolerance, cuts);
    for (const gate_cut& cut : cuts) {
        if (std::optional<program_row> row = cut_row(column, cut, {2 * problem_.num_choices(), root_.num_columns()})) {
            own_rows_.push_back(*std::move(row));
        }
    }
}

}  // namespace solver
