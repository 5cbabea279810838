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
// there the last index looked at. Entry max_id may be looked at as well, so it
// must exist. The search is the table's own and has two deliberate misses: with
// max_id 2 or 3 the name at index 0 is not found.
bool find_name(protein_name_data* table, const char* protein_name, int max_id, int* out_mid);

// The vertex of a name among the first max_id entries; null when it is not there.
vertex_descriptor find_protein(const std::string& name, int max_id);

// Numbers arcs and vertices of bi_graph in list order, each from 0.
void number_network();
