#include "solver/bound/chain_bound.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "solver/bound/triangle_cuts.hpp"
#include "solver/structure/index.hpp"

namespace solver {
namespace {

constexpr double cut_tolerance = 0.01;
// Of the solver, relative: tightened where a round gains less than 0.4 of it.
constexpr double loosest = 2e-3;
constexpr double tightest = 1e-4;
constexpr double tightening = 0.5;
constexpr int first_hull_choices = 6;
constexpr int rounds_without_hulls = 2;

}  // namespace

chain_bound::chain_bound(const contested_problem& problem, const solve_watch& watch)
    : watch_(watch),
      layout_(lay_out_chains(problem)),
      program_(layout_.weights, layout_.constant, watch),
      hulls_(problem, layout_, watch),
      tolerance_(loosest),
      hull_choices_(first_hull_choices) {
    for (int k = 0; k < layout_.num_transitions(); ++k) {
        const auto [first, second] = layout_.transitions[at(k)];
        for (const int gate : {first, second}) {
            program_row row{{layout_.transition_column(k)}, {1.0}, 0.0};
            subtract_gate(row, gate);
            program_.add_row(std::move(row));
        }
    }
    program_.solve_loosely(tolerance_);
    // As if every pair were satisfied with all gates at one half.
    add_cuts(std::vector<double>(at(layout_.num_gates() + layout_.num_transitions()), 0.5),
             std::vector<double>(layout_.weights.size(), 1.0));
}

void chain_bound::add_cuts(const std::vector<double>& gate_values, const std::vector<double>& values) {
    const int before = program_.num_rows();
    add_broken_cut_rows(program_, layout_.nets, layout_.pair_columns, gate_values, values, cut_tolerance,
                        {layout_.num_gates(), layout_.first_transition}, watch_);
    for (int row = before; row < program_.num_rows(); ++row) {
        cuts_.push_back(row);
    }
}

void chain_bound::add_triangles(const std::vector<double>& transition_values) {
    for (const std::array<int, 3>& three :
         find_triangles(layout_.transitions, layout_.num_gates(), transition_values, cut_tolerance)) {
        program_row row{{}, {1.0, 1.0, 1.0}, 1.0};
        for (const int index : three) {
            row.columns.push_back(layout_.transition_column(index));
        }
        program_.add_row(std::move(row));
    }
}

// Of the gates of the choices, and then of the transitions.
std::vector<double> chain_bound::gate_values() const {
    std::vector<double> values = gate_values_of(program_.values(), layout_.num_choices);
    for (int k = 0; k < layout_.num_transitions(); ++k) {
        values.push_back(std::clamp(program_.value(layout_.transition_column(k)), 0.0, 1.0));
    }
    return values;
}

bool chain_bound::improve() {
    if (!program_.solve()) {
        return false;
    }
    const double before = bound_;
    bound_ = std::min(bound_, program_.bound());
    const std::vector<double> values = gate_values();
    const int num_rows = program_.num_rows();
    add_cuts(values, program_.values());
    add_triangles({values.begin() + layout_.num_gates(), values.end()});
    if (++rounds_ > rounds_without_hulls || program_.num_rows() == num_rows) {
        for (program_row& row : hulls_.broken_rows(program_, cuts_, hull_choices_)) {
            program_.add_row(std::move(row));
        }
    }
    const bool has_more = program_.num_rows() > num_rows;
    if (tolerance_ > tightest && (!has_more || before - bound_ < 0.4 * tolerance_ * bound_)) {
        tolerance_ *= tightening;
        hull_choices_ = std::min(hull_choices_ + 1, most_hull_choices);
        program_.solve_loosely(tolerance_);
        return true;
    }
    return has_more;
}

}  // namespace solver
