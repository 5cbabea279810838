#include "solver/structure/cut_master.hpp"

#include <algorithm>

namespace solver {
namespace {

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

bool is_one_gate(const pair_net& pair) {
    return pair.arcs.size() == 1;
}

}  // namespace

cut_master::cut_master(const contested_problem& problem, const solve_watch& watch)
    : problem_(problem), highs_(watch), num_choices_(static_cast<int>(problem.choices.size())) {
    weights_.assign(at(num_choices_), 0.0);
    for (const pair_net& pair : problem.pairs) {
        const auto weight = static_cast<double>(pair.weight);
        if (is_one_gate(pair)) {
            const int gate = pair.arcs.front().gate;
            weights_[at(gate / 2)] += gate % 2 == 0 ? weight : -weight;
            constant_ += gate % 2 == 0 ? 0.0 : weight;
            pair_columns_.push_back(-1);
        } else {
            pair_columns_.push_back(static_cast<int>(weights_.size()));
            weights_.push_back(weight);
        }
    }
    proven_bound_ = static_cast<double>(problem.total_weight());

    // Minimised, so that a row's dual has one sign whatever the solver's convention.
    std::vector<double> costs(weights_.size());
    std::transform(weights_.begin(), weights_.end(), costs.begin(), [](double weight) { return -weight; });
    const std::vector<double> lower(weights_.size(), 0.0);
    const std::vector<double> upper(weights_.size(), 1.0);
    Highs_addCols(highs_.get(), num_columns(), costs.data(), lower.data(), upper.data(), 0, nullptr, nullptr, nullptr);

    std::vector<gate_cut> cuts;
    for (std::size_t p = 0; p < problem.pairs.size(); ++p) {
        if (pair_columns_[p] >= 0) {
            cuts.clear();
            find_bottlenecks(problem.pairs[p], cuts);
            for (const gate_cut& cut : cuts) {
                add_cut(static_cast<int>(p), cut);
            }
        }
    }
}

void cut_master::add_cut(int pair, const gate_cut& cut) {
    master_row row{{pair_columns_[at(pair)]}, {1.0}, 0.0};
    for (std::size_t i = 0; i < cut.size(); ++i) {
        if (i + 1 < cut.size() && cut[i] / 2 == cut[i + 1] / 2) {
            return;  // both directions of a choice: one is always open
        }
        row.columns.push_back(cut[i] / 2);
        row.values.push_back(cut[i] % 2 == 0 ? -1.0 : 1.0);
        row.upper += cut[i] % 2;
    }
    rows_.push_back(std::move(row));
}

void cut_master::flush_rows() {
    std::vector<HighsInt> starts;
    std::vector<HighsInt> columns;
    std::vector<double> values;
    std::vector<double> lower;
    std::vector<double> upper;
    for (; rows_passed_ < rows_.size(); ++rows_passed_) {
        const master_row& row = rows_[rows_passed_];
        starts.push_back(static_cast<HighsInt>(columns.size()));
        columns.insert(columns.end(), row.columns.begin(), row.columns.end());
        values.insert(values.end(), row.values.begin(), row.values.end());
        lower.push_back(-infinity);
        upper.push_back(row.upper);
    }
    if (!starts.empty()) {
        Highs_addRows(highs_.get(), static_cast<HighsInt>(starts.size()), lower.data(), upper.data(),
                      static_cast<HighsInt>(columns.size()), starts.data(), columns.data(), values.data());
    }
}

bool cut_master::solve() {
    flush_rows();
    if (Highs_run(highs_.get()) == kHighsStatusError || highs_.model_status() != kHighsModelStatusOptimal) {
        return false;
    }
    read_solution();
    return true;
}

void cut_master::read_solution() {
    values_.resize(weights_.size());
    std::vector<double> duals(rows_.size());
    Highs_getSolution(highs_.get(), values_.data(), nullptr, nullptr, duals.data());
    // Any multipliers >= 0 prove a bound: rows count their right side, columns the best
    // that bounds of 0 and 1 leave of their reduced weight.
    double bound = constant_;
    reduced_ = weights_;
    for (std::size_t r = 0; r < rows_.size(); ++r) {
        const double multiplier = std::max(0.0, -duals[r]);
        if (multiplier == 0.0) {
            continue;
        }
        bound += multiplier * rows_[r].upper;
        for (std::size_t t = 0; t < rows_[r].columns.size(); ++t) {
            reduced_[at(rows_[r].columns[t])] -= multiplier * rows_[r].values[t];
        }
    }
    for (const double weight : reduced_) {
        bound += std::max(0.0, weight);
    }
    last_bound_ = bound;
    proven_bound_ = std::min(proven_bound_, bound);
}

int cut_master::add_cuts_broken_by(const std::vector<double>& values, double tolerance) {
    std::vector<double> gate_values(2 * at(num_choices_));
    for (int c = 0; c < num_choices_; ++c) {
        gate_values[at(2 * c)] = std::clamp(values[at(c)], 0.0, 1.0);
        gate_values[at(2 * c + 1)] = 1.0 - gate_values[at(2 * c)];
    }
    const std::size_t before = rows_.size();
    std::vector<gate_cut> cuts;
    for (std::size_t p = 0; p < problem_.pairs.size(); ++p) {
        if (pair_columns_[p] < 0) {
            continue;
        }
        cuts.clear();
        find_cuts(problem_.pairs[p], gate_values, values[at(pair_columns_[p])], tolerance, cuts);
        for (const gate_cut& cut : cuts) {
            add_cut(static_cast<int>(p), cut);
        }
    }
    return static_cast<int>(rows_.size() - before);
}

}  // namespace solver
