#include "report/graph_writer.hpp"

#include <algorithm>

#include <boost/graph/graphviz.hpp>

#include "process/output_file.hpp"

namespace {

// A vertex's number as its identifier in the drawing. The library would turn each
// of them into text and match it against a pattern, for both ends of every arc; a
// number is a legal identifier as it is.
struct vertex_number {
    int value;
};

[[maybe_unused]] int escape_dot_string(const vertex_number& number) {
    return number.value;
}

vertex_number number_of(vertex_descriptor vertex) {
    return {boost::get(vertex_myindex_map, vertex)};
}

// A protein's name as its label. Nearly all are plain identifiers, which the library
// leaves as they are once it has matched them against a pattern.
struct protein_label {
    const std::string& name;
};

bool is_identifier(const std::string& name) {
    const auto is_letter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_'; };
    const auto is_digit = [](char c) { return c >= '0' && c <= '9'; };
    return !name.empty() && !is_digit(name.front()) &&
           std::all_of(name.begin(), name.end(), [&](char c) { return is_letter(c) || is_digit(c); });
}

[[maybe_unused]] std::string escape_dot_string(const protein_label& label) {
    return is_identifier(label.name) ? label.name : boost::escape_dot_string(label.name);
}

protein_label label_of(vertex_descriptor vertex) {
    return {boost::get(names_map, vertex)};
}

// What a function says of a vertex, as the library asks for it.
template <typename value, value (*value_of)(vertex_descriptor)>
struct vertex_map {
    using key_type = vertex_descriptor;
    using value_type = value;
    using reference = value;
    using category = boost::readable_property_map_tag;

    friend value get(vertex_map, vertex_descriptor vertex) { return value_of(vertex); }
};

}  // namespace

void write_network(std::ostream& out) {
    boost::write_graphviz(out, bi_graph, boost::make_label_writer(vertex_map<protein_label, label_of>()),
                          epw(solution_graph), boost::default_writer(), vertex_map<vertex_number, number_of>());
}

std::string write_network(const std::string& path) {
    output_file file(path);
    if (file.is_open()) {
        write_network(file.text());
    }
    return file.finish();
}
