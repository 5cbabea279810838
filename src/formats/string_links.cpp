// STRING's links: proteins by its own identifiers, organism first, and scores from 0 to
// 1000, which become confidences from 0 to 1. Each link stands in both orders.
#include "formats/delimited_text.hpp"
#include "formats/interaction_taker.hpp"
#include "formats/string_names.hpp"
#include "tables/unusable_input.hpp"

void read_string_links(text_source& source, interaction_taker& taker) {
    const interaction_options& options = taker.options();
    if (options.min_confidence && *options.min_confidence > 1) {
        throw unusable_input(source.path() + ": STRING's scores are read as 0 to 1: a minimum of 700 is 0.7");
    }
    const string_names names = read_string_names(options.aliases, options.alias_source, options.watch);
    delimited_table table(source, true, false);
    const std::optional<std::size_t> first = table.find("protein1");
    const std::optional<std::size_t> second = table.find("protein2");
    const auto asked = options.columns.find("confidence");
    const std::string score_name = asked == options.columns.end() ? "combined_score" : asked->second;
    const std::optional<std::size_t> score = table.find(score_name);
    if (!first || !second || !score) {
        source.fail_at(
            1, "STRING's links have protein1, protein2 and " + score_name + "; here are " + table.list_columns());
    }
    const auto name_of = [&](const std::string& id) {
        const auto found = names.find(id);
        return found == names.end() || options.names == name_kind::id ? without_taxon(id) : found->second;
    };
    const std::string taxon = options.organism + ".";
    std::vector<std::string> cells;
    while (table.next(cells)) {
        if (!options.organism.empty() && !(cells[*first].starts_with(taxon) && cells[*second].starts_with(taxon))) {
            taker.drop(table.line(), "another organism");
            continue;
        }
        const std::optional<double> number = number_of(cells[*score]);
        if (!number) {
            source.fail_at(table.line(), "field '" + score_name + "': '" + cells[*score] + "' is not a number");
        }
        for (const std::size_t column : {*first, *second}) {
            if (!options.aliases.empty() && !names.contains(cells[column])) {
                taker.assume(table.line(), "a protein without a name in the files of names keeps its identifier");
            }
        }
        const std::string first_name = name_of(cells[*first]);
        const std::string second_name = name_of(cells[*second]);
        taker.take({.first = first_name,
                    .second = second_name,
                    .is_directed = false,
                    .confidence = *number / 1000,
                    .line = table.line()});
    }
}
