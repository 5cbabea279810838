// The simple interaction format: "A relation B C D" joins A with each of the others; fields
// stand apart by tabs if the line has one, else by blanks; a name alone is a protein without
// interactions.
#include <algorithm>

#include "formats/delimited_text.hpp"
#include "formats/interaction_taker.hpp"

namespace {

// "pd" is the format's own word for protein on DNA, "controls-..." are Pathway Commons'.
bool is_usually_directed(std::string_view relation) {
    constexpr std::string_view words[] = {
        "pd", "->", "directed", "activates", "inhibits", "phosphorylates", "catalysis-precedes"};
    return relation.starts_with("controls-") ||
           std::find(std::begin(words), std::end(words), relation) != std::end(words);
}

}  // namespace

void read_sif(text_source& source, interaction_taker& taker) {
    taker.need_confidence(source, "SIF has none");
    taker.need_organism(source, "SIF has none");
    std::string line;
    while (source.next_line(line)) {
        const char separator = line.find('\t') == std::string::npos ? ' ' : '\t';
        std::vector<std::string_view> fields;
        for (std::string_view rest = line; !rest.empty();) {
            const std::size_t end = rest.find(separator);
            if (const std::string_view field = trimmed(rest.substr(0, end)); !field.empty()) {
                fields.push_back(field);
            }
            rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
        }
        if (fields.size() == 1) {
            taker.drop(source.line_number(), "a protein alone");
        } else if (fields.size() == 2) {
            source.fail("two fields where SIF has a name, a relation and further names");
        }
        for (std::size_t i = 2; i < fields.size(); ++i) {
            const bool is_directed = taker.is_directed(fields[1], is_usually_directed(fields[1]), source.line_number());
            taker.take({.first = fields[0],
                        .second = fields[i],
                        .is_directed = is_directed,
                        .confidence = {},
                        .line = source.line_number()});
        }
    }
}
