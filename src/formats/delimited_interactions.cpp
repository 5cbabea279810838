// Tables with a column for each of the two proteins, and perhaps for direction and
// confidence. SPRAS's tables come with their header and without.
#include "formats/delimited_text.hpp"
#include "formats/interaction_taker.hpp"

namespace {

struct columns {
    std::size_t first;
    std::size_t second;
    std::optional<std::size_t> direction;
    std::optional<std::size_t> relation;  // only where there is no direction
    std::optional<std::size_t> confidence;
};

// Four columns of which the third is a weight and the fourth D or U.
bool is_spras_without_header(text_source& source) {
    const std::vector<std::string> line = source.peek(1);
    if (line.empty()) {
        return false;
    }
    std::vector<std::string_view> cells;
    for (std::string_view rest = line[0];; rest.remove_prefix(rest.find('\t') + 1)) {
        cells.push_back(rest.substr(0, rest.find('\t')));
        if (rest.find('\t') == std::string_view::npos) {
            break;
        }
    }
    return cells.size() == 4 && number_of(cells[2]) && (cells[3] == "D" || cells[3] == "U");
}

// Columns that are asked for by their numbers belong to a table without a header.
bool asks_for_numbers(const std::map<std::string, std::string>& asked) {
    const auto first = asked.find("first");
    return first != asked.end() && first->second.find_first_not_of("0123456789") == std::string::npos;
}

columns find_columns(const delimited_table& table, const interaction_options& options) {
    const std::optional<std::size_t> first = table.find_asked(
        options.columns, "first",
        {"first", "source", "from", "interactor1", "interactora", "protein1", "proteina", "gene1", "genea", "node1",
         "nodea", "symbol1", "symbola", "sourcegenesymbol", "sourcename", "tail", "a"});
    const std::optional<std::size_t> second = table.find_asked(
        options.columns, "second",
        {"second", "target", "to", "interactor2", "interactorb", "protein2", "proteinb", "gene2", "geneb", "node2",
         "nodeb", "symbol2", "symbolb", "targetgenesymbol", "targetname", "head", "b"});
    if (!first || !second) {
        table.source().fail_at(
            1, "no column is known to name the " + std::string(first ? "second" : "first") +
                   " protein; name them by --columns first=...,second=..., or by numbers where there is no header. "
                   "There are " +
                   table.list_columns());
    }
    columns found{*first, *second, {}, {}, {}};
    found.direction =
        table.find_asked(options.columns, "direction", {"direction", "directed", "isdirected", "orientation"});
    if (!found.direction) {
        found.relation =
            table.find_like({"interaction", "relation", "relationship", "interactiontype", "edgetype", "type"});
    }
    found.confidence = table.find_asked(
        options.columns, "confidence",
        {"confidence", "weight", "score", "combinedscore", "confidencescore", "probability", "edgeweight"});
    return found;
}

direction_word direction_of(const delimited_table& table, const columns& found, const std::vector<std::string>& cells,
                            interaction_taker& taker) {
    const long line = table.line();
    if (found.direction) {
        const std::string& cell = cells[*found.direction];
        if (!taker.options().directed.empty()) {
            return taker.is_directed(trimmed(cell), false, line) ? direction_word::forward : direction_word::undirected;
        }
        const direction_word word = read_direction(cell);
        if (word == direction_word::unknown) {
            table.source().fail_at(
                line, "field '" + (table.header().empty() ? "direction" : table.header()[*found.direction]) + "': '" +
                          cell + "' says neither directed nor undirected; --directed names the words that do");
        }
        return word;
    }
    const bool by_default = taker.options().is_directed_by_default;
    if (found.relation) {
        const std::string& cell = cells[*found.relation];
        return taker.is_directed(trimmed(cell), by_default || cell == "pd", line) ? direction_word::forward
                                                                                  : direction_word::undirected;
    }
    taker.assume(line,
                 by_default ? "no direction given, taken as directed" : "no direction given, taken as undirected");
    return by_default ? direction_word::forward : direction_word::undirected;
}

std::optional<double> confidence_of(const delimited_table& table, std::size_t column, const std::string& cell) {
    const std::optional<double> number = number_of(cell);
    if (!number && !is_missing(cell)) {
        table.source().fail_at(table.line(), "field '" +
                                                 (table.header().empty() ? "confidence" : table.header()[column]) +
                                                 "': '" + cell + "' is not a number");
    }
    return number;
}

}  // namespace

void read_delimited(text_source& source, interaction_taker& taker) {
    taker.need_organism(source, "a table has none");
    const bool is_spras = taker.options().columns.empty() && is_spras_without_header(source);
    const bool by_numbers = asks_for_numbers(taker.options().columns);
    delimited_table table(source, !is_spras && !by_numbers);
    const columns found = is_spras ? columns{0, 1, 3, {}, 2} : find_columns(table, taker.options());
    if (!found.confidence) {
        taker.need_confidence(source, "no column is known to hold one; name it by --columns confidence=...");
    }
    std::vector<std::string> cells;
    while (table.next(cells)) {
        const std::size_t last =
            std::max({found.first, found.second, found.direction.value_or(0), found.confidence.value_or(0)});
        if (last >= cells.size()) {
            source.fail_at(table.line(), "there is no column " + std::to_string(last + 1));
        }
        interaction_row row{.first = trimmed(cells[found.first]),
                            .second = trimmed(cells[found.second]),
                            .is_directed = false,
                            .confidence = {},
                            .line = table.line()};
        if (found.confidence) {
            row.confidence = confidence_of(table, *found.confidence, cells[*found.confidence]);
        }
        const direction_word direction = direction_of(table, found, cells, taker);
        row.is_directed = direction != direction_word::undirected;
        if (direction != direction_word::backward) {
            taker.take(row);
        }
        if (direction == direction_word::backward || direction == direction_word::both) {
            std::swap(row.first, row.second);
            taker.take(row);
        }
    }
}
