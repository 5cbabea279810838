#include "orientation/compressed_marking.hpp"

#include <algorithm>

#include <boost/range/iterator_range.hpp>

compressed_marking::compressed_marking() {
    std::vector<std::pair<number, number>> ends;
    std::vector<number> arc_numbers;
    for (const edge_descriptor& arc : boost::make_iterator_range(boost::edges(bi_graph))) {
        boost::put(in_shortest_map, arc, false);
        arc_numbers.push_back(arcs.size());
        arcs.push_back(arc);
        ends.emplace_back(boost::get(vertex_myindex_map, boost::source(arc, bi_graph)),
                          boost::get(vertex_myindex_map, boost::target(arc, bi_graph)));
    }
    const number num_of_vertices = boost::num_vertices(bi_graph);
    network = compressed_graph(boost::edges_are_unsorted_multi_pass, ends.begin(), ends.end(), arc_numbers.begin(),
                               num_of_vertices);
    level.assign(num_of_vertices, 0);
    queue.resize(num_of_vertices + 1);  // the search writes one past what it keeps
    tight_arcs.resize(num_of_vertices);
    walk_of_vertex.assign(num_of_vertices, 0);
    marked_for.assign(arcs.size(), 0);
    counts.assign(arcs.size(), 0);
}

const source_marks& compressed_marking::mark(vertex_descriptor pair_source, const targets& source_targets) {
    for (const edge_descriptor& arc : marks.arcs) {
        boost::put(in_shortest_map, arc, false);
    }
    marks.arcs.clear();
    marks.target_distances.clear();
    marked.clear();
    tight_arc_pool.clear();
    ++source_number;

    target_numbers.clear();
    for (const vertex_descriptor target : source_targets) {
        target_numbers.push_back(boost::get(vertex_myindex_map, target));
    }
    std::sort(target_numbers.begin(), target_numbers.end());

    find_distances(boost::get(vertex_myindex_map, pair_source));
    for (auto target = target_numbers.begin(); target != target_numbers.end();) {
        const auto next = std::upper_bound(target, target_numbers.end(), *target);
        if (level[*target] > first_level) {
            mark_back_from(*target, static_cast<int>(next - target));
        }
        target = next;
    }

    std::sort(marked.begin(), marked.end());
    for (const number arc : marked) {
        boost::put(in_shortest_map, arcs[arc], true);
        marks.arcs.push_back(arcs[arc]);
    }
    for (const vertex_descriptor target : source_targets) {
        marks.target_distances.push_back(std::max(level[boost::get(vertex_myindex_map, target)] - first_level, 0));
    }
    return marks;
}

void compressed_marking::add_counts() const {
    for (std::size_t arc = 0; arc < arcs.size(); ++arc) {
        boost::put(shortest_paths_counter_map, arcs[arc],
                   boost::get(shortest_paths_counter_map, arcs[arc]) + counts[arc]);
    }
}

// Ends with the search when the last target has its distance: by then every vertex
// one arc nearer has its own, and the walks back look at no others.
void compressed_marking::find_distances(number source) {
    // A level is left free, so that no arc from an earlier search's last level seems
    // to lead on to this source.
    first_level = last_level + 2;
    level[source] = first_level;
    std::size_t queue_end = 0;
    queue[queue_end++] = source;

    std::size_t targets_left = 0;
    ++walk_number;  // marks the targets that are still to be reached
    for (const number target : target_numbers) {
        if (target != source && walk_of_vertex[target] != walk_number) {
            walk_of_vertex[target] = walk_number;
            ++targets_left;
        }
    }

    // Whether a neighbour is new is anybody's guess, so there is no branch on it.
    for (std::size_t head = 0; head < queue_end && targets_left > 0; ++head) {
        const int next_level = level[queue[head]] + 1;
        for (const number neighbour : boost::make_iterator_range(boost::adjacent_vertices(queue[head], network))) {
            const bool is_new = level[neighbour] < first_level;
            level[neighbour] = is_new ? next_level : level[neighbour];
            queue[queue_end] = neighbour;
            queue_end += is_new;
            targets_left -= is_new & (walk_of_vertex[neighbour] == walk_number);
        }
    }
    last_level = level[queue[queue_end - 1]];
}

void compressed_marking::mark_back_from(number target, int multiplicity) {
    ++walk_number;
    walk_of_vertex[target] = walk_number;
    walk.assign(1, target);
    while (!walk.empty()) {
        const pool_range range = tight_arcs_into(walk.back());
        walk.pop_back();
        for (std::size_t i = range.begin; i < range.end; ++i) {
            const tight_arc& arc = tight_arc_pool[i];
            counts[arc.arc] += multiplicity;
            if (marked_for[arc.arc] != source_number) {
                marked_for[arc.arc] = source_number;
                marked.push_back(arc.arc);
            }
            if (walk_of_vertex[arc.tail] != walk_number) {
                walk_of_vertex[arc.tail] = walk_number;
                walk.push_back(arc.tail);
            }
        }
    }
}

compressed_marking::pool_range compressed_marking::tight_arcs_into(number vertex) {
    pool_range& range = tight_arcs[vertex];
    if (range.source_number != source_number) {
        range = {tight_arc_pool.size(), tight_arc_pool.size(), source_number};
        for (const auto& arc : boost::make_iterator_range(boost::in_edges(vertex, network))) {
            const number tail = boost::source(arc, network);
            if (level[tail] + 1 == level[vertex]) {
                tight_arc_pool.push_back({tail, network[arc]});
            }
        }
        range.end = tight_arc_pool.size();
    }
    return range;
}
