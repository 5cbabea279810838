// The same marks and counts as the stepwise search where direct arcs count, at a
// cost that follows the arcs on shortest paths plus one search per source.
//
// The network is copied once into compressed rows, since a search of the list
// graph follows a pointer per arc. One breadth-first search per source gives the
// distance d; the shortest-path arcs of a target are those met walking back from
// it over arcs u->v with d(u) + 1 = d(v). Nothing is reset between sources or
// targets: what was written for an earlier one is told by its number.
#pragma once

#include <cstdint>

#include <boost/graph/compressed_sparse_row_graph.hpp>

#include "orientation/source_marks.hpp"

class compressed_marking {
 public:
    // Copies bi_graph, whose vertices and arcs are numbered and stay as they are.
    compressed_marking();

    // Marks and counts for one source, in place of the marks of the source before.
    // The counts reach the arcs with add_counts, once, after the last source.
    const source_marks& mark(vertex_descriptor pair_source, const targets& source_targets);
    void add_counts() const;

 private:
    using number = std::uint32_t;
    using compressed_graph =
        boost::compressed_sparse_row_graph<boost::bidirectionalS, boost::no_property, number /* edge_index */,
                                           boost::no_property, number, number>;
    struct tight_arc {
        number tail;
        number arc;
    };
    struct pool_range {
        std::size_t begin = 0;
        std::size_t end = 0;
        int source_number = 0;  // of the source that it was gathered for
    };

    void find_distances(number source);
    void mark_back_from(number target, int multiplicity);
    pool_range tight_arcs_into(number vertex);

    std::vector<edge_descriptor> arcs;  // by edge_index
    compressed_graph network;
    int source_number = 0;  // counted from 1

    // A vertex that the current search has reached holds first_level plus its
    // distance; every search starts above all levels of the ones before it.
    std::vector<int> level;
    int first_level = 1;
    int last_level = 0;
    std::vector<number> queue;

    // Arcs u->v with d(u) + 1 = d(v), by v, gathered when a walk first comes to v:
    // the entering arcs of a hub are looked at once per source, not once per target.
    std::vector<pool_range> tight_arcs;
    std::vector<tight_arc> tight_arc_pool;

    std::vector<int> walk_of_vertex;  // number of the last walk that met it
    int walk_number = 0;
    std::vector<number> walk;

    std::vector<number> target_numbers;  // ascending, repetitions kept
    std::vector<int> marked_for;         // by edge_index: number of the last source that marked the arc
    std::vector<number> marked;
    std::vector<int> counts;  // by edge_index
    source_marks marks;
};
