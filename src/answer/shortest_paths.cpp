#include "answer/shortest_paths.hpp"

#include <algorithm>
#include <limits>

namespace {

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

std::uint64_t bounded_sum(std::uint64_t a, std::uint64_t b) {
    return std::min(a + b, most_paths_counted + 1);
}

}  // namespace

shortest_paths::shortest_paths(const compact_network& network, const std::vector<long>& strength)
    : network_(network),
      strength_(strength),
      vertices_(at(network.num_vertices())),
      walk_of_vertex_(at(network.num_vertices()), 0) {}

void shortest_paths::search(int cause, const std::vector<int>& effects) {
    ++search_;
    level_vertices(cause, effects);
    reached& start = vertices_[at(cause)];
    start.paths = start.open_paths = 1;
    start.width = std::numeric_limits<long>::max();
    for (const int vertex : order_) {
        pass_on(vertex);
    }
}

// All of a level are reached before the search ends within the next, so every arc into an
// effect from the level before it is there to be counted.
void shortest_paths::level_vertices(int cause, const std::vector<int>& effects) {
    order_.assign(1, cause);
    vertices_[at(cause)] = {.search = search_};
    ++walk_;
    std::size_t left = 0;
    for (const int effect : effects) {
        left += effect != cause && std::exchange(walk_of_vertex_[at(effect)], walk_) != walk_ ? 1 : 0;
    }
    for (std::size_t next = 0; next < order_.size() && left > 0; ++next) {
        const int vertex = order_[next];
        for (int a = network_.out_start[at(vertex)]; a < network_.out_start[at(vertex) + 1]; ++a) {
            const int head = network_.arcs[at(network_.out_arcs[at(a)])].head;
            if (vertices_[at(head)].search != search_) {
                vertices_[at(head)] = {.search = search_, .level = vertices_[at(vertex)].level + 1};
                order_.push_back(head);
                left -= walk_of_vertex_[at(head)] == walk_ ? 1 : 0;
            }
        }
    }
}

void shortest_paths::pass_on(int vertex) {
    const reached& from = vertices_[at(vertex)];
    for (int a = network_.out_start[at(vertex)]; a < network_.out_start[at(vertex) + 1]; ++a) {
        const int arc = network_.out_arcs[at(a)];
        reached& to = vertices_[at(network_.arcs[at(arc)].head)];
        if (to.search != search_ || to.level != from.level + 1) {
            continue;
        }
        to.paths = bounded_sum(to.paths, from.paths);
        if (!network_.arcs[at(arc)].open || from.open_paths == 0) {
            continue;
        }
        to.open_paths = bounded_sum(to.open_paths, from.open_paths);
        const long width = std::min(from.width, strength_of(arc));
        if (to.before < 0 || width > to.width || (width == to.width && vertex < to.before)) {
            to.width = width;
            to.before = vertex;
        }
    }
}

long shortest_paths::strength_of(int arc) const {
    const bool known = network_.arcs[at(arc | 1)].tail < 0;
    return known ? std::numeric_limits<long>::max() : strength_[at(arc / 2)];
}

int shortest_paths::distance(int effect) const {
    return vertices_[at(effect)].search == search_ ? vertices_[at(effect)].level : -1;
}

std::uint64_t shortest_paths::paths(int effect) const {
    return vertices_[at(effect)].search == search_ ? vertices_[at(effect)].paths : 0;
}

std::uint64_t shortest_paths::open_paths(int effect) const {
    return vertices_[at(effect)].search == search_ ? vertices_[at(effect)].open_paths : 0;
}

std::vector<int> shortest_paths::widest_path(int effect) const {
    std::vector<int> path;
    for (int vertex = effect; vertex >= 0; vertex = vertices_[at(vertex)].before) {
        path.push_back(vertex);
    }
    std::reverse(path.begin(), path.end());
    return path;
}

void shortest_paths::count_open_interactions(int effect, long addend, std::vector<long>& counts) {
    if (open_paths(effect) == 0) {
        return;
    }
    ++walk_;
    walk_of_vertex_[at(effect)] = walk_;
    walk_stack_.assign(1, effect);
    while (!walk_stack_.empty()) {
        const int vertex = walk_stack_.back();
        walk_stack_.pop_back();
        for (int a = network_.in_start[at(vertex)]; a < network_.in_start[at(vertex) + 1]; ++a) {
            const int arc = network_.in_arcs[at(a)];
            const int tail = network_.arcs[at(arc)].tail;
            if (!network_.arcs[at(arc)].open || open_paths(tail) == 0 ||
                vertices_[at(tail)].level + 1 != vertices_[at(vertex)].level) {
                continue;
            }
            counts[at(arc / 2)] += addend;
            if (walk_of_vertex_[at(tail)] != walk_) {
                walk_of_vertex_[at(tail)] = walk_;
                walk_stack_.push_back(tail);
            }
        }
    }
}
