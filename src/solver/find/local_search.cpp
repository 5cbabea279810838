#include "solver/find/local_search.hpp"

#include <algorithm>
#include <cmath>

#include "solver/find/random_source.hpp"
#include "solver/structure/index.hpp"

namespace solver {
namespace {

class annealer {
 public:
    annealer(shared_state& state, const std::vector<char>& movable, std::uint64_t seed)
        : state_(state), movable_(movable), random_(seed) {
        for (std::size_t c = 0; c < movable.size(); ++c) {
            if (movable[c] != 0) {
                choices_.push_back(static_cast<int>(c));
            }
        }
    }

    void run(const annealing_plan& plan, long target, const solve_watch& watch, const annealing_listener& listener) {
        if (choices_.empty()) {
            return;
        }
        directions best = state_.chosen();
        long best_weight = state_.weight();
        const double factor = std::pow(plan.last_temperature / plan.first_temperature, 1.0 / (annealing_stages - 1));
        temperature_ = plan.first_temperature;
        for (long stage = 0; stage < annealing_stages && best_weight < target && !watch.stop_requested(); ++stage) {
            for (long move = 0; move < plan.moves / annealing_stages && best_weight < target; ++move) {
                if ((move & 0xfff) == 0xfff && watch.stop_requested()) {
                    break;
                }
                try_move();
                if (state_.weight() > best_weight) {
                    best_weight = state_.weight();
                    best = state_.chosen();
                }
            }
            temperature_ *= factor;
            listener(best, best_weight);
        }
        if (plan.gives_best && state_.weight() < best_weight) {
            state_.set(best);
        }
    }

 private:
    void try_move() {
        move_.clear();
        if (state_.missed().empty() || random_.coin()) {
            move_.push_back(choices_[random_.below(choices_.size())]);
        } else {
            block_no_chain(state_.missed()[random_.below(state_.missed().size())]);
        }
        // The chance of a loss is drawn first, so that a turn which loses more can stop on the way.
        const double loss = temperature_ * std::log(1.0 - random_.share());
        state_.turn(move_, state_.weight() + static_cast<long>(std::ceil(loss)));
    }

    // Turns what blocks one chain from the root, or from what is reached, to the node.
    void block_no_chain(int node) {
        while (!state_.reached(node)) {
            const shared_state::entering_arc* arc = way_in(node);
            if (arc == nullptr) {
                move_.clear();
                return;  // every way in is shut for good here
            }
            const int choice = arc->gate / 2;
            if (!state_.is_open(arc->gate) && std::find(move_.begin(), move_.end(), choice) == move_.end()) {
                move_.push_back(choice);
            }
            node = arc->tail;
        }
    }

    // An entering arc at random, those from reached tails before the others.
    const shared_state::entering_arc* way_in(int node) {
        const shared_state::entering_arc* picked = nullptr;
        bool picked_reached = false;
        std::size_t seen = 0;
        for (const shared_state::entering_arc& arc : state_.entering(node)) {
            if (!state_.is_open(arc.gate) && movable_[at(arc.gate / 2)] == 0) {
                continue;
            }
            const bool reached = state_.reached(arc.tail);
            if (picked_reached && !reached) {
                continue;
            }
            if (reached && !picked_reached) {
                picked_reached = true;
                seen = 0;
            }
            if (random_.below(++seen) == 0) {
                picked = &arc;
            }
        }
        return picked;
    }

    shared_state& state_;
    const std::vector<char>& movable_;
    random_source random_;
    std::vector<int> choices_;
    std::vector<int> move_;  // choices to turn
    double temperature_ = 0.0;
};

}  // namespace

void anneal(shared_state& state, const std::vector<char>& movable, const annealing_plan& plan, long target,
            const solve_watch& watch, const annealing_listener& listener) {
    annealer(state, movable, plan.seed).run(plan, target, watch, listener);
}

}  // namespace solver
