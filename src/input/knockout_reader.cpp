#include "input/knockout_reader.hpp"

#include <iostream>

#include "input/name_table.hpp"
#include "input/pair_record.hpp"
#include "model/network_graph.hpp"

void read_knockouts(text_file& file) {
    num_of_pairs = 0;
    if (!file.opened) {
        std::cout << "ERROR: knockout file not opened\n";
        return;
    }
    // The rest of a line means nothing here, not even whether it ended.
    pair_record record;
    while (read_pair_record(file, record)) {
        const vertex_descriptor cause = find_protein(record.first, num_of_proteins);
        const vertex_descriptor effect = find_protein(record.second, num_of_proteins);
        if (cause == nullptr || effect == nullptr) {
            std::cout << "ERROR : a knouckout pair with unrecognized proteins: " << record.first << "ko"
                      << record.second << std::endl;
            continue;
        }
        ++num_of_pairs;
        sources[cause].push_back(effect);
    }
}
