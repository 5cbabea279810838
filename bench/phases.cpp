// Runs the program's phases one by one and prints what each of them costs:
//
//   phases INPUT/ OUTPUT/ [SECONDS]
//
// The solve is told to end SECONDS after the program began; with 0 there is none.
//
// "phase NAME SECONDS" is processor time of user and system; "stage SECONDS NAME"
// splits the solve by what the back end reports to have done. "mark" is the marking
// of shortest-path arcs done once more by itself, and "model" what prepare_ilp takes
// beyond that. "peak NAME MEGABYTES" is the highest resident memory so far, and
// "reached SECONDS VALUE BOUND" what was known that long after the program began, and
// "solving from SECONDS" when the solve did.
#include <sys/resource.h>

#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <map>
#include <string>

#include "driver/run.hpp"
#include "input/read_data.hpp"
#include "orientation/compressed_marking.hpp"
#include "orientation/prepare_ilp.hpp"
#include "process/memory.hpp"
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

double since_start() {
    static const auto start = std::chrono::steady_clock::now();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

template <typename phase_function>
double timed(const phase_function& phase) {
    const double start = processor_time();
    phase();
    return processor_time() - start;
}

// Notes what a solve reports: a report ends the stage that it names.
struct solve_log {
    std::map<std::string, double> seconds;
    double since = processor_time();
    double value = 0.0;
    double bound = 0.0;

    void end_stage(const char* stage) {
        seconds[stage] += processor_time() - since;
        since = processor_time();
    }
    void take(const solver::solve_progress& progress) {
        end_stage(progress.stage);
        if (progress.value != value || progress.bound != bound) {
            value = progress.value;
            bound = progress.bound;
            std::printf("reached %.3f %.0f %.0f\n", since_start(), value, bound);
            std::fflush(stdout);
        }
    }
};

}  // namespace

int main(int argc, char** argv) {
    since_start();
    if (argc < 3) {
        std::fprintf(stderr, "usage: phases INPUT/ OUTPUT/ [SECONDS]\n");
        return 1;
    }
    const std::string output = argv[2];
    const double limit = argc > 3 ? std::atof(argv[3]) : solver::infinity;
    const auto print_phase = [](const char* name, double time) { std::printf("phase %s %.3f\n", name, time); };

    IloModel model(env);
    name_objective();
    print_phase("load", timed([&] { read_data(files_below(argv[1]), model); }));
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
    if (var.getSize() > 1'000'000) {
        give_back_large_blocks();  // as the program does
    }
    print_peak("model");

    IloCplex cplex(model);
    print_phase("lp_file", timed([&] { cplex.exportModel((output + "shortest.lp").c_str()); }));
    print_peak("lp_file");
    {
        const solver::model_record& record = cplex.solved_record();  // that was just exported
        std::printf("size proteins %zu arcs %zu sources %zu pairs %d rows %d columns %d\n",
                    boost::num_vertices(bi_graph), boost::num_edges(bi_graph), sources.size(), num_of_pairs,
                    record.num_rows(), record.num_columns());
    }
    if (limit > 0.0) {
        std::printf("solving from %.3f\n", since_start());
        solve_log log;
        cplex.set_watch({.stop_requested = [&] { return since_start() > limit; },
                         .report = [&](const solver::solve_progress& progress) { log.take(progress); }});
        print_phase("solve", timed([&] { compare(cplex, model, 0); }));
        log.end_stage("answer");
        for (const auto& [stage, time] : log.seconds) {
            std::printf("stage %.3f %s\n", time, stage.c_str());
        }
        print_peak("solve");
        print_phase("solution_graph", timed([&] { write_network(output + "solution_graph.txt"); }));
    }
    return 0;
}
