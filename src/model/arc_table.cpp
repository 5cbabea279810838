#include "model/arc_table.hpp"

#include <cstdint>

namespace {

std::uint64_t bits_of(vertex_descriptor vertex) {
    return reinterpret_cast<std::uintptr_t>(vertex);
}

}  // namespace

const edge_descriptor* arc_table::find(vertex_descriptor tail, vertex_descriptor head) const {
    if (places_.empty()) {
        return nullptr;
    }
    const std::size_t place = place_of(tail, head);
    return is_free(place) ? nullptr : &places_[place];
}

void arc_table::add(const edge_descriptor& arc) {
    if (2 * (size_ + 1) > places_.size()) {
        grow();
    }
    const std::size_t place = place_of(arc.m_source, arc.m_target);
    if (is_free(place)) {
        places_[place] = arc;
        ++size_;
    }
}

// What follows moves up, where its own search may begin there, so that no search ends
// at the gap.
void arc_table::remove(vertex_descriptor tail, vertex_descriptor head) {
    if (find(tail, head) == nullptr) {
        return;
    }
    const std::size_t mask = places_.size() - 1;
    std::size_t gap = place_of(tail, head);
    for (std::size_t place = (gap + 1) & mask; !is_free(place); place = (place + 1) & mask) {
        const std::size_t first = first_place(places_[place].m_source, places_[place].m_target);
        if (((place - first) & mask) >= ((place - gap) & mask)) {
            places_[gap] = places_[place];
            gap = place;
        }
    }
    places_[gap] = edge_descriptor();
    --size_;
}

std::size_t arc_table::place_of(vertex_descriptor tail, vertex_descriptor head) const {
    const std::size_t mask = places_.size() - 1;
    std::size_t place = first_place(tail, head);
    while (!is_free(place) && (places_[place].m_source != tail || places_[place].m_target != head)) {
        place = (place + 1) & mask;
    }
    return place;
}

// Addresses differ in their middle bits; multiplying carries these to the top, whence
// they are taken.
std::size_t arc_table::first_place(vertex_descriptor tail, vertex_descriptor head) const {
    const std::uint64_t mixed = (bits_of(tail) * 0x9e3779b97f4a7c15ULL ^ bits_of(head)) * 0xff51afd7ed558ccdULL;
    return static_cast<std::size_t>(mixed >> 32) & (places_.size() - 1);
}

void arc_table::grow() {
    std::vector<edge_descriptor> smaller(places_.empty() ? 1024 : 2 * places_.size());
    smaller.swap(places_);
    size_ = 0;
    for (const edge_descriptor& arc : smaller) {
        if (arc.get_property() != nullptr) {
            add(arc);
        }
    }
}
