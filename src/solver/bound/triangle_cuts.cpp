#include "solver/bound/triangle_cuts.hpp"

#include <algorithm>
#include <map>
#include <set>
#include <utility>

#include "solver/structure/index.hpp"

namespace solver {

std::vector<std::array<int, 3>> find_triangles(const std::vector<transition>& transitions, int num_gates,
                                               const std::vector<double>& values, double tolerance) {
    struct follower {
        int gate;
        int index;  // of the transition
    };
    std::vector<std::vector<follower>> followers(at(num_gates));
    std::map<std::pair<int, int>, int> index_between;
    for (std::size_t k = 0; k < transitions.size(); ++k) {
        const auto [a, b] = transitions[k];
        if (values[k] > tolerance) {
            const int index = static_cast<int>(k);
            followers[at(a ^ 1)].push_back({b, index});
            followers[at(b ^ 1)].push_back({a, index});
            index_between[{a ^ 1, b}] = index_between[{b ^ 1, a}] = index;
        }
    }
    std::set<std::array<int, 3>> found;
    for (int first = 0; first < num_gates; ++first) {
        for (const follower& second : followers[at(first)]) {
            for (const follower& third : followers[at(second.gate)]) {
                const double two = values[at(second.index)] + values[at(third.index)];
                if (two <= tolerance) {
                    continue;
                }
                const auto closing = index_between.find({third.gate, first});
                if (closing == index_between.end() || two + values[at(closing->second)] <= 1.0 + tolerance) {
                    continue;
                }
                std::array<int, 3> three = {second.index, third.index, closing->second};
                std::sort(three.begin(), three.end());
                if (three[0] != three[1] && three[1] != three[2]) {
                    found.insert(three);
                }
            }
        }
    }
    return {found.begin(), found.end()};
}

}  // namespace solver
