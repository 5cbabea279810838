// Tables with a header that databases give to download: OmniPath's interactions, and
// BioGRID's tab 3.
#include "formats/delimited_text.hpp"
#include "formats/interaction_taker.hpp"

namespace {

std::size_t need_column(const delimited_table& table, const std::string& name, const std::string& why) {
    const std::optional<std::size_t> found = table.find(name);
    if (!found) {
        table.source().fail_at(1, "there is no column '" + name + "'" + why + "; there are " + table.list_columns());
    }
    return *found;
}

// A column that holds the confidence only if the user says so: these databases count
// references, or give each experiment's own score.
std::optional<std::size_t> confidence_column(const delimited_table& table, const interaction_taker& taker) {
    const auto asked = taker.options().columns.find("confidence");
    if (asked == taker.options().columns.end()) {
        taker.need_confidence(table.source(),
                              "the format has none of its own; name a column by --columns confidence=...");
        return std::nullopt;
    }
    return need_column(table, asked->second, " for 'confidence'");
}

std::optional<double> confidence_of(const delimited_table& table, std::optional<std::size_t> column,
                                    const std::vector<std::string>& cells) {
    if (!column) {
        return std::nullopt;
    }
    const std::optional<double> number = number_of(cells[*column]);
    if (!number && !is_missing(cells[*column])) {
        table.source().fail_at(table.line(),
                               "field '" + table.header()[*column] + "': '" + cells[*column] + "' is not a number");
    }
    return number;
}

struct name_columns {
    std::size_t first;
    std::size_t second;
};

name_columns omnipath_names(const delimited_table& table, name_kind kind) {
    if (kind == name_kind::symbol && table.find("source_genesymbol") && table.find("target_genesymbol")) {
        return {*table.find("source_genesymbol"), *table.find("target_genesymbol")};
    }
    return {need_column(table, "source", ""), need_column(table, "target", "")};
}

name_columns biogrid_names(const delimited_table& table, name_kind kind) {
    const std::string what = kind == name_kind::symbol ? "Official Symbol"
                             : kind == name_kind::id   ? "BioGRID ID"
                                                       : "Systematic Name";
    return {need_column(table, what + " Interactor A", ""), need_column(table, what + " Interactor B", "")};
}

}  // namespace

void read_omnipath(text_source& source, interaction_taker& taker) {
    delimited_table table(source, true);
    const name_columns names = omnipath_names(table, taker.options().names);
    const std::size_t direction = need_column(table, "is_directed", "");
    const std::optional<std::size_t> confidence = confidence_column(table, taker);
    const std::string& organism = taker.options().organism;
    name_columns taxons{};
    if (!organism.empty()) {
        const std::string why = ", which choosing an organism needs";
        taxons = {need_column(table, "ncbi_tax_id_source", why), need_column(table, "ncbi_tax_id_target", why)};
    }
    std::vector<std::string> cells;
    while (table.next(cells)) {
        if (!organism.empty() && (cells[taxons.first] != organism || cells[taxons.second] != organism)) {
            taker.drop(table.line(), "another organism");
            continue;
        }
        const direction_word word = read_direction(cells[direction]);
        if (word != direction_word::forward && word != direction_word::undirected) {
            source.fail_at(table.line(), "field 'is_directed': '" + cells[direction] + "' is neither 0 nor 1");
        }
        taker.take({.first = cells[names.first],
                    .second = cells[names.second],
                    .is_directed = word == direction_word::forward,
                    .confidence = confidence_of(table, confidence, cells),
                    .line = table.line()});
    }
}

void read_biogrid(text_source& source, interaction_taker& taker) {
    delimited_table table(source, true, false);
    const name_columns names = biogrid_names(table, taker.options().names);
    const std::size_t method = need_column(table, "Experimental System", "");
    const std::size_t method_kind = need_column(table, "Experimental System Type", "");
    const name_columns taxons{need_column(table, "Organism ID Interactor A", ""),
                              need_column(table, "Organism ID Interactor B", "")};
    const std::optional<std::size_t> confidence = confidence_column(table, taker);
    const std::string& organism = taker.options().organism;
    std::vector<std::string> cells;
    while (table.next(cells)) {
        if (!organism.empty() && (cells[taxons.first] != organism || cells[taxons.second] != organism)) {
            taker.drop(table.line(), "another organism");
        } else if (cells[method_kind] != "physical" && !taker.options().with_genetic) {
            taker.drop(table.line(), "a genetic interaction");
        } else {
            // Only where the user names methods: no method has a direction by itself.
            const bool is_directed =
                !taker.options().directed.empty() && taker.is_directed(cells[method], false, table.line());
            taker.take({.first = cells[names.first],
                        .second = cells[names.second],
                        .is_directed = is_directed,
                        .confidence = confidence_of(table, confidence, cells),
                        .line = table.line()});
        }
    }
}
