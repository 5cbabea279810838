#include "input/interaction_reader.hpp"

#include <cstdlib>
#include <iostream>

#include "input/name_table.hpp"
#include "input/orientation_arcs.hpp"
#include "input/pair_record.hpp"

namespace {

void remove_first_arc(vertex_descriptor tail, vertex_descriptor head) {
    const auto [arc, exists] = find_arc(tail, head);
    if (exists) {
        remove_arc(arc);
    }
}

// What is known of a pair of proteins stands against what a later line says: an
// arc against the same arc, any arc against an interaction without direction.
bool is_present(vertex_descriptor first, vertex_descriptor second, int directed) {
    return find_arc(first, second).second || (directed == undirected_interactions && find_arc(second, first).second);
}

}  // namespace

int read_interaction(IloModel model, text_file& file, int max_id, int directed) {
    if (!file.opened) {
        std::cout << "ERROR: in file " << file.path << " not opened\n";
        return 0;
    }
    int num_interactions_read = 0;
    protein_finder proteins(max_id);
    // The message names the mode where it promises a file; it is kept so.
    const std::string where = "(in file = " + std::to_string(directed) + ")";
    const auto find = [&](const std::string& name) {
        return directed == removed_interactions ? proteins.find(name) : find_or_report(proteins, name, where);
    };
    pair_record record;
    while (read_pair_record(file, record) && record.line_ended) {
        const vertex_descriptor first = find(record.first);
        const vertex_descriptor second = find(record.second);
        if (first == nullptr || second == nullptr) {
            continue;
        }
        if (directed == removed_interactions) {
            remove_first_arc(first, second);
            remove_first_arc(second, first);
            continue;
        }
        if (first == second) {
            continue;
        }
        ++num_interactions_read;
        if (is_present(first, second, directed)) {
            continue;
        }
        const double weight = std::atof(record.rest.c_str());
        if (directed == undirected_interactions) {
            add_orientable_pair(model, first, second, weight, arc_marks{}, arc_marks{}, nullptr);
        } else {
            add_directed_arc(model, first, second, weight);
        }
    }
    return num_interactions_read;
}
