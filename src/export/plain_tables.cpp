// The two formats that are lines of cells.
#include <set>

#include "export/attributes.hpp"
#include "export/formats.hpp"
#include "tables/table_text.hpp"

namespace {

std::string number_cell(const std::optional<long>& number) {
    return number ? std::to_string(*number) : std::string();
}

}  // namespace

std::string sif_text(const results::answer& answer, const subnetwork& network) {
    std::string text;
    std::set<std::size_t> joined;
    for (const std::size_t i : network.interactions) {
        const results::interaction_row& interaction = answer.interactions[i];
        const auto [source, target] = drawn_ends(interaction);
        append_row(text,
                   {answer.proteins[source].name, results::word(interaction.status), answer.proteins[target].name});
        joined.insert({source, target});
    }
    for (const std::size_t protein : network.proteins) {
        if (!joined.contains(protein)) {
            append_row(text, {answer.proteins[protein].name});
        }
    }
    return text;
}

std::string tsv_text(const results::answer& answer, const subnetwork& network) {
    std::string text;
    append_row(text, {"source", "target", "first", "second", "file", "line", "confidence", "direction", "pairs",
                      "regret_min", "regret_max", "status"});
    for (const std::size_t i : network.interactions) {
        const results::interaction_row& row = answer.interactions[i];
        const auto [source, target] = drawn_ends(row);
        append_row(text, {answer.proteins[source].name, answer.proteins[target].name, answer.proteins[row.first].name,
                          answer.proteins[row.second].name, results::word(row.file), std::to_string(row.line),
                          row.confidence, results::word(row.chosen), std::to_string(row.num_pairs),
                          number_cell(row.regret.min), number_cell(row.regret.max), results::word(row.status)});
    }
    return text;
}
