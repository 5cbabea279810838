#include "fuzz/plain_drawing.hpp"

#include <sstream>

#include "model/network_graph.hpp"

namespace {

// The name that a label stands for; quotes inside a quoted one have a backslash before them.
std::string name_of(const std::string& label) {
    if (!label.starts_with('"')) {
        return label;
    }
    std::string name;
    for (std::size_t i = 1; i + 1 < label.size(); ++i) {
        i += label[i] == '\\' && label[i + 1] == '"' && i + 2 < label.size() ? 1 : 0;
        name += label[i];
    }
    return name;
}

}  // namespace

std::string difference_of_drawing(const std::string& text) {
    std::istringstream lines(text);
    std::string line;
    if (!std::getline(lines, line) || line != "digraph G {") {
        return "the first line";
    }
    int number = 0;
    for (const vertex_descriptor protein : boost::make_iterator_range(boost::vertices(bi_graph))) {
        const std::string begin = std::to_string(number++) + "[label=";
        if (!std::getline(lines, line) || !line.starts_with(begin) || !line.ends_with("];") ||
            name_of(line.substr(begin.size(), line.size() - begin.size() - 2)) != boost::get(names_map, protein)) {
            return "protein: " + line;
        }
    }
    for (const edge_descriptor& arc : boost::make_iterator_range(boost::edges(bi_graph))) {
        const std::string expected = std::to_string(boost::get(vertex_myindex_map, boost::source(arc, bi_graph))) +
                                     "->" +
                                     std::to_string(boost::get(vertex_myindex_map, boost::target(arc, bi_graph))) +
                                     (boost::get(hidden_map, arc) != 0 ? " [color=blue];" : " ;");
        if (!std::getline(lines, line) || line != expected) {
            return "arc: " + line;
        }
    }
    return std::getline(lines, line) && line == "}" && !std::getline(lines, line) ? "" : "the end";
}
