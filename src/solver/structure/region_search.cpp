#include "solver/structure/region_search.hpp"

#include <algorithm>

#include "solver/structure/contested_search.hpp"
#include "solver/structure/freed_part.hpp"
#include "solver/structure/index.hpp"

namespace solver {
namespace {

constexpr double first_share = 0.25;  // of all choices in the largest region
constexpr double most_share = 0.75;
constexpr double smallest_share = 0.25;  // of the largest region
constexpr double growth = 1.02;          // after a search that came to its end
constexpr double shrinkage = 0.8;        // after one that gave up

}  // namespace

region_search::region_search(const contested_problem& problem, std::uint64_t seed)
    : problem_(problem),
      random_(seed),
      largest_(first_share * problem.num_choices()),
      choices_of_pair_(problem.pairs.size()),
      pairs_of_choice_(problem.choices.size()) {
    for (std::size_t p = 0; p < problem.pairs.size(); ++p) {
        std::vector<int>& choices = choices_of_pair_[p];
        for (const net_arc& arc : problem.pairs[p].arcs) {
            if (arc.gate != open_gate) {
                choices.push_back(arc.gate / 2);
            }
        }
        std::sort(choices.begin(), choices.end());
        choices.erase(std::unique(choices.begin(), choices.end()), choices.end());
        for (const int choice : choices) {
            pairs_of_choice_[at(choice)].push_back(static_cast<int>(p));
        }
    }
}

std::vector<char> region_search::pick_region() {
    const double size = largest_ * (smallest_share + (1.0 - smallest_share) * random_.share());
    std::vector<char> region(problem_.choices.size(), 0);
    std::vector<int> picked{static_cast<int>(random_.below(region.size()))};
    region[at(picked.front())] = 1;
    std::vector<int> near;
    for (std::size_t next = 0; next < picked.size() && static_cast<double>(picked.size()) < size; ++next) {
        near.clear();
        for (const int pair : pairs_of_choice_[at(picked[next])]) {
            near.insert(near.end(), choices_of_pair_[at(pair)].begin(), choices_of_pair_[at(pair)].end());
        }
        for (std::size_t left = near.size(); left > 0 && static_cast<double>(picked.size()) < size; --left) {
            std::swap(near[random_.below(left)], near[left - 1]);
            const int choice = near[left - 1];
            if (region[at(choice)] == 0) {
                region[at(choice)] = 1;
                picked.push_back(choice);
            }
        }
    }
    return region;
}

// The problem without the pairs that the region does not touch.
contested_problem region_search::pairs_of(const std::vector<char>& region) const {
    contested_problem only;
    only.choices = problem_.choices;
    only.shared = problem_.shared;
    std::vector<int> new_pair(problem_.pairs.size(), -1);
    for (std::size_t p = 0; p < problem_.pairs.size(); ++p) {
        const std::vector<int>& choices = choices_of_pair_[p];
        if (std::any_of(choices.begin(), choices.end(), [&](int choice) { return region[at(choice)] != 0; })) {
            new_pair[p] = static_cast<int>(only.pairs.size());
            only.pairs.push_back(problem_.pairs[p]);
        }
    }
    for (shared_network::node& node : only.shared.nodes) {
        node.pair = node.pair >= 0 ? new_pair[at(node.pair)] : -1;
    }
    return only;
}

void region_search::step(shared_state& state, const solve_watch& watch) {
    const std::vector<char> region = pick_region();
    const directions before = state.chosen();
    const long weight_before = state.weight();
    contested_problem touched = pairs_of(region);
    long weight_to_keep = touched.total_weight();
    for (const int node : state.missed()) {
        const shared_network::node& missed = touched.shared.nodes[at(node)];
        weight_to_keep -= missed.pair >= 0 ? missed.weight : 0;
    }
    const freed_part part = free_choices(std::move(touched), region, before);

    search_plan plan;
    plan.goal = weight_to_keep - part.rest.satisfied_weight;
    plan.gives_up = true;
    const contested_answer best = search_contested(part.rest.contested, plan, {}, watch);
    state.set(part.with(best.chosen));
    if (state.weight() < weight_before) {
        state.set(before);
    }
    const bool gave_up = best.weight < best.bound && best.bound >= plan.goal;
    largest_ = gave_up ? shrinkage * largest_ : std::min(growth * largest_, most_share * problem_.num_choices());
}

}  // namespace solver
