// One run of the program: its phases, in their order.
#pragma once

#include <chrono>
#include <functional>
#include <optional>
#include <string>

#include "input/read_data.hpp"
#include "model/network_graph.hpp"
#include "solver/back_ends/back_ends.hpp"

// Runs with the program's own arguments: an input and an output directory, each a
// plain prefix of file names. Gives the exit status: 1 on a wrong argument count,
// else 0. A back end given here takes the place of the one that was built in. A signal ends
// the process where it is too early for an answer.
// Throws the int -1 when there is no solution.
int run(int argc, char** argv, const solver::back_end& back_end = solver::default_back_end());

struct run_choices {
    std::optional<std::string> output;  // prefix of the files to write; none = no file
    solver::back_end back_end = solver::default_back_end();
    solver::solve_watch watch;  // of the solve
    // Asked now and then before the solve, with about the time that an answer takes from
    // there on if the rest is left out: true = it is to be. Once true, always true.
    std::function<bool(std::chrono::nanoseconds to_answer)> cut_requested = [](auto) { return false; };
    // Called when the program is built and written, before it is solved.
    std::function<void()> before_solving = [] {};
};

// The run was cut before there was a model to answer.
struct ended_early {};

// All phases, over the state that start-up or reset_run_state left. Gives the session with
// its answer; throws as above, or ended_early.
IloCplex run_phases(const input_opener& open_input, const run_choices& choices);

// The phases that are the driver's own.

// Gives the objective its name and the first place in keep_constraints_Ids.
void name_objective();
// Copies bi_graph into comp_graph: the vertices, since prepare_ilp replaces all arcs
// there. iso_vec takes, by vertex_index, the copy of each vertex, and must live as
// long as the map that is returned.
IsoMap copy_network(std::vector<vertex_descriptor>& iso_vec);
