#include <nlohmann/json.hpp>

#include "importing/import_network.hpp"

namespace {

using json = nlohmann::ordered_json;

json tallies(const std::map<std::string, line_tally>& found) {
    json list = json::array();
    for (const auto& [reason, tally] : found) {
        list.push_back({{"reason", reason}, {"count", tally.count}, {"first_lines", tally.first}});
    }
    return list;
}

json source_of(const source_account& source, const char* kind) {
    return {{"kind", kind},
            {"path", source.path},
            {"sha256", source.sha256},
            {"format", source.format},
            {"rows", source.rows},
            {"taken", source.taken},
            {"left_out", tallies(source.dropped)},
            {"assumptions", tallies(source.assumptions)}};
}

json sources_of(const import_account& account) {
    json sources = json::array();
    for (const source_account& source : account.interaction_sources) {
        sources.push_back(source_of(source, "interactions"));
    }
    for (const source_account& source : account.knockout_sources) {
        sources.push_back(source_of(source, "knockouts"));
    }
    for (const auto& [path, digest] : account.name_sources) {
        sources.push_back({{"kind", "names"}, {"path", path}, {"sha256", digest}});
    }
    return sources;
}

json choices_of(const import_plan& plan) {
    const interaction_options& interactions = plan.interactions;
    constexpr const char* kinds[] = {"symbol", "id", "systematic"};
    json conditions = json::array();
    for (const condition& threshold : plan.knockouts.conditions) {
        conditions.push_back(threshold.text);
    }
    return {{"format", interactions.format.empty() ? json(nullptr) : json(interactions.format)},
            {"columns", interactions.columns},
            {"names", kinds[static_cast<int>(interactions.names)]},
            {"min_confidence", interactions.min_confidence ? json(*interactions.min_confidence) : json(nullptr)},
            {"organism", interactions.organism.empty() ? json(nullptr) : json(interactions.organism)},
            {"directed", interactions.directed},
            {"directed_by_default", interactions.is_directed_by_default},
            {"with_genetic", interactions.with_genetic},
            {"alias_source", interactions.alias_source.empty() ? json(nullptr) : json(interactions.alias_source)},
            {"knockout_format", plan.knockouts.format.empty() ? "delimited" : plan.knockouts.format},
            {"knockout_columns", plan.knockouts.columns},
            {"where", conditions},
            {"match", plan.match_loosely ? "loose" : "exact"},
            {"prune", plan.prune},
            {"hide", plan.hide.empty() ? json(nullptr) : json(plan.hide)},
            {"seed", plan.seed}};
}

json names_of(const std::vector<alike_name>& names) {
    json list = json::array();
    for (const alike_name& name : names) {
        json entry = {{"name", name.name}, {"like", name.meant.names}};
        if (!name.meant.names.empty()) {
            entry["differs_in"] = describe(name.meant.how);
        }
        entry["taken"] = name.is_taken;
        list.push_back(entry);
    }
    return list;
}

json counts_of(const import_result& result) {
    const import_counts& counts = result.account.counts;
    long by_kind[3] = {0, 0, 0};
    for (const imported_network::interaction& found : result.network.interactions) {
        ++by_kind[static_cast<int>(found.what)];
    }
    return {{"rows", counts.rows},
            {"repeated", counts.repeated},
            {"overruled_by_direction", counts.overruled},
            {"both_directions_known", counts.both_ways},
            {"known_directions", counts.known_directions},
            {"pair_rows", counts.pair_rows},
            {"pairs_repeated", counts.pairs_repeated},
            {"pairs_with_unknown_name", counts.pairs_unknown},
            {"pairs_of_one_protein", counts.pairs_same},
            {"named_by_alias", counts.named_by_alias},
            {"pruned", counts.is_pruned},
            {"proteins_before_pruning", counts.proteins_before},
            {"interactions_before_pruning", counts.interactions_before},
            {"test_before_pruning", counts.tests_before},
            {"pairs_without_path", counts.pairs_without_path},
            {"proteins", result.network.names.size()},
            {"test", by_kind[0]},
            {"directed", by_kind[1]},
            {"undirected", by_kind[2]},
            {"pairs", result.network.pairs.size()},
            {"aliases", result.aliases.size()}};
}

}  // namespace

std::string import_json(const import_plan& plan, const import_result& result, const std::string& version) {
    const json document = {{"program", "netorient-tools"},
                           {"version", version},
                           {"sources", sources_of(result.account)},
                           {"choices", choices_of(plan)},
                           {"counts", counts_of(result)},
                           {"alike_interactors", names_of(result.account.alike_interactors)},
                           {"unknown_knockout_names", names_of(result.account.unknown_names)}};
    return document.dump(2, ' ', false, json::error_handler_t::replace) + "\n";
}
