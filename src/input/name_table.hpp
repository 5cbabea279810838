// The proteins: "names.txt" becomes vertices and a sorted table, in which the
// other readers look names up.
#pragma once

#include "input/text_file.hpp"
#include "model/network_graph.hpp"

// Makes a vertex and a table entry of each line and sorts the table. False when
// there are more lines than the table has entries: the message is printed, and
// the table is not to be used.
bool read_names(text_file& file);

// Finds a name among entries 0 .. max_id - 1 and writes its index; false leaves
// there the last index looked at. Entry max_id may be looked at, and found, as well,
// so it must exist. The search is the table's own and has two deliberate misses: with
// max_id 2 or 3 the name at index 0 is not found.
bool find_name(protein_name_data* table, const char* protein_name, int max_id, int* out_mid);

// Finds vertices by their names, among the first max_id entries, for as long as the
// table stays as it is. Files name a protein many times, so what was found is kept.
class protein_finder {
 public:
    explicit protein_finder(int max_id) : max_id_(max_id), found_(num_places, nullptr) {}

    // Null when the name is not there.
    vertex_descriptor find(const std::string& name);

 private:
    // Names are spread over the places by their bytes, and push one another out.
    static constexpr std::size_t num_places = std::size_t{1} << 14;

    int max_id_;
    std::vector<const protein_name_data*> found_;
};

// The same, and prints an error line where the name is not there; `where` ends that line.
vertex_descriptor find_or_report(protein_finder& proteins, const std::string& name, const std::string& where);

// Numbers arcs and vertices of bi_graph in list order, each from 0.
void number_network();
