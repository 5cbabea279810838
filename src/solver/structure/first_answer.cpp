#include "solver/structure/first_answer.hpp"

#include "solver/structure/index.hpp"

namespace solver {
namespace {

constexpr int none = -1;
constexpr int not_looked_at = -1;
constexpr int out_of_reach = 1 << 30;

class follower {
 public:
    explicit follower(const reach_structure& structure)
        : structure_(structure),
          chosen_(at(structure.num_choices()), none),
          missing_(at(structure.num_nodes()), not_looked_at),
          way_in_(at(structure.num_nodes()), none) {}

    directions run() {
        // What has no rival costs nothing to open.
        for (int gate = 0; gate < 2 * structure_.num_choices(); ++gate) {
            if (structure_.gate_column[at(gate ^ 1)] < 0 && structure_.gate_column[at(gate)] >= 0) {
                chosen_[at(gate / 2)] = static_cast<signed char>(gate % 2);
            }
        }
        for (int d = 0; d < structure_.num_demands(); ++d) {
            const int node = structure_.demand_node[at(d)];
            if (structure_.demand_weight[at(d)] > 0) {
                look_at(node);
                open_chain_to(node);
            }
        }
        return std::move(chosen_);
    }

 private:
    // How many undecided choices the best chain to the node has, and by which arc it ends.
    void look_at(int node) {
        walk_.clear();
        enter(node);
        while (!walk_.empty()) {
            visit& last = walk_.back();
            if (last.next_arc == structure_.node_first_arc[at(last.node) + 1]) {
                missing_[at(last.node)] = last.missing;
                walk_.pop_back();
                continue;
            }
            const int arc = last.next_arc;
            const int missing_here = missing_at(structure_.arc_gate[at(arc)]);
            const int tail = structure_.arc_tail[at(arc)];
            if (missing_here < out_of_reach && tail >= 0 && missing_[at(tail)] == not_looked_at) {
                enter(tail);
                continue;
            }
            ++last.next_arc;
            const int missing = missing_here + (tail < 0 || missing_here == out_of_reach ? 0 : missing_[at(tail)]);
            if (missing < last.missing) {
                last.missing = missing;
                way_in_[at(last.node)] = arc;
            }
        }
    }

    void enter(int node) {
        if (missing_[at(node)] == not_looked_at) {
            walk_.push_back({node, structure_.node_first_arc[at(node)], out_of_reach});
        }
    }

    int missing_at(int gate) const {
        const signed char side = chosen_[at(gate / 2)];
        return side == none ? 1 : side == gate % 2 ? 0 : out_of_reach;
    }

    void open_chain_to(int node) {
        chain_.clear();
        for (; node >= 0 && missing_[at(node)] > 0; node = structure_.arc_tail[at(chain_.back())]) {
            if (missing_[at(node)] == out_of_reach) {
                return;
            }
            chain_.push_back(way_in_[at(node)]);
        }
        for (auto arc = chain_.rbegin(); arc != chain_.rend(); ++arc) {
            const int gate = structure_.arc_gate[at(*arc)];
            if (missing_at(gate) == out_of_reach) {
                return;  // shut by another arc of this chain, or since it was looked at
            }
            chosen_[at(gate / 2)] = static_cast<signed char>(gate % 2);
            missing_[at(structure_.arc_head[at(*arc)])] = 0;
        }
    }

    struct visit {
        int node;
        int next_arc;
        int missing;  // on the best chain seen so far
    };

    const reach_structure& structure_;
    directions chosen_;
    std::vector<int> missing_;  // by node: 0 = reached
    std::vector<int> way_in_;   // by node: the last arc of its best chain
    std::vector<visit> walk_;
    std::vector<int> chain_;
};

}  // namespace

directions first_directions(const reach_structure& structure) {
    return follower(structure).run();
}

}  // namespace solver
