#include "importing/import_network.hpp"

#include <algorithm>
#include <cstdio>
#include <numeric>

#include "importing/hide_directions.hpp"
#include "importing/interaction_pool.hpp"
#include "importing/match_names.hpp"
#include "importing/shortest_path_part.hpp"
#include "naming/alias.hpp"
#include "tables/sha256.hpp"
#include "tables/unusable_input.hpp"

namespace {

using kind = imported_network::kind;

interaction_pool read_all_interactions(const import_plan& plan, import_account& account) {
    interaction_pool pool;
    for (std::size_t i = 0; i < plan.interaction_files.size(); ++i) {
        const auto take = [&](const interaction_row& row) { pool.add(row, static_cast<int>(i)); };
        account.interaction_sources.push_back(read_interactions(plan.interaction_files[i], plan.interactions, take));
    }
    for (const std::string& path : plan.interactions.aliases) {
        account.name_sources.emplace_back(path, sha256_of_file(path));
    }
    return pool;
}

std::vector<named_pair> read_all_knockouts(const import_plan& plan, import_account& account) {
    std::vector<named_pair> pairs;
    for (const std::string& path : plan.knockout_files) {
        account.knockout_sources.push_back(read_knockout_pairs(path, plan.knockouts, [&](const knockout_row& row) {
            pairs.push_back({.cause = std::string(row.cause), .effect = std::string(row.effect)});
        }));
    }
    account.counts.pair_rows = static_cast<long>(pairs.size());
    std::sort(pairs.begin(), pairs.end());
    pairs.erase(std::unique(pairs.begin(), pairs.end()), pairs.end());
    account.counts.pairs_repeated = account.counts.pair_rows - static_cast<long>(pairs.size());
    return pairs;
}

// Interactions of at least this confidence, with the names that they mention.
imported_network resolve(const interaction_pool& pool, double min_confidence, import_counts& counts) {
    std::vector<int> order(pool.names().size());
    std::iota(order.begin(), order.end(), 0);
    std::sort(order.begin(), order.end(), [&](int left, int right) {
        return pool.names()[static_cast<std::size_t>(left)] < pool.names()[static_cast<std::size_t>(right)];
    });
    std::vector<int> position(order.size());
    for (std::size_t i = 0; i < order.size(); ++i) {
        position[static_cast<std::size_t>(order[i])] = static_cast<int>(i);
    }
    imported_network network;
    std::vector<char> is_mentioned(order.size());
    const auto add = [&](int first, int second, kind what, double confidence) {
        network.interactions.push_back({first, second, what, confidence});
        is_mentioned[static_cast<std::size_t>(first)] = is_mentioned[static_cast<std::size_t>(second)] = 1;
    };
    for (const interaction_pool::entry& known : pool.entries()) {
        const int first = position[static_cast<std::size_t>(known.first)];
        const int second = position[static_cast<std::size_t>(known.second)];
        const auto is_said = [&](double confidence) {
            return confidence > interaction_pool::unsaid && confidence >= min_confidence;
        };
        const bool forward = is_said(known.forward);
        const bool backward = is_said(known.backward);
        if (forward) {
            add(first, second, kind::directed, std::max(known.forward, known.undirected));
        }
        if (backward) {
            add(second, first, kind::directed, std::max(known.backward, known.undirected));
        }
        if (!forward && !backward && is_said(known.undirected)) {
            add(std::min(first, second), std::max(first, second), kind::undirected, known.undirected);
        }
        const bool has_direction = forward || backward;
        const long rows = known.directed_rows + known.undirected_rows;
        counts.rows += rows;
        counts.overruled += has_direction ? known.undirected_rows : 0;
        counts.repeated +=
            has_direction ? known.directed_rows - (forward ? 1 : 0) - (backward ? 1 : 0) : known.undirected_rows - 1;
        counts.both_ways += forward && backward ? 1 : 0;
        counts.known_directions += (forward ? 1 : 0) + (backward ? 1 : 0);
    }
    // A threshold may leave names that nothing mentions any more.
    std::vector<int> number(order.size(), -1);
    for (std::size_t i = 0; i < order.size(); ++i) {
        if (is_mentioned[i] != 0) {
            number[i] = static_cast<int>(network.names.size());
            network.names.push_back(pool.names()[static_cast<std::size_t>(order[i])]);
        }
    }
    for (imported_network::interaction& found : network.interactions) {
        found.first = number[static_cast<std::size_t>(found.first)];
        found.second = number[static_cast<std::size_t>(found.second)];
    }
    std::sort(network.interactions.begin(), network.interactions.end(), [](const auto& left, const auto& right) {
        return std::pair(left.first, left.second) < std::pair(right.first, right.second);
    });
    return network;
}

void add_pairs(imported_network& network, const std::vector<named_pair>& pairs, const import_plan& plan,
               import_account& account) {
    const knockout_names names = match_knockouts(pairs, network.names, plan);
    const auto number_of_name = [&](const std::string& name) {
        return static_cast<int>(std::lower_bound(network.names.begin(), network.names.end(), name) -
                                network.names.begin());
    };
    std::vector<std::pair<int, int>> found;
    for (const named_pair& pair : pairs) {
        const auto cause = names.in_network.find(pair.cause);
        const auto effect = names.in_network.find(pair.effect);
        if (cause == names.in_network.end() || effect == names.in_network.end()) {
            ++account.counts.pairs_unknown;
        } else if (cause->second == effect->second) {
            ++account.counts.pairs_same;
        } else {
            found.emplace_back(number_of_name(cause->second), number_of_name(effect->second));
        }
    }
    std::sort(found.begin(), found.end());
    const auto end = std::unique(found.begin(), found.end());
    account.counts.pairs_repeated += found.end() - end;
    for (auto pair = found.begin(); pair != end; ++pair) {
        network.pairs.push_back({pair->first, pair->second});
    }
    account.counts.named_by_alias = names.named_by_alias;
    account.unknown_names = names.unlike;
}

long count_tests(const imported_network& network) {
    return std::count_if(network.interactions.begin(), network.interactions.end(),
                         [](const auto& found) { return found.what == kind::test; });
}

// The whole way from what was read to what is written, at one threshold.
imported_network assemble(const interaction_pool& pool, const std::vector<named_pair>& pairs, const import_plan& plan,
                          double min_confidence, import_account& account,
                          const std::function<void(int done, int all)>& watch) {
    imported_network network = resolve(pool, min_confidence, account.counts);
    add_pairs(network, pairs, plan, account);
    if (!plan.hide.empty()) {
        hide_directions(network, plan.hide, plan.seed);
    }
    import_counts& counts = account.counts;
    counts.proteins_before = static_cast<long>(network.names.size());
    counts.interactions_before = static_cast<long>(network.interactions.size());
    counts.tests_before = count_tests(network);
    counts.is_pruned = plan.prune || network.names.size() > most_proteins;
    if (counts.is_pruned) {
        counts.pairs_without_path = keep_shortest_paths(network, watch);
    }
    return network;
}

std::string counted(std::size_t count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

// Thresholds at tenths of the interactions, closer ones at the end, as many as differ.
[[noreturn]] void fail_for_size(const interaction_pool& pool, const std::vector<named_pair>& pairs,
                                const import_plan& plan, std::size_t num_proteins, const import_watch& watch) {
    std::vector<double> confidences;
    for (const interaction_pool::entry& known : pool.entries()) {
        confidences.push_back(std::max({known.forward, known.backward, known.undirected}));
    }
    std::sort(confidences.begin(), confidences.end());
    std::vector<double> thresholds;
    for (const std::size_t percent : {10, 20, 30, 40, 50, 60, 70, 80, 90, 95, 98, 99}) {
        thresholds.push_back(confidences[percent * confidences.size() / 100]);
    }
    thresholds.push_back(confidences.back());
    thresholds.erase(std::unique(thresholds.begin(), thresholds.end()), thresholds.end());
    thresholds.erase(std::remove(thresholds.begin(), thresholds.end(), confidences.front()), thresholds.end());
    std::string text = std::to_string(num_proteins) + " proteins lie on a shortest path of a pair, and a run takes " +
                       std::to_string(most_proteins) + " at most. ";
    text += thresholds.empty() ? "All confidences are the same, so that no threshold would leave fewer"
                               : "A threshold would leave:";
    import_plan as_planned = plan;
    as_planned.prune = true;
    as_planned.hide.clear();
    for (std::size_t i = 0; i < thresholds.size(); ++i) {
        const double threshold = thresholds[i];
        const auto renew = [&](int, int) {
            watch("too many proteins, trying thresholds", static_cast<int>(i), static_cast<int>(thresholds.size()));
        };
        import_account account;
        const imported_network network = assemble(pool, pairs, as_planned, threshold, account, renew);
        char shown[64];
        std::snprintf(shown, sizeof shown, "%.6g", threshold);
        text += "\n  --min-confidence " + std::string(shown) + ": " + counted(network.names.size(), "protein") + ", " +
                counted(network.interactions.size(), "interaction") + ", " + counted(network.pairs.size(), "pair");
    }
    throw unusable_input(text);
}

// What to do about knockouts none of which is in the network.
std::string hint_at_names(const import_account& account) {
    for (const alike_name& unknown : account.unknown_names) {
        if (unknown.meant.names.size() == 1 && !unknown.is_taken) {
            return "; '" + unknown.name + "' differs from '" + unknown.meant.names[0] + "' in " +
                   describe(unknown.meant.how) + " alone: --match loose would take it";
        }
    }
    const std::vector<alike_name>& unknown = account.unknown_names;
    return unknown.empty() ? "" : "; '" + unknown[0].name + "', for one, is not in it";
}

}  // namespace

import_result import_network(const import_plan& asked, const import_watch& asked_watch) {
    const import_watch watch = asked_watch ? asked_watch : [](const std::string&, int, int) {};
    reading_progress progress(asked, watch);
    import_plan plan = asked;
    plan.interactions.watch =
        plan.knockouts.watch = [&](const std::string& path, std::uint64_t position) { progress.set(path, position); };
    import_result result;
    import_account& account = result.account;
    interaction_pool pool = read_all_interactions(plan, account);
    account.alike_interactors = match_interactors(pool, plan.match_loosely);
    if (pool.entries().empty()) {
        throw unusable_input("no interaction is left of what the files hold");
    }
    const std::vector<named_pair> pairs = read_all_knockouts(plan, account);
    result.network = assemble(pool, pairs, plan, interaction_pool::unsaid, account,
                              [&](int done, int all) { watch("pruning", done, all); });
    imported_network& network = result.network;
    if (network.names.size() > most_proteins) {
        fail_for_size(pool, pairs, plan, network.names.size(), watch);
    }
    if (network.pairs.empty()) {
        throw unusable_input(account.counts.pairs_without_path > 0
                                 ? "no knockout pair has a path in the network"
                                 : "no knockout pair has both names in the network" + hint_at_names(account));
    }
    if (network.names.size() < 4) {
        throw unusable_input("the network has " + counted(network.names.size(), "protein") +
                             "; a run finds all names only where there are 4 or more");
    }
    result.aliases = make_aliases(network.names);
    return result;
}
