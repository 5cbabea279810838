// The network and the knockout pairs of a run as its files name them, each with its line.
#pragma once

#include <string>
#include <vector>

#include "answer/input_files.hpp"
#include "model/network_graph.hpp"

enum class interaction_file { test, directed, undirected };
const char* name_of(interaction_file file);

struct interaction {
    int first = 0;  // vertex_index of both, as the line names them
    int second = 0;
    interaction_file file = interaction_file::test;
    int line = 0;  // counted from 1
    double confidence = 0.0;
    IloNumVar forward;   // orientation variable of first -> second
    IloNumVar backward;  // of second -> first; empty where the direction is known
};

struct knockout_line {
    std::string cause;
    std::string effect;
    int line = 0;           // on which the record began, counted from 1
    int cause_vertex = -1;  // vertex_index, -1 = no such protein
    int effect_vertex = -1;
    int pair = -1;  // position in `pairs`, -1 = not in the model
};

struct network_record {
    std::vector<std::string> names;         // by vertex_index
    std::vector<interaction> interactions;  // in the order of the files
    std::vector<knockout_line> knockouts;   // every record of "ko", refused ones too
    long num_vertices() const { return static_cast<long>(names.size()); }
};

// What a run has read and built from these files. To be called after prepare_ilp and
// before compare, which takes arcs out of the network. Nothing is printed.
network_record record_network(const input_files& input);
