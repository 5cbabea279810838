#include "solver/structure/cut_master.hpp"

#include <algorithm>
#include <utility>

#include "solver/structure/index.hpp"

namespace solver {
namespace {

// Far above the solver's tolerance on reduced costs, 1e-7; the bound may miss so much for
// every choice that is between 0 and 1.
constexpr double leaning = 1e-5;
constexpr double whole_tolerance = 1e-6;  // of a value of the linear program

}  // namespace

pair_layout lay_out_pairs(const contested_problem& problem) {
    pair_layout layout;
    layout.weights.assign(problem.choices.size(), 0.0);
    for (const pair_net& pair : problem.pairs) {
        const auto weight = static_cast<double>(pair.weight);
        if (pair.arcs.size() == 1) {
            const int gate = pair.arcs.front().gate;
            layout.weights[at(gate / 2)] += gate % 2 == 0 ? weight : -weight;
            layout.constant += gate % 2 == 0 ? 0.0 : weight;
            layout.pair_columns.push_back(-1);
        } else {
            layout.pair_columns.push_back(static_cast<int>(layout.weights.size()));
            layout.weights.push_back(weight);
        }
    }
    return layout;
}

void subtract_gate(program_row& row, int gate) {
    row.columns.push_back(gate / 2);
    row.values.push_back(gate % 2 == 0 ? -1.0 : 1.0);
    row.upper += gate % 2;
}

cut_master::cut_master(const contested_problem& problem, const solve_watch& watch)
    : cut_master(problem, lay_out_pairs(problem), watch) {}

cut_master::cut_master(const contested_problem& problem, pair_layout layout, const solve_watch& watch)
    : problem_(problem),
      watch_(watch),
      pair_columns_(std::move(layout.pair_columns)),
      program_(std::move(layout.weights), layout.constant, watch) {
    std::vector<gate_cut> cuts;
    for (std::size_t p = 0; p < problem.pairs.size() && !watch_.stop_requested(); ++p) {
        if (pair_columns_[p] >= 0) {
            cuts.clear();
            find_bottlenecks(problem.pairs[p], cuts);
            for (const gate_cut& cut : cuts) {
                add_cut(static_cast<int>(p), cut);
            }
        }
    }
    // A few times what programs need whose bound comes near in the end.
    program_.limit_iterations(3000 + (program_.num_columns() + program_.num_rows()) / 4);
}

void cut_master::lean_towards(const directions& chosen) {
    for (int c = 0; c < num_choices(); ++c) {
        program_.favour(c, chosen[at(c)] == 0 ? leaning : -leaning);
    }
}

bool cut_master::is_fractional(int choice) const {
    const double value = program_.value(choice);
    return value > whole_tolerance && value < 1.0 - whole_tolerance;
}

long cut_master::num_fractional() const {
    long count = 0;
    for (int c = 0; c < num_choices(); ++c) {
        count += is_fractional(c) ? 1 : 0;
    }
    return count;
}

void cut_master::add_cut(int pair, const gate_cut& cut) {
    program_row row{{pair_columns_[at(pair)]}, {1.0}, 0.0};
    for (std::size_t i = 0; i < cut.size(); ++i) {
        if (i + 1 < cut.size() && cut[i] / 2 == cut[i + 1] / 2) {
            return;  // both directions of a choice: one is always open
        }
        subtract_gate(row, cut[i]);
    }
    program_.add_row(std::move(row));
}

int cut_master::add_cuts_broken_by(const std::vector<double>& values, double tolerance) {
    std::vector<double> gate_values(2 * problem_.choices.size());
    for (int c = 0; c < num_choices(); ++c) {
        gate_values[at(2 * c)] = std::clamp(values[at(c)], 0.0, 1.0);
        gate_values[at(2 * c + 1)] = 1.0 - gate_values[at(2 * c)];
    }
    const int before = program_.num_rows();
    std::vector<gate_cut> cuts;
    for (std::size_t p = 0; p < problem_.pairs.size() && !watch_.stop_requested(); ++p) {
        if (pair_columns_[p] < 0) {
            continue;
        }
        cuts.clear();
        find_cuts(problem_.pairs[p], gate_values, values[at(pair_columns_[p])], tolerance, cuts);
        for (const gate_cut& cut : cuts) {
            add_cut(static_cast<int>(p), cut);
        }
    }
    return program_.num_rows() - before;
}

}  // namespace solver
