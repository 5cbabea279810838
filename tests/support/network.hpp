// Tests over the run-wide state: networks loaded from memory, and that state as text.
#pragma once

#include <map>
#include <sstream>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "model/network_graph.hpp"

using lines = std::vector<std::string>;
using file_texts = std::map<std::string, std::string>;

// Starts from the state at start-up, and holds back what is printed.
class network_test : public testing::Test {
 protected:
    network_test() : standard_output(std::cout.rdbuf(captured.rdbuf())) {}
    ~network_test() override { std::cout.rdbuf(standard_output); }

    // Loads input files given by name and text, as the first; those not given do not open.
    void load(const file_texts& files);
    // The same with proteins A to F, without what is printed of missing files.
    void load_letters(file_texts files);
    // The same with proteins a to z, of words in their order: "ab" a directed arc, "a-b"
    // and "a=b" an ordinary and a test interaction, "a:bbc" knockout pairs.
    void load_words(const std::string& words);
    // Words drawn at random: unreachable and repeated effects, effects that are their own
    // cause, two-way directed arcs.
    static std::string draw_words(unsigned seed, int num_proteins, int num_interactions, int percent_directed);
    // Makes the integer program of the network.
    void prepare(bool allow_one_edge_path);

    // What was printed since this was asked last.
    std::string printed();
    // Rows that prepare() added, "- o_a_b + x4 <= 0".
    lines flow_rows() const;

    IloModel model{(reset_run_state(), env)};
    std::vector<vertex_descriptor> iso_vec;
    IsoMap isoMap;

 private:
    std::size_t network_rows = 0;
    std::ostringstream captured;
    std::streambuf* standard_output;
};

// Vertex names in graph order.
lines proteins();
// "AB direction hidden test confidence" in graph order.
lines arcs();
// In arc order the marked arcs, "ab bc"; those that were counted, "ab:1 bc:2"; and those of comp_graph.
std::string marked();
std::string counted();
std::string comp_arcs();
// The model as an LP file, and the rows in it.
std::string lp_text(IloModel model);
lines rows(IloModel model);
// "cause: effects" in the order of `sources`.
lines knockouts();
