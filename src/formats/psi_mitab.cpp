// PSI-MITAB 2.5, 2.6, 2.7 and 2.8 of the Proteomics Standards Initiative: 15, 36, 42 or 46
// columns, in which items "database:value(text)" are joined by "|", value and text perhaps
// in double quotes.
#include <algorithm>

#include "formats/delimited_text.hpp"
#include "formats/interaction_taker.hpp"

namespace {

// Columns from 0; those of B follow those of A.
constexpr std::size_t id_a = 0;
constexpr std::size_t alternative_a = 2;
constexpr std::size_t alias_a = 4;
constexpr std::size_t taxon_a = 9;
constexpr std::size_t confidence = 14;
constexpr std::size_t role_a = 16;
constexpr std::size_t negative = 35;
constexpr std::size_t causal_statement = 45;

struct item {
    std::string database;
    std::string value;
    std::string text;
};

// Takes what stands up to one of these characters outside of quotes; quotes go.
std::string take_until(std::string_view& rest, std::string_view ends) {
    std::string taken;
    bool is_quoted = false;
    std::size_t i = 0;
    for (; i < rest.size() && (is_quoted || ends.find(rest[i]) == std::string_view::npos); ++i) {
        if (rest[i] == '\\' && i + 1 < rest.size()) {
            taken += rest[++i];
        } else if (rest[i] == '"') {
            is_quoted = !is_quoted;
        } else {
            taken += rest[i];
        }
    }
    rest.remove_prefix(i);
    return taken;
}

std::vector<item> items_of(std::string_view cell) {
    std::vector<item> items;
    while (!cell.empty()) {
        item next;
        next.database = take_until(cell, ":|");
        if (cell.starts_with(':')) {
            cell.remove_prefix(1);
            next.value = take_until(cell, "(|");
            if (cell.starts_with('(')) {
                cell.remove_prefix(1);
                next.text = take_until(cell, "|");
                if (next.text.ends_with(')')) {
                    next.text.pop_back();
                }
            }
        }
        if (cell.starts_with('|')) {
            cell.remove_prefix(1);
        }
        items.push_back(std::move(next));
    }
    return items;
}

std::string value_with_text(const std::vector<item>& items, std::initializer_list<const char*> texts) {
    for (const char* text : texts) {
        for (const item& found : items) {
            if (found.text == text) {
                return found.value;
            }
        }
    }
    return {};
}

// Of the interactor whose columns are `side` (0: A, 1: B) behind those of A.
std::string name_of(const std::vector<std::string>& cells, std::size_t side, name_kind kind) {
    const std::vector<item> ids = items_of(cells[id_a + side]);
    if (ids.empty() || cells[id_a + side] == "-") {
        return "-";
    }
    std::vector<item> others = items_of(cells[alias_a + side]);
    const std::vector<item> alternatives = items_of(cells[alternative_a + side]);
    others.insert(others.end(), alternatives.begin(), alternatives.end());
    std::string name;
    if (kind == name_kind::symbol) {
        name = value_with_text(others, {"gene name", "display_short"});
        // BioGRID's files have the symbol first of the Entrez names.
        for (const item& other : alternatives) {
            if (name.empty() && other.database == "entrez gene/locuslink") {
                name = other.value;
            }
        }
    } else if (kind == name_kind::systematic) {
        name = value_with_text(others, {"locus name", "orf name", "ordered locus name", "ordered locus"});
    }
    return name.empty() ? ids[0].value : name;
}

// The measure asked for, or one of those that combine the evidence, or else the first number.
std::optional<double> confidence_of(const std::string& cell, const interaction_options& options) {
    const auto asked = options.columns.find("confidence");
    const std::vector<item> items = items_of(cell);
    std::vector<std::string> measures{"intact-miscore", "mint-score", "mentha-score"};
    if (asked != options.columns.end()) {
        measures = {asked->second};
    }
    for (const std::string& measure : measures) {
        for (const item& found : items) {
            if (found.database == measure && number_of(found.value)) {
                return number_of(found.value);
            }
        }
    }
    if (asked == options.columns.end()) {
        for (const item& found : items) {
            if (number_of(found.value)) {
                return number_of(found.value);
            }
        }
    }
    return std::nullopt;
}

bool has_taxon(const std::string& cell, const std::string& organism) {
    const std::vector<item> items = items_of(cell);
    return std::any_of(items.begin(), items.end(), [&](const item& found) { return found.value == organism; });
}

bool has_role(const std::string& cell, std::initializer_list<const char*> roles) {
    const std::vector<item> items = items_of(cell);
    return std::any_of(items.begin(), items.end(), [&](const item& found) {
        return std::find(roles.begin(), roles.end(), found.text) != roles.end();
    });
}

// An enzyme acts on its target and a regulator on its own. A causal statement says that
// there is a direction, and the roles which; without roles it is from A to B.
direction_word direction_of(const std::vector<std::string>& cells) {
    if (cells.size() <= role_a + 1) {
        return direction_word::undirected;
    }
    const auto acts_on = [&](std::size_t actor, std::size_t target) {
        return has_role(cells[actor], {"enzyme", "regulator"}) &&
               has_role(cells[target], {"enzyme target", "regulator target"});
    };
    if (acts_on(role_a, role_a + 1)) {
        return direction_word::forward;
    }
    if (acts_on(role_a + 1, role_a)) {
        return direction_word::backward;
    }
    const bool is_causal = cells.size() > causal_statement && !is_missing(cells[causal_statement]);
    return is_causal ? direction_word::forward : direction_word::undirected;
}

bool is_header(const std::vector<std::string>& cells) {
    return cells[0].starts_with('#') || cells[0].starts_with("ID(s) ") || cells[0].starts_with("ID(s)_");
}

}  // namespace

void read_psi_mitab(text_source& source, interaction_taker& taker) {
    constexpr std::size_t known_widths[] = {15, 36, 42, 46};
    delimited_rows rows(source, {.separator = '\t', .has_quotes = false});
    std::vector<std::string> cells;
    while (rows.next(cells)) {
        const long line = rows.line();
        if (is_header(cells)) {
            continue;
        }
        if (std::find(std::begin(known_widths), std::end(known_widths), cells.size()) == std::end(known_widths)) {
            source.fail_at(line, std::to_string(cells.size()) + " columns where PSI-MITAB has 15, 36, 42 or 46");
        }
        const std::string& organism = taker.options().organism;
        if (cells.size() > negative && cells[negative] == "true") {
            taker.drop(line, "negative: found not to interact");
        } else if (!organism.empty() &&
                   !(has_taxon(cells[taxon_a], organism) && has_taxon(cells[taxon_a + 1], organism))) {
            taker.drop(line, "another organism");
        } else {
            std::string first = name_of(cells, 0, taker.options().names);
            std::string second = name_of(cells, 1, taker.options().names);
            const direction_word direction = direction_of(cells);
            if (direction == direction_word::backward) {
                std::swap(first, second);
            }
            taker.take({.first = first,
                        .second = second,
                        .is_directed = direction != direction_word::undirected,
                        .confidence = confidence_of(cells[confidence], taker.options()),
                        .line = line});
        }
    }
}
