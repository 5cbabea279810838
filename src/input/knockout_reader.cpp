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
    protein_finder proteins(num_of_proteins);
    pair_record record;
    while (read_pair_record(file, record)) {
        const vertex_descriptor cause = proteins.find(record.first);
        const vertex_descriptor effect = proteins.find(record.second);
        if (cause == nullptr || effect == nullptr) {
            std::cout << "ERROR : a knouckout pair with unrecognized proteins: " << record.first << "ko"
                      << record.second << std::endl;
            continue;
        }
        ++num_of_pairs;
        sources[cause].push_back(effect);
    }
}
