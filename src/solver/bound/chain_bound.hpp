// A tighter bound where the program of cut_master stays far above what is reached.
//
// With all choices at one half, two parallel chains already count as a satisfied pair.
// So beside z per choice and y per pair there is a variable t per two consecutive arcs
// of a network: t <= x and t <= x' for their gates. A pair's cuts are minimum cuts over
// its arcs and over the transitions between them (chain_layout.hpp). What transitions and
// pairs exclude one another follows from triangle inequalities (triangle_cuts.hpp) and from
// the hulls of all directions of a few choices (chain_hulls.hpp).
//
// Every row holds for whole choices, so any multipliers prove a bound. Rows are found
// in rounds. The program is solved by a first-order method to a loose tolerance, which
// the bound, recomputed from clipped duals (row_program.hpp), does not inherit.
#pragma once

#include <vector>

#include "solver/bound/chain_hulls.hpp"
#include "solver/bound/chain_layout.hpp"

namespace solver {

class chain_bound {
 public:
    chain_bound(const contested_problem& problem, const solve_watch& watch);

    // One round: solves, and adds the rows that the values break. False when stopped, or
    // when nothing is broken. The first rounds leave out the cuts from hulls, which cost
    // most and gain little while others gain much; and as rounds gain less, they solve
    // more tightly and look at larger hulls.
    bool improve();

    // The best bound so far.
    double bound() const { return bound_; }
    const row_program& program() const { return program_; }

 private:
    std::vector<double> gate_values() const;
    void add_cuts(const std::vector<double>& gate_values, const std::vector<double>& values);
    void add_triangles(const std::vector<double>& transition_values);

    const solve_watch& watch_;
    const chain_layout layout_;
    row_program program_;
    chain_hulls hulls_;
    std::vector<int> cuts_;  // rows that are cuts of pairs
    double tolerance_;
    int hull_choices_;
    double bound_ = infinity;
    int rounds_ = 0;
};

}  // namespace solver
