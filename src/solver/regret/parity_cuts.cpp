#include "solver/regret/parity_cuts.hpp"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <map>

#include "solver/structure/index.hpp"

namespace solver {
namespace {

constexpr double tolerance = 1e-6;            // of a value, and of a row's sum
constexpr std::size_t most_rows = 60;         // that a cut is made of
constexpr std::size_t most_candidates = 500;  // where more take part, no cut changes much

bool is_fractional(double value) {
    return value > tolerance && value < 1.0 - tolerance;
}

// Sum, modulo 2, of rows.
struct parity_row {
    std::vector<int> columns;  // fractional ones with an odd coefficient, ascending
    std::vector<int> rows;     // that were added up, ascending
    bool is_odd;               // the right side, columns at 1 taken out
};

std::vector<int> sum(const std::vector<int>& one, const std::vector<int>& other) {
    std::vector<int> made;
    std::set_symmetric_difference(one.begin(), one.end(), other.begin(), other.end(), std::back_inserter(made));
    return made;
}

bool is_odd(double whole) {
    return (std::lround(whole) & 1) != 0;
}

parity_row parity_of(const program_row& row, int index, const std::vector<double>& values) {
    parity_row parity{{}, {index}, is_odd(row.upper)};
    for (std::size_t t = 0; t < row.columns.size(); ++t) {
        if (!is_odd(row.values[t])) {
            continue;
        }
        const double value = values[at(row.columns[t])];
        if (is_fractional(value)) {
            parity.columns.push_back(row.columns[t]);
        } else if (value > 0.5) {
            parity.is_odd = !parity.is_odd;
        }
    }
    std::sort(parity.columns.begin(), parity.columns.end());
    return parity;
}

bool takes_part(const program_row& row, const std::vector<double>& values) {
    double slack = row.upper;
    bool has_fraction = false;
    for (std::size_t t = 0; t < row.columns.size(); ++t) {
        const double value = values[at(row.columns[t])];
        slack -= row.values[t] * value;
        has_fraction |= is_fractional(value);
    }
    return has_fraction && std::abs(slack) < tolerance;
}

// Columns at 1 are rounded as 1 - x, which takes their coefficients up.
program_row half_of(const std::vector<const program_row*>& rows, const std::vector<int>& added,
                    const std::vector<double>& values) {
    std::map<int, double> total;
    double upper = 0.0;
    for (const int r : added) {
        const program_row& row = *rows[at(r)];
        upper += row.upper;
        for (std::size_t t = 0; t < row.columns.size(); ++t) {
            total[row.columns[t]] += row.values[t];
        }
    }
    program_row half;
    for (const auto& [column, value] : total) {
        const bool at_one = values[at(column)] > 0.5;
        const double rounded = at_one ? std::ceil(value / 2.0) : std::floor(value / 2.0);
        // What is added to the coefficient is added to the right side: the row x <= 1.
        upper += at_one ? 2.0 * rounded - value : 0.0;
        if (rounded != 0.0) {
            half.columns.push_back(column);
            half.values.push_back(rounded);
        }
    }
    half.upper = std::floor(upper / 2.0);
    return half;
}

}  // namespace

std::vector<program_row> find_parity_cuts(const std::vector<const program_row*>& rows,
                                          const std::vector<double>& values) {
    std::vector<parity_row> candidates;
    for (int r = 0; r < static_cast<int>(rows.size()); ++r) {
        if (takes_part(*rows[at(r)], values)) {
            candidates.push_back(parity_of(*rows[at(r)], r, values));
        }
    }
    if (candidates.size() > most_candidates) {
        return {};
    }
    std::map<int, parity_row> by_pivot;
    std::vector<program_row> cuts;
    for (parity_row& parity : candidates) {
        while (!parity.columns.empty()) {
            const auto pivot = by_pivot.find(parity.columns.front());
            if (pivot == by_pivot.end()) {
                break;
            }
            parity.columns = sum(parity.columns, pivot->second.columns);
            parity.rows = sum(parity.rows, pivot->second.rows);
            parity.is_odd ^= pivot->second.is_odd;
        }
        if (!parity.columns.empty()) {
            by_pivot.emplace(parity.columns.front(), std::move(parity));
        } else if (parity.is_odd && parity.rows.size() <= most_rows) {
            cuts.push_back(half_of(rows, parity.rows, values));
        }
    }
    return cuts;
}

}  // namespace solver
