// The weight that a set of directions reaches, kept up to date from turn to turn.
//
// For every node: how many live arcs enter it (an arc is live when its gate is open
// and its tail reached). Turning a choice touches only the arcs of its two gates, and
// beyond them only what their change makes reached or unreached.
#pragma once

#include <vector>

#include "solver/structure/contested_problem.hpp"

namespace solver {

class shared_state {
 public:
    explicit shared_state(const contested_problem& problem);

    void set(const directions& chosen);  // every choice 0 or 1
    void turn(int choice);
    const directions& chosen() const { return chosen_; }
    long weight() const { return weight_; }

    // Nodes with a weight that are not reached, in no particular (but fixed) order.
    const std::vector<int>& missed() const { return missed_; }

    // Arcs that enter a node, by position in the network's list.
    struct range {
        const int* first;
        const int* last;
        const int* begin() const { return first; }
        const int* end() const { return last; }
    };
    range entering(int node) const { return part(entering_, entering_start_, node); }
    const net_arc& arc(int index) const { return network_.arcs[static_cast<std::size_t>(index)]; }
    bool reached(int node) const { return node < 0 || live_entering_[static_cast<std::size_t>(node)] > 0; }
    bool is_open(int gate) const {
        return gate == open_gate || chosen_[static_cast<std::size_t>(gate / 2)] == gate % 2;
    }

 private:
    static range part(const std::vector<int>& items, const std::vector<int>& start, int index) {
        const auto i = static_cast<std::size_t>(index);
        return {items.data() + start[i], items.data() + start[i + 1]};
    }
    void gain(int node);
    void lose(int node);
    void spread();

    const shared_network& network_;
    directions chosen_;
    long weight_ = 0;
    std::vector<int> live_entering_;
    std::vector<int> missed_;
    std::vector<int> missed_position_;  // -1 = not missed, or of no weight
    std::vector<int> changed_;          // nodes whose change has not spread yet

    // Arcs by head, by tail and by gate: positions in the list, in compressed rows.
    std::vector<int> entering_, entering_start_;
    std::vector<int> leaving_, leaving_start_;
    std::vector<int> of_gate_, of_gate_start_;
    std::vector<char> live_;  // by node: its change has spread
};

}  // namespace solver
