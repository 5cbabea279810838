// Shortest paths from one cause: how far, how many, how many of them open, and the best
// of the open ones.
//
// One breadth-first search per cause levels the vertices; the arcs from a level to the
// next make a graph without cycles, in which paths are counted and widest paths (Pollack
// 1960) found in one pass over the levels. Bounded by the arcs of the network per cause
// and by the arcs on open shortest paths per effect.
#pragma once

#include <cstdint>
#include <vector>

#include "answer/compact_network.hpp"

// Numbers of paths are exact up to this and say "more" by the next number.
inline constexpr std::uint64_t most_paths_counted = 1'000'000'000'000'000;

class shortest_paths {
 public:
    // strength: by interaction, what the weakest of a path is looked for in; that of a
    // known direction is not asked, known arcs are never the weakest.
    shortest_paths(const compact_network& network, const std::vector<long>& strength);

    // Searches from this vertex, until all effects are reached. What follows is about it.
    void search(int cause, const std::vector<int>& effects);

    int distance(int effect) const;  // -1 = no path
    std::uint64_t paths(int effect) const;
    std::uint64_t open_paths(int effect) const;
    // Vertices of the open path whose weakest interaction is strongest; of equal ones the
    // one that comes over the vertex with the lowest number, looked at from the effect
    // back. Needs an open path.
    std::vector<int> widest_path(int effect) const;
    // Adds to the counts, by interaction, for each that lies on an open path to the effect.
    void count_open_interactions(int effect, long addend, std::vector<long>& counts);

 private:
    struct reached {
        int search = 0;  // number of the search that reached it last
        int level = 0;
        std::uint64_t paths = 0;
        std::uint64_t open_paths = 0;
        long width = 0;
        int before = -1;  // on the widest path
    };
    void level_vertices(int cause, const std::vector<int>& effects);
    void pass_on(int vertex);
    long strength_of(int arc) const;

    const compact_network& network_;
    const std::vector<long>& strength_;
    std::vector<reached> vertices_;
    int search_ = 0;
    std::vector<int> order_;  // vertices of this search by level
    std::vector<int> walk_of_vertex_;
    int walk_ = 0;
    std::vector<int> walk_stack_;
};
