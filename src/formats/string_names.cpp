#include "formats/string_names.hpp"

#include <algorithm>
#include <climits>

#include "formats/delimited_text.hpp"

namespace {

// The lower the better: sources of gene symbols, then of their copies.
int rank_of(std::string_view sources, const std::string& wanted) {
    constexpr std::string_view best[] = {"Ensembl_HGNC_symbol", "BioMart_HUGO",          "HGNC_symbol",
                                         "UniProt_GN_Name",     "BLAST_UniProt_GN_Name", "KEGG_NAME"};
    int rank = INT_MAX;
    // Older files join the sources of a name by blanks.
    for (std::string_view rest = sources; !rest.empty();) {
        const std::string_view source = rest.substr(0, rest.find(' '));
        rest.remove_prefix(std::min(source.size() + 1, rest.size()));
        if (!wanted.empty()) {
            rank = source == wanted || sources == wanted ? 0 : rank;
        } else if (const auto found = std::find(std::begin(best), std::end(best), source); found != std::end(best)) {
            rank = std::min(rank, static_cast<int>(found - std::begin(best)));
        }
    }
    return rank;
}

// Hands on the cells of each row: protein, name, and source or whatever stands third.
template <typename taker>
void for_each_name(const std::string& path, const reading_watch& watch, const taker& take) {
    text_source source(path, watch);
    delimited_rows rows(source, {.separator = '\t', .has_quotes = false});
    std::vector<std::string> cells;
    bool is_info = false;
    while (rows.next(cells)) {
        if (cells[0].starts_with('#') || cells[0] == "string_protein_id") {
            is_info = cells.size() > 1 && cells[1].find("preferred_name") != std::string::npos;
            continue;
        }
        if (cells.size() < (is_info ? 2u : 3u)) {
            source.fail_at(rows.line(), std::to_string(cells.size()) +
                                            " cells where a file of STRING's names has a protein, a name and a source");
        }
        take(cells, is_info);
    }
}

}  // namespace

string_names read_string_names(const std::vector<std::string>& paths, const std::string& alias_source,
                               const reading_watch& watch) {
    struct choice {
        std::string name;
        int rank;
    };
    std::unordered_map<std::string, choice> chosen;
    for (const std::string& path : paths) {
        for_each_name(path, watch, [&](const std::vector<std::string>& cells, bool is_info) {
            const int rank = is_info ? -1 : rank_of(cells[2], alias_source);
            if (rank == INT_MAX) {
                return;
            }
            const auto [place, is_new] = chosen.emplace(cells[0], choice{cells[1], rank});
            choice& known = place->second;
            if (!is_new && (rank < known.rank || (rank == known.rank && cells[1] < known.name))) {
                known = {cells[1], rank};
            }
        });
    }
    string_names names;
    for (auto& [protein, best] : chosen) {
        names.emplace(protein, std::move(best.name));
    }
    return names;
}

std::unordered_map<std::string, std::vector<std::string>> find_string_proteins(
    const std::vector<std::string>& paths, const std::unordered_set<std::string>& wanted, const reading_watch& watch) {
    std::unordered_map<std::string, std::vector<std::string>> proteins;
    for (const std::string& path : paths) {
        for_each_name(path, watch, [&](const std::vector<std::string>& cells, bool) {
            if (wanted.contains(cells[1])) {
                proteins[cells[1]].push_back(cells[0]);
            }
        });
    }
    for (auto& [name, found] : proteins) {
        std::sort(found.begin(), found.end());
        found.erase(std::unique(found.begin(), found.end()), found.end());
    }
    return proteins;
}

std::string without_taxon(const std::string& id) {
    const std::size_t dot = id.find('.');
    const bool is_taxon = dot != std::string::npos && dot > 0 && id.find_first_not_of("0123456789") == dot;
    return is_taxon ? id.substr(dot + 1) : id;
}
