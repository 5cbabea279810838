// A tighter bound where the program of cut_master stays far above what is reached.
//
// With all choices at one half, two parallel chains already count as a satisfied pair.
// So beside z per choice and y per pair there is a variable t per two consecutive arcs
// of a network: t <= x and t <= x' for their gates. A pair's cuts are minimum cuts over
// its arcs and over the transitions between them. Two transitions exclude each other
// when they need the two directions of one choice; three that do so pairwise are at
// most one (for products of 0-1 variables these are the triangle inequalities of the
// boolean quadric polytope, Padberg 1989); more follows from the hull of all directions
// of a few choices (hull_cuts.hpp).
//
// Every row holds for whole choices, so any multipliers prove a bound. Rows are found
// in rounds. The program is solved by a first-order method to a loose tolerance, which
// the bound, recomputed from clipped duals (row_program.hpp), does not inherit.
#pragma once

#include <vector>

#include "solver/structure/chain_layout.hpp"

namespace solver {

class chain_bound {
 public:
    chain_bound(const contested_problem& problem, const solve_watch& watch);

    // One round: solves, and adds the rows that the values break. False when stopped, or
    // when nothing is broken. The first rounds leave out the cuts from hulls, which cost
    // most and gain little while others gain much; and as rounds gain less, they solve
    // more tightly.
    bool improve();

    // The best bound so far.
    double bound() const { return bound_; }
    const row_program& program() const { return program_; }

 private:
    chain_bound(const contested_problem& problem, chain_layout made, const solve_watch& watch);

    void add_cut(int pair, const gate_cut& cut);
    int add_cuts(const std::vector<double>& gate_values);
    int add_triangles();
    int add_hull_cuts();
    int transition_column(int index) const { return first_transition_ + index; }

    const solve_watch& watch_;
    const int num_gates_;
    std::vector<int> pair_columns_;
    std::vector<pair_net> nets_;
    std::vector<transition> transitions_;
    int first_transition_;  // column
    row_program program_;
    double tolerance_;
    double bound_ = infinity;
    int rounds_ = 0;
};

}  // namespace solver
