#include <algorithm>
#include <array>

#include "export/attributes.hpp"
#include "export/cx2_style.hpp"
#include "export/formats.hpp"

namespace {

using json = nlohmann::ordered_json;

json value_of(const attribute_value& value) {
    return std::visit([](const auto& held) { return json(held); }, value);
}

const char* type_of(const attribute_value& value) {
    constexpr std::array types = {"string", "long", "double", "boolean", "list_of_string"};
    return types[value.index()];
}

// The attributes of one node or edge; each name that is new gets its declaration.
json held(const std::vector<attribute>& attributes, json& declarations) {
    json values = json::object();
    for (const auto& [name, value] : attributes) {
        values[name] = value_of(value);
        if (!declarations.contains(name)) {
            declarations[name] = {{"d", type_of(value)}};
        }
    }
    return values;
}

std::vector<attribute> network_attributes(const results::answer& answer, const subnetwork& network) {
    const auto explained = std::count_if(answer.pairs.begin(), answer.pairs.end(), [](const results::pair_row& pair) {
        return pair.status == results::pair_status::explained;
    });
    const std::string part = network.interactions.size() == answer.interactions.size() ? "" : ", a part of it";
    return {{"name", "Oriented network" + part},
            {"description", std::string("Arrow: direction. Colour: status. Width: explained pairs. Dashed: test.")},
            {"pairs", static_cast<long>(answer.pairs.size())},
            {"pairs_explained", static_cast<long>(explained)}};
}

json metadata(const json& aspects) {
    json entries = json::array();
    for (const json& aspect : aspects) {
        const auto entry = aspect.begin();
        entries.push_back({{"name", entry.key()}, {"elementCount", entry.value().size()}});
    }
    return {{"metaData", entries}};
}

}  // namespace

std::string cx2_text(const results::answer& answer, const subnetwork& network) {
    json declarations = {{"networkAttributes", json::object()}, {"nodes", json::object()}, {"edges", json::object()}};
    const json about = held(network_attributes(answer, network), declarations["networkAttributes"]);

    json nodes = json::array();
    const std::vector<std::vector<attribute>> by_protein = protein_attributes(answer);
    for (const std::size_t protein : network.proteins) {
        nodes.push_back({{"id", protein}, {"v", held(by_protein[protein], declarations["nodes"])}});
    }
    json edges = json::array();
    long max_pairs = 0;
    for (const std::size_t i : network.interactions) {
        const results::interaction_row& interaction = answer.interactions[i];
        const auto [source, target] = drawn_ends(interaction);
        max_pairs = std::max(max_pairs, interaction.num_pairs);
        edges.push_back({{"id", i},
                         {"s", source},
                         {"t", target},
                         {"v", held(interaction_attributes(answer, interaction), declarations["edges"])}});
    }
    const json aspects = json::array({{{"attributeDeclarations", json::array({declarations})}},
                                      {{"networkAttributes", json::array({about})}},
                                      {{"nodes", nodes}},
                                      {{"edges", edges}},
                                      {{"visualProperties", cx2_style(max_pairs)}}});
    json fragments = json::array({{{"CXVersion", "2.0"}, {"hasFragments", false}}, metadata(aspects)});
    fragments.insert(fragments.end(), aspects.begin(), aspects.end());
    fragments.push_back({{"status", json::array({{{"error", ""}, {"success", true}}})}});
    return fragments.dump() + "\n";
}
