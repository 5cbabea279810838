// Small networks made in memory, and the model that prepare_ilp makes of them.
#pragma once

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/network_graph.hpp"

class network_test : public ::testing::Test {
 protected:
    // Makes a network over proteins a, b, c ... of words in their order: "ab" a
    // directed arc, "a-b" an interaction to be oriented, "a:bbc" knockout pairs.
    void make(const std::string& words);
    // Numbers the network, copies it and prepares the program.
    void prepare(bool allow_one_edge_path);

    // A network drawn at random: unreachable and repeated effects, effects that are
    // their own cause, two-way directed arcs. Parallel arcs, which the readers never
    // make, only if asked for.
    static std::string draw(unsigned seed, int num_proteins, int num_interactions, double directed_share,
                            bool parallel_arcs);

    // The marked arcs, "ab bc"; the arcs that were counted, "ab:1 bc:2"; and the arcs
    // of comp_graph. All in arc order.
    static std::string marked();
    static std::string counted();
    static std::string comp_arcs();
    // The rows after the network's own, "- o_a_b + x4 <= 0", terms in column order.
    std::vector<std::string> flow_rows() const;

    std::vector<vertex_descriptor> proteins;
    std::vector<vertex_descriptor> iso_vec;
    IsoMap isoMap;
    IloModel model{env};
    std::size_t network_rows = 0;
};
