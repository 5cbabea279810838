#include "input/test_reader.hpp"

#include <cstdlib>
#include <iostream>

#include "input/name_table.hpp"
#include "input/orientation_arcs.hpp"
#include "input/pair_record.hpp"

void read_test_edges(IloModel model, text_file& file) {
    constexpr arc_marks listed_direction{.hidden = 1, .test = 1};
    constexpr arc_marks reverse_direction{.hidden = 2, .test = 0};
    if (!file.opened) {
        return;
    }
    protein_finder proteins(num_of_proteins);
    pair_record record;
    while (read_pair_record(file, record) && record.line_ended) {
        const vertex_descriptor first = find_or_report(proteins, record.first, "");
        const vertex_descriptor second = find_or_report(proteins, record.second, "");
        if (first == nullptr || second == nullptr) {
            continue;
        }
        if (first == second) {
            std::cout << "Notice: self loop accured" << std::endl;
            continue;
        }
        // A test pair has both arcs, so this finds a repeat in either order.
        if (find_arc(first, second).second) {
            std::cout << "ERROR: duplicated test edge " << boost::get(names_map, first) << " "
                      << boost::get(names_map, second) << std::endl;
            continue;
        }
        add_orientable_pair(model, first, second, std::atof(record.rest.c_str()), listed_direction, reverse_direction,
                            "keep");
    }
}
