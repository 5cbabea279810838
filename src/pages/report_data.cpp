#include "pages/report_page.hpp"
#include "results/words.hpp"

namespace {

using json = nlohmann::ordered_json;

// One array per column: a third of the size of one object per row, and read faster.
template <class row, class read>
json column(const std::vector<row>& rows, const read& value) {
    json cells = json::array();
    for (const row& one : rows) {
        cells.push_back(value(one));
    }
    return cells;
}

long or_none(const auto& number) {
    return number ? static_cast<long>(*number) : -1;
}

json interaction_columns(const std::vector<results::interaction_row>& rows) {
    using row = results::interaction_row;
    return {{"first", column(rows, [](const row& one) { return one.first; })},
            {"second", column(rows, [](const row& one) { return one.second; })},
            {"file", column(rows, [](const row& one) { return static_cast<int>(one.file); })},
            {"line", column(rows, [](const row& one) { return one.line; })},
            {"confidence", column(rows, [](const row& one) { return one.confidence; })},
            {"direction", column(rows, [](const row& one) { return static_cast<int>(one.chosen); })},
            {"pairs", column(rows, [](const row& one) { return one.num_pairs; })},
            {"regret_min", column(rows, [](const row& one) { return or_none(one.regret.min); })},
            {"regret_max", column(rows, [](const row& one) { return or_none(one.regret.max); })},
            {"status", column(rows, [](const row& one) { return static_cast<int>(one.status); })}};
}

json pair_columns(const std::vector<results::pair_row>& rows) {
    using row = results::pair_row;
    const auto against = [](const row& one) {
        json proteins = json::array();  // cause, effect, cause, effect
        for (const auto& [cause, effect] : one.against) {
            proteins.push_back(cause);
            proteins.push_back(effect);
        }
        return proteins;
    };
    return {{"cause", column(rows, [](const row& one) { return one.cause; })},
            {"effect", column(rows, [](const row& one) { return one.effect; })},
            {"line", column(rows, [](const row& one) { return one.line; })},
            {"status", column(rows, [](const row& one) { return static_cast<int>(one.status); })},
            {"why", column(rows, [](const row& one) { return one.why; })},
            {"distance", column(rows, [](const row& one) { return or_none(one.distance); })},
            {"num_paths", column(rows, [](const row& one) { return one.num_paths; })},
            {"num_open_paths", column(rows, [](const row& one) { return one.num_open_paths; })},
            {"path", column(rows, [](const row& one) { return one.path; })},
            {"price_min", column(rows, [](const row& one) { return or_none(one.price.min); })},
            {"price_max", column(rows, [](const row& one) { return or_none(one.price.max); })},
            {"against", column(rows, against)},
            {"more_against", column(rows, [](const row& one) { return one.more_against; })}};
}

}  // namespace

std::string report_data(const results::answer& answer, const report_extras& extras) {
    const json data = {
        {"words",
         {{"file", results::file_words},
          {"direction", results::direction_words},
          {"interaction_status", results::interaction_status_words},
          {"pair_status", results::pair_status_words}}},
        {"proteins", column(answer.proteins, [](const results::protein_record& one) { return one.name; })},
        {"interactions", interaction_columns(answer.interactions)},
        {"pairs", pair_columns(answer.pairs)},
        {"run", extras.run},
        {"evaluation", extras.evaluation},
        {"check", extras.check}};
    // "<" stands in texts only, and none of them may end the element that holds the data.
    std::string text;
    for (const char c : data.dump(-1, ' ', false, json::error_handler_t::replace)) {
        if (c == '<') {
            text += "\\u003c";
        } else {
            text += c;
        }
    }
    return text;
}
