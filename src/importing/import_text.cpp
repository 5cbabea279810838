#include <algorithm>

#include "importing/import_network.hpp"

namespace {

std::string counted(long count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

std::string describe_tally(const line_tally& tally) {
    std::string text = std::to_string(tally.count) + (tally.first.size() == 1 ? " (line " : " (lines ");
    for (std::size_t i = 0; i < tally.first.size(); ++i) {
        text += (i > 0 ? ", " : "") + std::to_string(tally.first[i]);
    }
    const long more = tally.count - static_cast<long>(tally.first.size());
    return text + (more > 0 ? ", and " + std::to_string(more) + " more)" : ")");
}

void append_source(std::string& text, const source_account& source, const std::string& what) {
    text += source.path + " (" + source.format + "): " + counted(source.rows, what) + ", " +
            std::to_string(source.taken) + " taken\n";
    for (const auto& [reason, tally] : source.dropped) {
        text += "  left out, " + reason + ": " + describe_tally(tally) + "\n";
    }
    for (const auto& [assumption, tally] : source.assumptions) {
        text += "  " + assumption + ": " + describe_tally(tally) + "\n";
    }
}

void append_names(std::string& text, const std::string& heading, const std::vector<alike_name>& names) {
    if (names.empty()) {
        return;
    }
    constexpr std::size_t shown = 10;
    text += heading + ": " + std::to_string(names.size()) + "\n";
    // Those with something to tell first, so that the ten show what could be done.
    std::vector<const alike_name*> order;
    order.reserve(names.size());
    for (const alike_name& name : names) {
        order.push_back(&name);
    }
    std::stable_partition(order.begin(), order.end(),
                          [](const alike_name* name) { return !name->meant.names.empty(); });
    for (std::size_t i = 0; i < std::min(shown, order.size()); ++i) {
        const alike_name& name = *order[i];
        text += "  " + name.name;
        for (std::size_t j = 0; j < std::min<std::size_t>(name.meant.names.size(), 3); ++j) {
            text += (j == 0 ? ": like " : " or ") + name.meant.names[j];
        }
        if (!name.meant.names.empty()) {
            text += std::string(" but for ") + describe(name.meant.how) +
                    (name.is_taken                  ? ", taken for it"
                     : name.meant.names.size() == 1 ? ", not taken (--match loose would)"
                                                    : ", not taken");
        }
        text += "\n";
    }
    if (order.size() > shown) {
        text += "  and " + std::to_string(order.size() - shown) + " more\n";
    }
}

void append_counts(std::string& text, const import_plan& plan, const import_counts& counts) {
    text += "Interactions: " + counted(counts.rows, "row") + " of " +
            counted(counts.interactions_before, "interaction") + " between " +
            counted(counts.proteins_before, "protein") + "\n";
    const struct {
        long count;
        const char* what;
    } rows[] = {
        {counts.repeated, "say what another row says; the highest confidence counts"},
        {counts.overruled, "without direction, of two proteins with a known one, which wins"},
        {counts.both_ways, "times both directions are known, as an interaction each"},
        {counts.pairs_repeated, "rows of knockouts say what another row says"},
        {counts.pairs_unknown, "knockout pairs left out: a name is not in the network"},
        {counts.pairs_same, "knockout pairs left out: both names mean one protein"},
        {counts.named_by_alias, "names of knockouts found by STRING's aliases"},
    };
    for (const auto& [count, what] : rows) {
        if (count > 0) {
            text += "  " + std::to_string(count) + " " + what + "\n";
        }
    }
    text += "Directions known: " + std::to_string(counts.known_directions);
    text += plan.hide.empty() ? "\n" : ", hidden as test interactions: " + std::to_string(counts.tests_before) + "\n";
    if (plan.interactions.min_confidence) {
        text += "Confidence: at least " + std::to_string(*plan.interactions.min_confidence) + "\n";
    }
}

}  // namespace

std::string import_text(const import_plan& plan, const import_result& result) {
    const import_account& account = result.account;
    std::string text;
    for (const source_account& source : account.interaction_sources) {
        append_source(text, source, "row");
    }
    for (const source_account& source : account.knockout_sources) {
        append_source(text, source, "pair");
    }
    append_counts(text, plan, account.counts);
    append_names(text, "Interactors that another file spells otherwise", account.alike_interactors);
    append_names(text, "Names of knockouts that the network has not as they stand", account.unknown_names);
    const imported_network& network = result.network;
    if (account.counts.is_pruned) {
        const long tests = std::count_if(network.interactions.begin(), network.interactions.end(),
                                         [](const auto& found) { return found.what == imported_network::kind::test; });
        text += "Left out, as they lie on no shortest path of a pair: " +
                counted(account.counts.proteins_before - static_cast<long>(network.names.size()), "protein") + ", " +
                counted(account.counts.interactions_before - static_cast<long>(network.interactions.size()),
                        "interaction") +
                " (" + counted(account.counts.tests_before - tests, "test interaction") +
                "); pairs without a path: " + std::to_string(account.counts.pairs_without_path) + "\n";
    }
    if (!result.aliases.empty()) {
        text += "Names that the files cannot hold, see aliases.tsv: " + std::to_string(result.aliases.size()) + "\n";
    }
    return text + "Written: " + counted(static_cast<long>(network.names.size()), "protein") + ", " +
           counted(static_cast<long>(network.interactions.size()), "interaction") + ", " +
           counted(static_cast<long>(network.pairs.size()), "knockout pair") + "\n";
}
