#include "solver/find/shared_state.hpp"

#include <numeric>

#include "solver/structure/index.hpp"

namespace solver {
namespace {

// Sorts arcs into rows by a key; a key of -1 stands in no row. Gives the rows' starts.
template <typename item, typename key_function, typename item_function>
std::vector<int> make_rows(const std::vector<net_arc>& arcs, int num_rows, const key_function& key,
                           const item_function& make_item, std::vector<item>& items) {
    std::vector<int> start(at(num_rows) + 1, 0);
    for (const net_arc& arc : arcs) {
        if (key(arc) >= 0) {
            ++start[at(key(arc)) + 1];
        }
    }
    std::partial_sum(start.begin(), start.end(), start.begin());
    items.resize(at(start.back()));
    std::vector<int> next = start;
    for (const net_arc& arc : arcs) {
        if (key(arc) >= 0) {
            items[at(next[at(key(arc))]++)] = make_item(arc);
        }
    }
    return start;
}

}  // namespace

shared_state::shared_state(const contested_problem& problem) : network_(problem.shared) {
    const auto head = [](const net_arc& arc) { return arc.head; };
    const auto tail = [](const net_arc& arc) { return arc.tail; };
    const auto gate = [](const net_arc& arc) { return arc.gate; };
    const int num_nodes = network_.num_nodes();
    const int num_gates = 2 * problem.num_choices();
    entering_start_ = make_rows(
        network_.arcs, num_nodes, head,
        [](const net_arc& arc) {
            return entering_arc{arc.tail, arc.gate};
        },
        entering_);
    of_gate_start_ = make_rows(
        network_.arcs, num_gates, gate,
        [](const net_arc& arc) {
            return gate_arc{arc.tail, arc.head};
        },
        of_gate_);
    const std::vector<int> leaving_start = make_rows(
        network_.arcs, num_nodes, tail,
        [](const net_arc& arc) {
            return leaving_arc{arc.head, arc.gate};
        },
        leaving_);
    for (int node = 0; node < num_nodes; ++node) {
        nodes_.push_back({0, 0, -1, leaving_start[at(node)], network_.nodes[at(node)].weight});
    }
    nodes_.push_back({0, 0, -1, leaving_start.back(), 0});
    set(directions(problem.choices.size(), 0));
}

void shared_state::set(const directions& chosen) {
    chosen_ = chosen;
    open_.assign(2 * chosen.size() + 1, 0);
    open(open_gate, true);
    for (std::size_t c = 0; c < chosen.size(); ++c) {
        open(static_cast<int>(2 * c) + chosen[c], true);
    }
    missed_.clear();
    weight_ = 0;
    for (int node = 0; node < network_.num_nodes(); ++node) {
        node_state& state = nodes_[at(node)];
        state.live_entering = state.told = 0;
        state.missed = -1;
        if (state.weight > 0) {
            state.missed = static_cast<int>(missed_.size());
            missed_.push_back(node);
        }
    }
    for (const net_arc& arc : network_.arcs) {
        if (arc.tail < 0 && is_open(arc.gate)) {
            change(arc.head, 1);
        }
    }
    spread(0);
    forget();
}

void shared_state::change(int node, int by) {
    node_state& state = nodes_[at(node)];
    const bool was_reached = state.live_entering > 0;
    state.live_entering += by;
    (by > 0 ? gained_ : lost_).push_back(node);
    if (was_reached != (state.live_entering > 0)) {
        changed_.push_back(node);
    }
}

void shared_state::count(node_state& state, int node, bool reached) {
    weight_ += reached ? state.weight : -state.weight;
    if (reached) {
        const int last = missed_.back();
        missed_[at(state.missed)] = last;
        nodes_[at(last)].missed = state.missed;
        missed_.pop_back();
        state.missed = -1;
    } else {
        state.missed = static_cast<int>(missed_.size());
        missed_.push_back(node);
    }
}

// The arcs behind a node are told of its change only here, so none is told twice.
void shared_state::spread(long least) {
    while (!changed_.empty() && weight_ >= least) {
        const int node = changed_.back();
        changed_.pop_back();
        node_state& state = nodes_[at(node)];
        const bool reached = state.live_entering > 0;
        if (reached == (state.told != 0)) {
            continue;
        }
        state.told = reached ? 1 : 0;
        told_.push_back(node);
        if (state.weight > 0) {
            count(state, node, reached);
        }
        const int by = reached ? 1 : -1;
        const int end = nodes_[at(node) + 1].first_leaving;
        for (int a = state.first_leaving; a < end; ++a) {
            if (is_open(leaving_[at(a)].gate)) {
                change(leaving_[at(a)].head, by);
            }
        }
    }
}

void shared_state::pass_on(int gate, int by) {
    for (int a = of_gate_start_[at(gate)]; a < of_gate_start_[at(gate) + 1]; ++a) {
        const gate_arc arc = of_gate_[at(a)];
        if (arc.tail < 0 || nodes_[at(arc.tail)].told != 0) {
            change(arc.head, by);
        }
    }
}

bool shared_state::turn(const std::vector<int>& choices, long least) {
    for (const int choice : choices) {
        const int opening = 2 * choice + (chosen_[at(choice)] ^ 1);
        pass_on(opening, 1);
        open(opening, true);
    }
    spread(0);
    for (const int choice : choices) {
        const int closing = 2 * choice + chosen_[at(choice)];
        chosen_[at(choice)] ^= 1;
        open(closing, false);
        pass_on(closing, -1);
    }
    spread(least);
    const bool done = weight_ >= least;
    if (!done) {
        undo(choices);
    }
    forget();
    return done;
}

void shared_state::forget() {
    changed_.clear();
    gained_.clear();
    lost_.clear();
    told_.clear();
}

void shared_state::undo(const std::vector<int>& choices) {
    for (const int choice : choices) {
        open(2 * choice + chosen_[at(choice)], false);
        chosen_[at(choice)] ^= 1;
        open(2 * choice + chosen_[at(choice)], true);
    }
    for (const int node : gained_) {
        --nodes_[at(node)].live_entering;
    }
    for (const int node : lost_) {
        ++nodes_[at(node)].live_entering;
    }
    for (const int node : told_) {
        node_state& state = nodes_[at(node)];
        state.told ^= 1;
        if (state.weight > 0) {
            count(state, node, state.told != 0);
        }
    }
}

}  // namespace solver
