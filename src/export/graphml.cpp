#include <algorithm>
#include <map>
#include <sstream>

#include <boost/graph/adjacency_list.hpp>
#include <boost/graph/graphml.hpp>
#include <boost/property_map/function_property_map.hpp>

#include "export/attributes.hpp"
#include "export/formats.hpp"
#include "tables/table_text.hpp"

namespace {

struct attribute_map {
    std::map<std::string, attribute_value> values;
};

using attribute_graph =
    boost::adjacency_list<boost::vecS, boost::vecS, boost::bidirectionalS, attribute_map, attribute_map>;

// XML has no place for control characters, not even as entities.
std::string xml_text(const std::string& text) {
    std::string clean;
    for (const char c : text) {
        const auto code = static_cast<unsigned char>(c);
        clean += code < 0x20 || code == 0x7f ? std::string("\xef\xbf\xbd") : std::string(1, c);
    }
    return clean;
}

attribute_map held(const std::vector<attribute>& attributes) {
    attribute_map map;
    for (const auto& [name, value] : attributes) {
        if (const auto* list = std::get_if<std::vector<std::string>>(&value)) {
            map.values[name] = xml_text(join_list(*list, ';'));
        } else if (const auto* text = std::get_if<std::string>(&value)) {
            map.values[name] = xml_text(*text);
        } else {
            map.values[name] = value;
        }
    }
    return map;
}

// The graph library writes every property of every vertex and edge.
template <class value>
value value_or_none(const attribute_map& map, const std::string& name, const value& none) {
    const auto found = map.values.find(name);
    return found == map.values.end() ? none : std::get<value>(found->second);
}

template <class key, class value>
void declare(boost::dynamic_properties& properties, const attribute_graph& graph, const std::string& name, value none) {
    properties.property(name, boost::make_function_property_map<key>([&graph, name, none](const key& of) {
                            return value_or_none(graph[of], name, none);
                        }));
}

template <class key>
void declare_all(boost::dynamic_properties& properties, const attribute_graph& graph,
                 const std::map<std::string, attribute_value>& kinds) {
    for (const auto& [name, kind] : kinds) {
        if (std::holds_alternative<long>(kind)) {
            declare<key>(properties, graph, name, -1L);
        } else if (std::holds_alternative<double>(kind)) {
            declare<key>(properties, graph, name, -1.0);
        } else if (std::holds_alternative<bool>(kind)) {
            declare<key>(properties, graph, name, false);
        } else {
            declare<key>(properties, graph, name, std::string());
        }
    }
}

}  // namespace

std::string graphml_text(const results::answer& answer, const subnetwork& network) {
    attribute_graph graph(network.proteins.size());
    std::map<std::string, attribute_value> node_kinds;
    std::map<std::string, attribute_value> edge_kinds;
    std::vector<std::size_t> vertex_of(answer.proteins.size());
    const std::vector<std::vector<attribute>> by_protein = protein_attributes(answer);
    for (std::size_t vertex = 0; vertex < network.proteins.size(); ++vertex) {
        const std::size_t protein = network.proteins[vertex];
        graph[vertex] = held(by_protein[protein]);
        node_kinds.insert(graph[vertex].values.begin(), graph[vertex].values.end());
        vertex_of[protein] = vertex;
    }
    for (const std::size_t i : network.interactions) {
        const auto [source, target] = drawn_ends(answer.interactions[i]);
        const attribute_map attributes = held(interaction_attributes(answer, answer.interactions[i]));
        edge_kinds.insert(attributes.values.begin(), attributes.values.end());
        boost::add_edge(vertex_of[source], vertex_of[target], attributes, graph);
    }
    boost::dynamic_properties properties;
    declare_all<attribute_graph::vertex_descriptor>(properties, graph, node_kinds);
    declare_all<attribute_graph::edge_descriptor>(properties, graph, edge_kinds);
    std::ostringstream text;
    boost::write_graphml(text, graph, properties, true);
    return text.str();
}
