#include "answer/answer_tables.hpp"

#include <charconv>

#include "answer/shortest_paths.hpp"
#include "tables/table_text.hpp"

namespace {

// The shortest text that reads back as the same number.
std::string shown(double number) {
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, number).ptr};
}

std::string shown_count(std::uint64_t paths) {
    return paths > most_paths_counted ? ">1e15" : std::to_string(paths);
}

std::string lower_end(const std::optional<solver::proven_range>& range) {
    return range ? std::to_string(range->lower) : "";
}

std::string upper_end(const std::optional<solver::proven_range>& range) {
    return range ? std::to_string(range->upper) : "";
}

}  // namespace

std::string interactions_table(const std::vector<interaction_row>& rows) {
    std::string text;
    append_row(text, {"first", "second", "file", "line", "confidence", "direction", "pairs", "regret_min", "regret_max",
                      "status"});
    for (const interaction_row& row : rows) {
        append_row(text, {row.first, row.second, name_of(row.file), std::to_string(row.line), shown(row.confidence),
                          direction_names.at(static_cast<std::size_t>(row.direction)), std::to_string(row.pairs),
                          lower_end(row.regret), upper_end(row.regret),
                          interaction_status_names.at(static_cast<std::size_t>(row.status))});
    }
    return text;
}

std::string pairs_table(const std::vector<pair_row>& rows) {
    std::string text;
    append_row(text, {"cause", "effect", "line", "status", "why", "distance", "paths", "open_paths", "path",
                      "price_min", "price_max", "against"});
    for (const pair_row& row : rows) {
        const bool has_paths = row.distance >= 0;
        append_row(text, {row.cause, row.effect, std::to_string(row.line),
                          pair_status_names.at(static_cast<std::size_t>(row.status)), row.why,
                          has_paths ? std::to_string(row.distance) : "", has_paths ? shown_count(row.paths) : "",
                          has_paths ? shown_count(row.open_paths) : "", path_cell(row.path), lower_end(row.price),
                          upper_end(row.price), pair_list_cell(row.against)});
    }
    return text;
}
