// Runs the program's phases one by one and prints what each of them costs:
//
//   phases INPUT/ OUTPUT/ [nosolve]
//
// "phase NAME SECONDS" is processor time of user and system; "stage NAME SECONDS"
// splits the solve by what the back end says it is doing. "mark" is the marking of
// shortest-path arcs done once more by itself, and "model" what prepare_ilp takes
// beyond that. "peak NAME MEGABYTES" is the highest resident memory so far.
#include <sys/resource.h>

#include <cstdio>
#include <cstring>
#include <ctime>
#include <map>
#include <string>

#include "driver/run.hpp"
#include "input/read_data.hpp"
#include "orientation/compressed_marking.hpp"
#include "orientation/prepare_ilp.hpp"
#include "report/compare.hpp"
#include "report/graph_writer.hpp"

namespace {

double processor_time() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

void print_peak(const char* name) {
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    std::printf("peak %s %.0f\n", name, static_cast<double>(usage.ru_maxrss) / 1024);
}

template <typename phase_function>
double timed(const phase_function& phase) {
    const double start = processor_time();
    phase();
    return processor_time() - start;
}

// A solve is told by its stages only when one begins.
struct stage_clock {
    std::map<std::string, double> seconds;
    std::string stage = "start";
    double since = processor_time();

    void enter(const char* next) {
        if (stage != next) {
            seconds[stage] += processor_time() - since;
            stage = next;
            since = processor_time();
        }
    }
};

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        std::fprintf(stderr, "usage: phases INPUT/ OUTPUT/ [nosolve]\n");
        return 1;
    }
    const std::string output = argv[2];
    const bool solves = argc < 4 || std::strcmp(argv[3], "nosolve") != 0;
    const auto print_phase = [](const char* name, double time) { std::printf("phase %s %.3f\n", name, time); };

    IloModel model(env);
    name_objective();
    print_phase("load", timed([&] { read_data(argv, model); }));
    print_phase("initial_graph", timed([&] { write_network(output + "initial_graph.txt"); }));

    std::vector<vertex_descriptor> iso_vec;
    IsoMap isoMap;
    print_phase("copy", timed([&] { isoMap = copy_network(iso_vec); }));

    const double marking_time = timed([] {
        compressed_marking marking;
        for (const auto& [pair_source, source_targets] : sources) {
            marking.mark(pair_source, source_targets);
        }
    });
    print_phase("mark", marking_time);
    print_phase("model", timed([&] { prepare_ilp(model, true, isoMap); }) - marking_time);
    print_peak("model");

    IloCplex cplex(model);
    print_phase("lp_file", timed([&] { cplex.exportModel((output + "shortest.lp").c_str()); }));
    print_peak("lp_file");
    {
        const solver::model_record record = cplex.record();
        std::printf("size proteins %zu arcs %zu sources %zu pairs %d rows %d columns %d\n",
                    boost::num_vertices(bi_graph), boost::num_edges(bi_graph), sources.size(), num_of_pairs,
                    record.num_rows(), record.num_columns());
    }
    if (solves) {
        stage_clock stages;
        cplex.set_watch({.stop_requested = [] { return false; },
                         .report = [&](const solver::solve_progress& progress) { stages.enter(progress.stage); }});
        print_phase("solve", timed([&] { compare(cplex, model, 0); }));
        stages.enter("");
        for (const auto& [stage, time] : stages.seconds) {
            std::printf("stage %s %.3f\n", stage.c_str(), time);
        }
        print_peak("solve");
        print_phase("solution_graph", timed([&] { write_network(output + "solution_graph.txt"); }));
    }
    return 0;
}
