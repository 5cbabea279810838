#include "input/name_table.hpp"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <functional>
#include <iostream>

namespace {

void set_entry(protein_name_data& entry, vertex_descriptor protein, std::string_view name) {
    entry.protein = protein;
    entry.name = std::make_unique<char[]>(max_name_length + 1);
    name.copy(entry.name.get(), max_name_length);
}

}  // namespace

bool read_names(text_file& file) {
    int current_id = 0;
    // The end of the file shows only in the read that meets it: after a last line
    // with its line feed there is one more read, of an empty name.
    bool at_end = !file.opened;
    while (!at_end) {
        const std::size_t line_start = file.position;
        bool ended;
        std::string_view line = take_line(file, ended);
        at_end = !ended;
        if (line.size() > max_name_length) {
            report_long_name(file, line_start, line);
            if (ended) {
                continue;
            }
            line = {};
        }
        const std::string_view name = as_c_string(line);
        const vertex_descriptor protein = add_protein(std::string(name));
        if (current_id < MAX_PROTEIN_ID) {
            set_entry(protein_names_map[current_id], protein, name);
        }
        ++current_id;
        if (current_id > MAX_PROTEIN_ID) {
            std::cout << "current id exceeded MAX_PROTEIN_ID. MAX_PROTEIN_ID = " << MAX_PROTEIN_ID << std::endl;
            return false;
        }
    }
    num_of_proteins = current_id - 1;
    std::stable_sort(protein_names_map, protein_names_map + std::max(num_of_proteins, 0),
                     [](const protein_name_data& left, const protein_name_data& right) {
                         return std::strcmp(left.name.get(), right.name.get()) < 0;
                     });
    return true;
}

bool find_name(protein_name_data* table, const char* protein_name, int max_id, int* out_mid) {
    int mid = max_id / 2;
    int prev_mid = 0;
    int search_span = max_id;
    bool found = false;
    while (!found && search_span >= 0) {
        if (!table[mid].name) {
            break;  // an empty table: nothing to compare with
        }
        const int comp = std::strcmp(protein_name, table[mid].name.get());
        // Half of the last move, rounded up: once it is 1, the search walks.
        const double help = std::abs(prev_mid - mid);
        search_span = static_cast<int>(std::ceil(help / 2.0));
        if (search_span > mid) {
            search_span = 1;
        }
        const int temp = prev_mid;
        prev_mid = mid;
        if (comp == 0) {
            found = true;
        } else {
            mid += comp > 0 ? search_span : -search_span;
            if (mid > max_id) {
                mid = max_id - 1;
                if (search_span <= 0) {
                    search_span = -1;
                }
            } else if (mid < 0) {
                mid = 0;
                search_span = -1;
            }
            // Back where it was two steps ago: the name would stand in between.
            if (mid == temp) {
                search_span = -1;
            }
        }
    }
    *out_mid = mid;
    return found;
}

vertex_descriptor protein_finder::find(const std::string& name) {
    const protein_name_data*& found = found_[std::hash<std::string_view>()(name) % num_places];
    if (found == nullptr || name != found->name.get()) {
        int mid = 0;
        if (!find_name(protein_names_map, name.c_str(), max_id_, &mid)) {
            return nullptr;
        }
        found = &protein_names_map[mid];
    }
    return found->protein;
}

vertex_descriptor find_or_report(protein_finder& proteins, const std::string& name, const std::string& where) {
    const vertex_descriptor protein = proteins.find(name);
    if (protein == nullptr) {
        std::cout << "ERROR: protein " << name << " not found in the list " << where << std::endl;
    }
    return protein;
}

void number_network() {
    int next_arc = 0;
    for (const edge_descriptor& arc : boost::make_iterator_range(boost::edges(bi_graph))) {
        boost::put(myindex_map, arc, next_arc++);
    }
    int next_vertex = 0;
    for (const vertex_descriptor protein : boost::make_iterator_range(boost::vertices(bi_graph))) {
        boost::put(vertex_myindex_map, protein, next_vertex++);
    }
}
