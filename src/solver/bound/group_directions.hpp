// What all directions of a few choices open, at once: one bit per direction (hull_cuts.hpp).
#pragma once

#include <vector>

#include "solver/bound/hull_cuts.hpp"
#include "solver/reduce/contested_problem.hpp"

namespace solver {

class group_directions {
 public:
    // Choices in ascending order, most_hull_choices at most.
    explicit group_directions(const std::vector<int>& choices);

    const direction_set& all() const { return all_; }
    // Where the gate is open; gates of other choices are open anywhere.
    direction_set opening(int gate) const;
    // Where a chain of open arcs leads through the net. Arcs in an order in which those that
    // enter a node come before those that leave it.
    direction_set satisfying(const pair_net& net) const;

 private:
    const std::vector<int>& choices_;
    direction_set all_;
    std::vector<direction_set> first_side_;  // by choice: where gate 2c is open
};

}  // namespace solver
