// Tests over the run-wide state, and that state as text that they can compare.
#pragma once

#include <map>
#include <sstream>
#include <streambuf>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "input/text_file.hpp"
#include "model/network_graph.hpp"

using lines = std::vector<std::string>;

// Starts from the state at start-up, and holds back what is printed.
class run_state_test : public testing::Test {
 protected:
    run_state_test() : standard_output(std::cout.rdbuf(captured.rdbuf())) {}
    ~run_state_test() override { std::cout.rdbuf(standard_output); }

    // Loads input files given by name and text; those not given do not open.
    int load(const std::map<std::string, std::string>& files);
    // The same with proteins A to F, without what is printed of missing files.
    void load_letters(std::map<std::string, std::string> files);
    // What was printed since this was asked last.
    std::string printed();

    IloModel model{(reset_run_state(), env)};

 private:
    std::ostringstream captured;
    std::streambuf* standard_output;
};

text_file in_memory(const std::string& path, const std::string& text);

// Vertex names in graph order.
lines proteins();
// "tail->head direction hidden test confidence" in graph order.
lines arcs();
// "name: left <= right" in model order.
lines rows(IloModel model);
// "cause: effects" in the order of `sources`.
lines knockouts();
