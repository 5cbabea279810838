#include <algorithm>

#include <nlohmann/json.hpp>

#include "checking/check_input.hpp"

namespace {

using json = nlohmann::ordered_json;

template <typename item, typename maker>
json first_of(const std::vector<item>& items, std::size_t shown, const maker& make) {
    json list = json::array();
    for (std::size_t i = 0; i < std::min(items.size(), shown); ++i) {
        list.push_back(make(items[i]));
    }
    return {{"count", items.size()}, {"first", list}};
}

json line_list(const line_numbers& lines, std::size_t shown) {
    json list = json::array();
    for (std::size_t i = 0; i < std::min(lines.size(), shown); ++i) {
        list.push_back(lines[i]);
    }
    return list;
}

json file_of(const file_check& file, std::size_t shown) {
    json dropped = json::array();
    for (const auto& [reason, lines] : file.dropped) {
        dropped.push_back({{"reason", name_of(reason)},
                           {"description", describe(reason)},
                           {"lost", is_loss(reason)},
                           {"count", lines.size()},
                           {"lines", line_list(lines, shown)}});
    }
    json hazards = json::array();
    for (const auto& [what, lines] : file.hazards) {
        hazards.push_back({{"hazard", name_of(what)},
                           {"description", describe(what)},
                           {"count", lines.size()},
                           {"lines", line_list(lines, shown)}});
    }
    return {{"file", file.name},   {"opened", file.opened}, {"lines", file.lines},
            {"taken", file.taken}, {"dropped", dropped},    {"hazards", hazards}};
}

}  // namespace

std::string check_json(const input_check& check, std::size_t shown) {
    json files = json::array();
    for (const file_check& file : check.files) {
        files.push_back(file_of(file, shown));
    }
    const json document = {
        {"clean", check.is_clean()},
        {"lines_lost", check.lines_lost()},
        {"proteins", std::max(check.network.num_searched, 0)},
        {"interactions", check.network.interactions.size()},
        {"pairs", check.network.pairs.size()},
        {"pairs_with_path", check.network.pairs.size() - check.pathless_pairs.size()},
        {"files", files},
        {"unknown_names", first_of(check.unknown_names, shown,
                                   [&](const unknown_name& unknown) -> json {
                                       return {{"name", unknown.name},
                                               {"mentions",
                                                first_of(unknown.mentions, shown,
                                                         [](const mention& where) -> json {
                                                             return {{"file", where.file}, {"line", where.line}};
                                                         })},
                                               {"meant", unknown.meant.names},
                                               {"differs_in", describe(unknown.meant.how)}};
                                   })},
        {"unmentioned_proteins", first_of(check.unmentioned, shown,
                                          [](const unmentioned_protein& protein) -> json {
                                              return {{"name", protein.name}, {"line", protein.line}};
                                          })},
        {"repeated_pairs", first_of(check.repeated_pairs, shown,
                                    [&](const repeated_pair& pair) -> json {
                                        return {{"cause", pair.cause},
                                                {"effect", pair.effect},
                                                {"count", pair.lines.size()},
                                                {"lines", line_list(pair.lines, shown)}};
                                    })},
        {"pairs_without_path", first_of(check.pathless_pairs, shown,
                                        [](const pathless_pair& pair) -> json {
                                            return {{"cause", pair.cause},
                                                    {"effect", pair.effect},
                                                    {"line", pair.line},
                                                    {"why", name_of(pair.why)}};
                                        })},
        {"shared_variables", first_of(check.shared_variables, shown,
                                      [](const shared_variable& shared) -> json {
                                          return {{"variable", shared.variable}, {"arcs", shared.arcs}};
                                      })},
    };
    // Names are bytes; those that are no UTF-8 are shown with the mark for it.
    return document.dump(2, ' ', false, json::error_handler_t::replace) + "\n";
}
