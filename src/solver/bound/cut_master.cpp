#include "solver/bound/cut_master.hpp"

#include <utility>

#include "solver/structure/index.hpp"

namespace solver {
namespace {

// Far above the solver's tolerance on reduced costs, 1e-7; the bound may miss so much for
// every choice that is between 0 and 1.
constexpr double leaning = 1e-5;
constexpr double whole_tolerance = 1e-6;  // of a value of the linear program

}  // namespace

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
                add_cut_row(program_, pair_columns_[p], cut, gates());
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

int cut_master::add_cuts_broken_by(const std::vector<double>& values, double tolerance) {
    const int before = program_.num_rows();
    add_broken_cut_rows(program_, problem_.pairs, pair_columns_, gate_values_of(values, num_choices()), values,
                        tolerance, gates(), watch_);
    return program_.num_rows() - before;
}

}  // namespace solver
