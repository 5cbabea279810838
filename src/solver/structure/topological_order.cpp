#include "solver/structure/topological_order.hpp"

#include <numeric>

#include "solver/structure/index.hpp"

namespace solver {

std::vector<int> topological_order(int num_nodes, const std::vector<int>& tails, const std::vector<int>& heads) {
    std::vector<int> missing(at(num_nodes), 0);
    // Two places on: while the lists are filled, each one's end moves up to where the next begins.
    std::vector<int> first_leaving(at(num_nodes) + 2, 0);
    for (std::size_t a = 0; a < tails.size(); ++a) {
        if (tails[a] >= 0) {
            ++missing[at(heads[a])];
            ++first_leaving[at(tails[a]) + 2];
        }
    }
    std::partial_sum(first_leaving.begin(), first_leaving.end(), first_leaving.begin());
    std::vector<int> leaving(at(first_leaving.back()));
    for (std::size_t a = 0; a < tails.size(); ++a) {
        if (tails[a] >= 0) {
            leaving[at(first_leaving[at(tails[a]) + 1]++)] = heads[a];
        }
    }
    std::vector<int> order;
    order.reserve(at(num_nodes));
    for (int v = 0; v < num_nodes; ++v) {
        if (missing[at(v)] == 0) {
            order.push_back(v);
        }
    }
    for (std::size_t i = 0; i < order.size(); ++i) {
        const int v = order[i];
        for (int l = first_leaving[at(v)]; l < first_leaving[at(v) + 1]; ++l) {
            if (--missing[at(leaving[at(l)])] == 0) {
                order.push_back(leaving[at(l)]);
            }
        }
    }
    return order;
}

}  // namespace solver
