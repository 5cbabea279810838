#include "solver/structure/topological_order.hpp"

#include <numeric>

#include "solver/structure/index.hpp"

namespace solver {

std::vector<int> topological_order(int num_nodes, const std::vector<int>& tails, const std::vector<int>& heads) {
    std::vector<int> missing(at(num_nodes), 0);
    std::vector<int> first_leaving(at(num_nodes) + 1, 0);
    for (std::size_t a = 0; a < tails.size(); ++a) {
        if (tails[a] >= 0) {
            ++missing[at(heads[a])];
            ++first_leaving[at(tails[a]) + 1];
        }
    }
    std::partial_sum(first_leaving.begin(), first_leaving.end(), first_leaving.begin());
    std::vector<int> leaving(at(first_leaving.back()));
    std::vector<int> next = first_leaving;
    for (std::size_t a = 0; a < tails.size(); ++a) {
        if (tails[a] >= 0) {
            leaving[at(next[at(tails[a])]++)] = heads[a];
        }
    }
    std::vector<int> order;
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
