#include "driver/run.hpp"

#include <chrono>
#include <iostream>
#include <new>

#include <boost/graph/copy.hpp>
#include <boost/graph/filtered_graph.hpp>

#include "orientation/prepare_ilp.hpp"
#include "process/held_output.hpp"
#include "process/interruption.hpp"
#include "process/memory.hpp"
#include "process/output_file.hpp"
#include "report/compare.hpp"
#include "report/graph_writer.hpp"

namespace {

// In which a signal is to be answered, less what a busy machine adds: the promise is two seconds.
constexpr std::chrono::milliseconds time_to_answer(1600);

// About what a model costs, per flow, when nothing but the quickest answer is wanted: to read its
// structure, and to answer, check and draw.
constexpr std::chrono::nanoseconds structure_per_flow(60);
constexpr std::chrono::nanoseconds answer_per_flow(130);

// From so many flows on, memory matters more than the few hundredths that to give it back costs.
constexpr int many_flows = 1'000'000;

void tell_if_cut(const std::string& path, const std::string& reason) {
    if (!reason.empty()) {
        std::cout << "ERROR: file " << path << " could not be completed: " << reason << std::endl;
    }
}

void draw(const std::string& path) {
    tell_if_cut(path, write_network(path));
}

}  // namespace

int run(int argc, char** argv, const solver::back_end& back_end) {
    if (argc != 3) {
        std::cout << "Invalid arguments for preprocessing. needed 2 arguments: Input directory and output directory"
                  << std::endl;
        return 1;
    }
    outlive_failed_writes();
    const interruption& signals = lasting_interruption();
    solver::solve_watch watch;
    watch.stop_requested = [&] { return signals.requested(); };
    try {
        run_phases(files_below(argv[1]), {.output = argv[2],
                                          .back_end = back_end,
                                          .watch = watch,
                                          .cut_requested =
                                              [&](std::chrono::nanoseconds to_answer) {
                                                  return signals.requested_before(time_to_answer - to_answer);
                                              },
                                          .before_solving = [] {}});
    } catch (const ended_early&) {
        std::cout << "ERROR: ended by a signal before the model was made: nothing is answered" << std::endl;
        signals.end_by_first_signal();
    } catch (const std::bad_alloc&) {
        std::cout << "ERROR: out of memory" << std::endl;
        throw;
    } catch (...) {
        // Nobody catches it. It went through here so that what was held back is printed.
        std::cout.flush();
        throw;
    }
    return 0;
}

IloCplex run_phases(const input_opener& open_input, const run_choices& choices) {
    // There is nothing to answer until the model is made; from then on there is, in any case.
    const auto is_cut_before_model = [&] {
        return choices.cut_requested(var.getSize() * (structure_per_flow + answer_per_flow));
    };
    const auto is_cut = [&] { return choices.cut_requested(var.getSize() * answer_per_flow); };

    // The model exists before anything is read: readers add to it line by line.
    IloModel model(env);
    name_objective();

    // Proteins, arcs with their orientation variables, and the knockout pairs.
    read_data(open_input, model, is_cut_before_model);
    if (is_cut_before_model()) {
        throw ended_early();
    }

    // The network as read, before the solution takes arcs out of it.
    if (choices.output) {
        take_away(*choices.output + "solution_graph.txt");  // an answer to another model
        draw(*choices.output + "initial_graph.txt");
    }

    // Where distances to a target are searched step by step, it is in this copy.
    std::vector<vertex_descriptor> iso_vec;
    const IsoMap isoMap = copy_network(iso_vec);

    IloCplex cplex(model);
    cplex.use_back_end(choices.back_end);
    cplex.set_watch(choices.watch);

    // Flows over shortest paths, pair variables, objective.
    prepare_ilp(model, true, isoMap, is_cut_before_model);
    if (var.getSize() > many_flows) {
        give_back_large_blocks();
    }
    if (is_cut_before_model() || !cplex.prepare(is_cut_before_model)) {
        if (choices.output) {
            take_away(*choices.output + "shortest.lp");  // of an earlier run, beside this one's drawing
        }
        throw ended_early();
    }

    // Before solving, so that it is there for another solver whatever happens.
    if (choices.output) {
        const std::string path = *choices.output + "shortest.lp";
        tell_if_cut(path, cplex.exportModel(path.c_str(), is_cut));
    }

    choices.before_solving();

    // Solves, and takes the losing arcs of the test pairs out of bi_graph. What it has to
    // say may wait for a reader; the answer must not.
    const held_output said;
    compare(cplex, model, 0);

    // What is left is the solution.
    if (choices.output) {
        draw(*choices.output + "solution_graph.txt");
        release_answer();
    }
    return cplex;
}

void name_objective() {
    objective.setName("obj");
    keep_constraints_Ids.push_back(objective.getId());
}

namespace {

struct no_arc {
    bool operator()(const edge_descriptor&) const { return false; }
};

}  // namespace

IsoMap copy_network(std::vector<vertex_descriptor>& iso_vec) {
    iso_vec.assign(boost::num_vertices(bi_graph), nullptr);
    const IsoMap isoMap(iso_vec.begin(), vertex_myindex_map);
    const boost::filtered_graph<bidirected_basic_graph, no_arc> proteins_alone(bi_graph, no_arc());
    boost::copy_graph(proteins_alone, comp_graph, boost::orig_to_copy(isoMap));
    return isoMap;
}
