#include "importing/shortest_path_part.hpp"

#include <algorithm>

namespace {

struct step {
    int protein;      // at the other end
    int interaction;  // on which it is reached
};

// Steps of all proteins in one array, those of a protein side by side.
class steps_by_protein {
 public:
    // `starts` and `ends` of each step; a step's protein is its end.
    steps_by_protein(std::size_t num_proteins, const std::vector<int>& starts, const std::vector<step>& steps)
        : first_(num_proteins + 1), steps_(steps.size()) {
        for (const int start : starts) {
            ++first_[static_cast<std::size_t>(start) + 1];
        }
        for (std::size_t i = 0; i < num_proteins; ++i) {
            first_[i + 1] += first_[i];
        }
        std::vector<std::size_t> next(first_.begin(), first_.end() - 1);
        for (std::size_t i = 0; i < steps.size(); ++i) {
            steps_[next[static_cast<std::size_t>(starts[i])]++] = steps[i];
        }
    }

    const step* begin(int protein) const { return steps_.data() + first_[static_cast<std::size_t>(protein)]; }
    const step* end(int protein) const { return steps_.data() + first_[static_cast<std::size_t>(protein) + 1]; }

 private:
    std::vector<std::size_t> first_;
    std::vector<step> steps_;
};

class path_marker {
 public:
    explicit path_marker(const imported_network& network)
        : network_(network),
          forward_(make_steps(network, false)),
          backward_(make_steps(network, true)),
          distance_(network.names.size()),
          is_on_path_(network.names.size()),
          keeps_interaction(network.interactions.size()) {}

    // Marks what lies on the shortest paths to these effects, and says which have one.
    std::vector<char> mark(int cause, const std::vector<int>& effects) {
        std::fill(distance_.begin(), distance_.end(), -1);
        std::fill(is_on_path_.begin(), is_on_path_.end(), 0);
        search_from(cause);
        std::vector<char> has_path;
        std::vector<int> to_visit;
        for (const int effect : effects) {
            has_path.push_back(effect != cause && at(distance_, effect) > 0 ? 1 : 0);
            if (has_path.back() != 0 && at(is_on_path_, effect) == 0) {
                at(is_on_path_, effect) = 1;
                to_visit.push_back(effect);
            }
        }
        while (!to_visit.empty()) {
            const int protein = to_visit.back();
            to_visit.pop_back();
            for (const step* back = backward_.begin(protein); back != backward_.end(protein); ++back) {
                if (at(distance_, back->protein) >= 0 && at(distance_, back->protein) + 1 == at(distance_, protein)) {
                    at(keeps_interaction, back->interaction) = 1;
                    if (at(is_on_path_, back->protein) == 0) {
                        at(is_on_path_, back->protein) = 1;
                        to_visit.push_back(back->protein);
                    }
                }
            }
        }
        return has_path;
    }

 private:
    static steps_by_protein make_steps(const imported_network& network, bool backward) {
        std::vector<int> starts;
        std::vector<step> steps;
        for (std::size_t i = 0; i < network.interactions.size(); ++i) {
            const imported_network::interaction& found = network.interactions[i];
            const bool both_ways = found.what != imported_network::kind::directed;
            if (both_ways || !backward) {
                starts.push_back(found.first);
                steps.push_back({found.second, static_cast<int>(i)});
            }
            if (both_ways || backward) {
                starts.push_back(found.second);
                steps.push_back({found.first, static_cast<int>(i)});
            }
        }
        return {network.names.size(), starts, steps};
    }

    template <typename value>
    static value& at(std::vector<value>& values, int place) {
        return values[static_cast<std::size_t>(place)];
    }

    void search_from(int cause) {
        std::vector<int> reached{cause};
        at(distance_, cause) = 0;
        for (std::size_t i = 0; i < reached.size(); ++i) {
            for (const step* next = forward_.begin(reached[i]); next != forward_.end(reached[i]); ++next) {
                if (at(distance_, next->protein) < 0) {
                    at(distance_, next->protein) = at(distance_, reached[i]) + 1;
                    reached.push_back(next->protein);
                }
            }
        }
    }

    const imported_network& network_;
    steps_by_protein forward_;
    steps_by_protein backward_;
    std::vector<int> distance_;
    std::vector<char> is_on_path_;

 public:
    std::vector<char> keeps_interaction;
};

}  // namespace

long keep_shortest_paths(imported_network& network, const std::function<void(int done, int all)>& watch) {
    path_marker marker(network);
    std::vector<imported_network::pair> pairs_kept;
    for (std::size_t i = 0; i < network.pairs.size();) {
        // Pairs are sorted, so those of a cause stand together.
        const int cause = network.pairs[i].cause;
        std::vector<int> effects;
        for (; i < network.pairs.size() && network.pairs[i].cause == cause; ++i) {
            effects.push_back(network.pairs[i].effect);
        }
        const std::vector<char> has_path = marker.mark(cause, effects);
        for (std::size_t j = 0; j < effects.size(); ++j) {
            if (has_path[j] != 0) {
                pairs_kept.push_back({cause, effects[j]});
            }
        }
        if (watch) {
            watch(static_cast<int>(i), static_cast<int>(network.pairs.size()));
        }
    }
    const long pathless = static_cast<long>(network.pairs.size() - pairs_kept.size());

    // Every protein on a path is an end of an interaction on it.
    imported_network part;
    std::vector<int> new_number(network.names.size(), -1);
    for (std::size_t i = 0; i < network.interactions.size(); ++i) {
        if (marker.keeps_interaction[i] != 0) {
            part.interactions.push_back(network.interactions[i]);
            new_number[static_cast<std::size_t>(network.interactions[i].first)] = 0;
            new_number[static_cast<std::size_t>(network.interactions[i].second)] = 0;
        }
    }
    for (std::size_t i = 0; i < network.names.size(); ++i) {
        if (new_number[i] == 0) {
            new_number[i] = static_cast<int>(part.names.size());
            part.names.push_back(network.names[i]);
        }
    }
    for (imported_network::interaction& found : part.interactions) {
        found.first = new_number[static_cast<std::size_t>(found.first)];
        found.second = new_number[static_cast<std::size_t>(found.second)];
    }
    for (const imported_network::pair& found : pairs_kept) {
        part.pairs.push_back(
            {new_number[static_cast<std::size_t>(found.cause)], new_number[static_cast<std::size_t>(found.effect)]});
    }
    network = std::move(part);
    return pathless;
}
