#include "solver/structure/chain_bound.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "solver/structure/index.hpp"
#include "solver/structure/triangle_cuts.hpp"

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
    add_cuts(std::vector<double>(at(layout_.num_gates() + layout_.num_transitions()), 0.5));
}

void chain_bound::add_cut(int pair, const gate_cut& cut) {
    program_row row{{layout_.pair_columns[at(pair)]}, {1.0}, 0.0};
    for (std::size_t i = 0; i < cut.size(); ++i) {
        if (cut[i] >= layout_.num_gates()) {
            row.columns.push_back(layout_.transition_column(cut[i] - layout_.num_gates()));
            row.values.push_back(-1.0);
            continue;
        }
        if (i + 1 < cut.size() && cut[i + 1] < layout_.num_gates() && cut[i] / 2 == cut[i + 1] / 2) {
            return;  // both directions of a choice: one is always open
        }
        subtract_gate(row, cut[i]);
    }
    cuts_.push_back(program_.num_rows());
    program_.add_row(std::move(row));
}

void chain_bound::add_cuts(const std::vector<double>& gate_values) {
    std::vector<gate_cut> cuts;
    for (std::size_t p = 0; p < layout_.nets.size() && !watch_.stop_requested(); ++p) {
        if (layout_.pair_columns[p] < 0) {
            continue;
        }
        const double needed = program_.values().empty() ? 1.0 : program_.value(layout_.pair_columns[p]);
        cuts.clear();
        find_cuts(layout_.nets[p], gate_values, needed, cut_tolerance, cuts);
        for (const gate_cut& cut : cuts) {
            add_cut(static_cast<int>(p), cut);
        }
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
    std::vector<double> values(at(layout_.num_gates() + layout_.num_transitions()));
    for (int c = 0; c < layout_.num_choices; ++c) {
        values[at(2 * c)] = std::clamp(program_.value(c), 0.0, 1.0);
        values[at(2 * c + 1)] = 1.0 - values[at(2 * c)];
    }
    for (int k = 0; k < layout_.num_transitions(); ++k) {
        values[at(layout_.num_gates() + k)] = std::clamp(program_.value(layout_.transition_column(k)), 0.0, 1.0);
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
    add_cuts(values);
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
