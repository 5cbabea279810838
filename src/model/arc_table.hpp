// Arcs by their ends. The readers ask for an arc or two per line, so the table is one
// array with open addressing: a node of its own for every arc would cost more than
// all else that is done with the line.
#pragma once

#include <cstddef>
#include <vector>

#include "model/graph_type.hpp"

class arc_table {
 public:
    // The arc tail -> head, null when there is none. Valid until the next change.
    const edge_descriptor* find(vertex_descriptor tail, vertex_descriptor head) const;
    // Keeps the arc that is there already, if there is one between these ends.
    void add(const edge_descriptor& arc);
    void remove(vertex_descriptor tail, vertex_descriptor head);

 private:
    // Where these ends stand, or the free place that their search ends at.
    std::size_t place_of(vertex_descriptor tail, vertex_descriptor head) const;
    std::size_t first_place(vertex_descriptor tail, vertex_descriptor head) const;
    bool is_free(std::size_t place) const { return places_[place].get_property() == nullptr; }
    void grow();

    std::vector<edge_descriptor> places_;  // a power of two of them, at least half of them free
    std::size_t size_ = 0;
};
