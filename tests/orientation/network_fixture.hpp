// Small networks made in memory, and the model that prepare_ilp makes of them.
#pragma once

#include <random>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/network_graph.hpp"

class network_test : public ::testing::Test {
 protected:
    network_test() { start(0); }

    // An empty network of so many proteins, named a, b, c ... (then n26, n27 ...).
    void start(int num_proteins);
    void arc(char tail, char head);        // directed
    void interaction(char one, char two);  // to be oriented
    void knockout(char cause, const std::string& effects);
    // A network drawn at random, knockouts included: unreachable and repeated effects,
    // effects that are their own cause, two-way directed arcs. Parallel arcs, which
    // the readers never make, only if asked for.
    void draw(unsigned seed, int num_proteins, int num_interactions, double directed_share, bool parallel_arcs);

    // Numbers the network, copies it and prepares the program.
    void prepare(bool allow_one_edge_path);

    std::string name_of(edge_descriptor arc) const;  // "ab"
    // The marked arcs, "ab bc", and all arcs that were counted, "ab:1 bc:2"; arc order.
    std::string marked() const;
    std::string counted() const;
    std::string comp_arcs() const;  // comp_graph's arcs in their order
    // The rows after the network's own, "x4 - o_a_b <= 0", each term in column order.
    std::vector<std::string> flow_rows() const;

    std::vector<vertex_descriptor> proteins;
    std::vector<vertex_descriptor> iso_vec;
    IsoMap isoMap;
    IloModel model{env};
    std::size_t network_rows = 0;

    vertex_descriptor protein(char name) const { return proteins.at(name - 'a'); }
};
