#include "export/cx2_style.hpp"

#include <algorithm>

#include "export/palette.hpp"
#include "results/words.hpp"

namespace {

using json = nlohmann::ordered_json;

json by_value(const char* attribute, const json& map) {
    return {{"type", "DISCRETE"}, {"definition", {{"attribute", attribute}, {"map", map}}}};
}

json colour_by_status() {
    json map = json::array();
    for (std::size_t i = 0; i < status_colours.size(); ++i) {
        map.push_back({{"v", results::interaction_status_words[i]}, {"vp", status_colours[i]}});
    }
    return by_value("status", map);
}

json when(const char* attribute, const char* looks) {
    return by_value(attribute, json::array({{{"v", true}, {"vp", looks}}}));
}

// Three ranges, as the format wants them: below, between and above the two ends.
json growing(const char* attribute, double from, double to, double smallest, double largest) {
    const json map = json::array({
        {{"max", from}, {"maxVPValue", smallest}, {"includeMin", false}, {"includeMax", false}},
        {{"min", from},
         {"max", to},
         {"minVPValue", smallest},
         {"maxVPValue", largest},
         {"includeMin", true},
         {"includeMax", true}},
        {{"min", to}, {"minVPValue", largest}, {"includeMin", false}, {"includeMax", false}},
    });
    return {{"type", "CONTINUOUS"}, {"definition", {{"attribute", attribute}, {"map", map}}}};
}

json default_looks() {
    return {{"network", {{"NETWORK_BACKGROUND_COLOR", "#ffffff"}}},
            {"node",
             {{"NODE_SHAPE", "round-rectangle"},
              {"NODE_WIDTH", 64.0},
              {"NODE_HEIGHT", 24.0},
              {"NODE_BACKGROUND_COLOR", "#f4f4f2"},
              {"NODE_BORDER_COLOR", "#8a8a86"},
              {"NODE_BORDER_WIDTH", 1.0},
              {"NODE_LABEL_COLOR", "#1a1a1a"},
              {"NODE_LABEL_FONT_SIZE", 11}}},
            {"edge",
             {{"EDGE_LINE_COLOR", status_colours[0]},
              {"EDGE_LINE_STYLE", "solid"},
              {"EDGE_WIDTH", 1.0},
              {"EDGE_SOURCE_ARROW_SHAPE", "none"},
              {"EDGE_TARGET_ARROW_SHAPE", "none"}}}};
}

}  // namespace

json cx2_style(long max_pairs) {
    const json style = {
        {"default", default_looks()},
        {"nodeMapping", {{"NODE_LABEL", {{"type", "PASSTHROUGH"}, {"definition", {{"attribute", "name"}}}}}}},
        {"edgeMapping",
         {{"EDGE_LINE_COLOR", colour_by_status()},
          {"EDGE_TARGET_ARROW_COLOR", colour_by_status()},
          {"EDGE_TARGET_ARROW_SHAPE", when("is_directed", "triangle")},
          {"EDGE_LINE_STYLE", when("is_test", "dashed")},
          {"EDGE_WIDTH", growing("pairs", 0, static_cast<double>(std::max(max_pairs, 1L)), 1, 6)}}}};
    return json::array({style});
}
