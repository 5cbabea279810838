#include "importing/match_names.hpp"

#include <algorithm>
#include <set>
#include <unordered_set>

#include "formats/string_names.hpp"

std::vector<alike_name> match_interactors(interaction_pool& pool, bool take) {
    std::map<std::string, std::vector<int>> groups;
    for (std::size_t i = 0; i < pool.names().size(); ++i) {
        groups[alike_key(pool.names()[i], likeness::version)].push_back(static_cast<int>(i));
    }
    std::vector<alike_name> alike;
    std::vector<std::string> new_names = pool.names();
    for (const auto& [key, members] : groups) {
        // A file that has two of the names means two proteins.
        std::set<int> sources;
        bool is_told_apart = members.size() < 2;
        for (const int member : members) {
            for (const int source : pool.sources_of(member)) {
                is_told_apart = !sources.insert(source).second || is_told_apart;
            }
        }
        if (is_told_apart) {
            continue;
        }
        const int kept = *std::min_element(members.begin(), members.end(), [&](int left, int right) {
            return pool.sources_of(left) < pool.sources_of(right);
        });
        const std::string& kept_name = pool.names()[static_cast<std::size_t>(kept)];
        const name_matcher matcher({kept_name});
        for (const int member : members) {
            if (member != kept) {
                std::string& name = new_names[static_cast<std::size_t>(member)];
                alike.push_back({.name = name, .meant = matcher.closest(name, likeness::version), .is_taken = take});
                name = kept_name;
            }
        }
    }
    if (take && !alike.empty()) {
        pool = pool.renamed(new_names);
    }
    std::sort(alike.begin(), alike.end(),
              [](const alike_name& left, const alike_name& right) { return left.name < right.name; });
    return alike;
}

namespace {

// For names that the network has not: the one protein that bears each as an alias.
std::map<std::string, std::string> names_by_alias(const std::vector<std::string>& unknown,
                                                  const std::vector<std::string>& network, const import_plan& plan) {
    std::map<std::string, std::string> found;
    const interaction_options& options = plan.interactions;
    if (options.aliases.empty() || unknown.empty()) {
        return found;
    }
    const std::unordered_set<std::string> in_network(network.begin(), network.end());
    const string_names names = read_string_names(options.aliases, options.alias_source, options.watch);
    const auto proteins = find_string_proteins(options.aliases, {unknown.begin(), unknown.end()}, options.watch);
    for (const auto& [name, ids] : proteins) {
        std::set<std::string> meant;
        for (const std::string& id : ids) {
            const auto chosen = names.find(id);
            const std::string network_name =
                chosen == names.end() || options.names == name_kind::id ? without_taxon(id) : chosen->second;
            if (in_network.contains(network_name)) {
                meant.insert(network_name);
            }
        }
        if (meant.size() == 1) {
            found.emplace(name, *meant.begin());
        }
    }
    return found;
}

}  // namespace

knockout_names match_knockouts(const std::vector<named_pair>& pairs, const std::vector<std::string>& network,
                               const import_plan& plan) {
    const std::unordered_set<std::string> in_network(network.begin(), network.end());
    std::set<std::string> names;
    for (const named_pair& pair : pairs) {
        names.insert(pair.cause);
        names.insert(pair.effect);
    }
    knockout_names result;
    std::vector<std::string> unknown;
    for (const std::string& name : names) {
        if (in_network.contains(name)) {
            result.in_network.emplace(name, name);
        } else {
            unknown.push_back(name);
        }
    }
    const std::map<std::string, std::string> by_alias = names_by_alias(unknown, network, plan);
    result.named_by_alias = static_cast<long>(by_alias.size());
    result.in_network.insert(by_alias.begin(), by_alias.end());
    const name_matcher matcher(network);
    for (const std::string& name : unknown) {
        if (by_alias.contains(name)) {
            continue;
        }
        alike_name told{.name = name, .meant = matcher.closest(name, likeness::version), .is_taken = false};
        told.is_taken = plan.match_loosely && told.meant.names.size() == 1;
        if (told.is_taken) {
            result.in_network.emplace(name, told.meant.names[0]);
        }
        result.unlike.push_back(std::move(told));
    }
    return result;
}
