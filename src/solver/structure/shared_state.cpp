#include "solver/structure/shared_state.hpp"

#include <numeric>

namespace solver {
namespace {

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

// Sorts arcs into rows by a key; a key of -1 stands in no row.
template <typename key_function>
void make_rows(const std::vector<net_arc>& arcs, int num_rows, const key_function& key, std::vector<int>& items,
               std::vector<int>& start) {
    start.assign(at(num_rows) + 1, 0);
    for (const net_arc& arc : arcs) {
        if (key(arc) >= 0) {
            ++start[at(key(arc)) + 1];
        }
    }
    std::partial_sum(start.begin(), start.end(), start.begin());
    items.resize(at(start.back()));
    std::vector<int> next = start;
    for (std::size_t a = 0; a < arcs.size(); ++a) {
        if (key(arcs[a]) >= 0) {
            items[at(next[at(key(arcs[a]))]++)] = static_cast<int>(a);
        }
    }
}

}  // namespace

shared_state::shared_state(const contested_problem& problem) : network_(problem.shared) {
    const int num_nodes = network_.num_nodes();
    const int num_gates = 2 * static_cast<int>(problem.choices.size());
    make_rows(
        network_.arcs, num_nodes, [](const net_arc& arc) { return arc.head; }, entering_, entering_start_);
    make_rows(
        network_.arcs, num_nodes, [](const net_arc& arc) { return arc.tail; }, leaving_, leaving_start_);
    make_rows(
        network_.arcs, num_gates, [](const net_arc& arc) { return arc.gate; }, of_gate_, of_gate_start_);
    set(directions(problem.choices.size(), 0));
}

void shared_state::set(const directions& chosen) {
    chosen_ = chosen;
    live_.assign(at(network_.num_nodes()), 0);
    live_entering_.assign(at(network_.num_nodes()), 0);
    missed_position_.assign(at(network_.num_nodes()), -1);
    missed_.clear();
    weight_ = 0;
    for (int node = 0; node < network_.num_nodes(); ++node) {
        if (network_.nodes[at(node)].weight > 0) {
            missed_position_[at(node)] = static_cast<int>(missed_.size());
            missed_.push_back(node);
        }
    }
    for (const net_arc& arc : network_.arcs) {
        if (arc.tail < 0 && is_open(arc.gate)) {
            gain(arc.head);
        }
    }
    spread();
}

void shared_state::gain(int node) {
    if (live_entering_[at(node)]++ == 0) {
        changed_.push_back(node);
    }
}

void shared_state::lose(int node) {
    if (--live_entering_[at(node)] == 0) {
        changed_.push_back(node);
    }
}

// A node's own change counts for the arcs behind it only from here on: until then
// live_ holds what they were told last.
void shared_state::spread() {
    while (!changed_.empty()) {
        const int node = changed_.back();
        changed_.pop_back();
        const bool reached = live_entering_[at(node)] > 0;
        if (reached == (live_[at(node)] != 0)) {
            continue;
        }
        live_[at(node)] = reached ? 1 : 0;
        if (const long weight = network_.nodes[at(node)].weight; weight > 0) {
            weight_ += reached ? weight : -weight;
            if (reached) {
                const int last = missed_.back();
                missed_[at(missed_position_[at(node)])] = last;
                missed_position_[at(last)] = missed_position_[at(node)];
                missed_.pop_back();
                missed_position_[at(node)] = -1;
            } else {
                missed_position_[at(node)] = static_cast<int>(missed_.size());
                missed_.push_back(node);
            }
        }
        for (const int index : part(leaving_, leaving_start_, node)) {
            const net_arc& arc = network_.arcs[at(index)];
            if (is_open(arc.gate)) {
                reached ? gain(arc.head) : lose(arc.head);
            }
        }
    }
}

void shared_state::turn(int choice) {
    const int closing = 2 * choice + chosen_[at(choice)];
    const auto told = [this](int tail) { return tail < 0 || live_[at(tail)] != 0; };
    chosen_[at(choice)] = -1;
    for (const int index : part(of_gate_, of_gate_start_, closing)) {
        if (const net_arc& arc = network_.arcs[at(index)]; told(arc.tail)) {
            lose(arc.head);
        }
    }
    spread();
    const int opening = closing ^ 1;
    chosen_[at(choice)] = static_cast<signed char>(opening % 2);
    for (const int index : part(of_gate_, of_gate_start_, opening)) {
        if (const net_arc& arc = network_.arcs[at(index)]; told(arc.tail)) {
            gain(arc.head);
        }
    }
    spread();
}

}  // namespace solver
