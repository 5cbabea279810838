#include "solver/bound/group_directions.hpp"

#include <algorithm>

#include "solver/structure/index.hpp"

namespace solver {

group_directions::group_directions(const std::vector<int>& choices) : choices_(choices), first_side_(choices.size()) {
    for (std::size_t direction = 0; direction < std::size_t{1} << choices.size(); ++direction) {
        all_.set(direction);
        for (std::size_t c = 0; c < choices.size(); ++c) {
            first_side_[c][direction] = (direction >> c & 1) != 0;
        }
    }
}

direction_set group_directions::opening(int gate) const {
    const auto found = std::lower_bound(choices_.begin(), choices_.end(), gate / 2);
    if (gate == open_gate || found == choices_.end() || *found != gate / 2) {
        return all_;
    }
    const direction_set& first = first_side_[static_cast<std::size_t>(found - choices_.begin())];
    return gate % 2 == 0 ? first : all_ & ~first;
}

direction_set group_directions::satisfying(const pair_net& net) const {
    std::vector<direction_set> reached(at(net.num_nodes));
    reached[net_root] = all_;
    for (const net_arc& arc : net.arcs) {
        reached[at(arc.head)] |= reached[at(arc.tail)] & opening(arc.gate);
    }
    return reached[net_target];
}

}  // namespace solver
