#include "input/read_data.hpp"

#include "input/interaction_reader.hpp"
#include "input/knockout_reader.hpp"
#include "input/name_table.hpp"
#include "input/test_reader.hpp"

input_opener files_below(const std::string& prefix) {
    return [prefix](const char* name) { return open_text_file(prefix + name); };
}

int read_data(const input_opener& open_input, IloModel model, const std::function<bool()>& cut_requested) {
    const auto open = [&](const char* name) {
        text_file file = open_input(name);
        file.cut_requested = cut_requested;
        return file;
    };
    text_file file = open("names.txt");
    if (!read_names(file)) {
        return 1;
    }
    // Test edges come first, so that what the other files say of such a pair does
    // not give its direction away; directed comes before undirected for the same.
    num_of_ks = 0;
    file = open("test");
    read_test_edges(model, file);
    file = open("directed");
    read_interaction(model, file, num_of_proteins, directed_interactions);
    file = open("undirected");
    read_interaction(model, file, num_of_proteins, undirected_interactions);
    file = open("ko");
    read_knockouts(file);
    number_network();
    return num_of_ks;
}
