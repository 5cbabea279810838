// The weight that a set of directions reaches, kept up to date from turn to turn.
//
// For every node: how many live arcs enter it (an arc is live when its gate is open
// and its tail reached). Turning a choice touches only the arcs of its two gates, and
// beyond them only what their change makes reached or unreached. What was touched is
// noted, so that turns can be taken back without looking at any arc. Gates are opened
// before others are closed: from then on the weight only falls, and a turn that loses
// too much is given up on the way.
#pragma once

#include <vector>

#include "solver/reduce/contested_problem.hpp"

namespace solver {

class shared_state {
 public:
    explicit shared_state(const contested_problem& problem);

    void set(const directions& chosen);  // every choice 0 or 1
    // Turns choices, each named once, unless they would then weigh less than this. True when done.
    bool turn(const std::vector<int>& choices, long least);
    const directions& chosen() const { return chosen_; }
    long weight() const { return weight_; }

    // Nodes with a weight that are not reached, in no particular (but fixed) order.
    const std::vector<int>& missed() const { return missed_; }

    struct entering_arc {
        int tail;  // -1 = the root
        int gate;
    };
    struct entering_arcs {
        const entering_arc* first;
        const entering_arc* last;
        const entering_arc* begin() const { return first; }
        const entering_arc* end() const { return last; }
    };
    entering_arcs entering(int node) const {
        const auto v = static_cast<std::size_t>(node);
        return {entering_.data() + entering_start_[v], entering_.data() + entering_start_[v + 1]};
    }
    bool reached(int node) const { return node < 0 || nodes_[static_cast<std::size_t>(node)].live_entering > 0; }
    bool is_open(int gate) const { return open_[static_cast<std::size_t>(gate) + 1] != 0; }

 private:
    // What a turn reads stands together: the search spends its time here.
    struct node_state {
        int live_entering;
        int told;    // 1 = the arcs behind know that the node is reached
        int missed;  // position in missed_; -1 = not missed, or of no weight
        int first_leaving;
        long weight;
    };
    struct leaving_arc {
        int head;
        int gate;
    };
    struct gate_arc {
        int tail;
        int head;
    };

    void open(int gate, bool is_open) { open_[static_cast<std::size_t>(gate) + 1] = is_open ? 1 : 0; }
    void change(int node, int by);
    void spread(long least);
    void count(node_state& state, int node, bool reached);
    void pass_on(int gate, int by);
    void undo(const std::vector<int>& choices);
    void forget();

    const shared_network& network_;
    directions chosen_;
    std::vector<char> open_;  // by gate + 1; open_gate is -1
    long weight_ = 0;
    std::vector<node_state> nodes_;  // and one more, for the end of the last node's arcs
    std::vector<int> missed_;
    std::vector<int> changed_;  // nodes that may have become reached or unreached

    // What a turn has done so far.
    std::vector<int> gained_;  // nodes that a live arc more enters, once for each
    std::vector<int> lost_;
    std::vector<int> told_;  // nodes that became reached or unreached, once for each time

    // The arcs by head, by tail and by gate, in compressed rows.
    std::vector<entering_arc> entering_;
    std::vector<int> entering_start_;
    std::vector<leaving_arc> leaving_;
    std::vector<gate_arc> of_gate_;
    std::vector<int> of_gate_start_;
};

}  // namespace solver
