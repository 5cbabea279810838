// Finds the regrets and prices of a network and prints what they cost beyond the run:
//
//   regrets INPUT/ [SECONDS [JOBS [FILE]]]
//
// The search for them is told to end after so many SECONDS by the clock; with 0 there is no
// limit. Before it the network is read and solved, for no longer than SECONDS either.
//
// "gates N tied N decided N open N" and "demands N priced N open N" count what was found,
// "run SECONDS" and "regrets SECONDS" are processor time of user and system. The file gets
// a line for every gate and demand: its column and both ends of its range.
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "driver/run.hpp"
#include "solver/regret/find_regrets.hpp"

namespace {

double processor_time() {
    timespec time{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + 1e-9 * static_cast<double>(time.tv_nsec);
}

solver::solve_watch watch_for(double limit) {
    const auto start = std::chrono::steady_clock::now();
    return {.stop_requested =
                [start, limit] {
                    return std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count() > limit;
                },
            .report = [](const auto&) {}};
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::fprintf(stderr, "usage: regrets INPUT/ [SECONDS [JOBS [FILE]]]\n");
        return 1;
    }
    const double seconds = argc > 2 ? std::atof(argv[2]) : 0.0;
    const double limit = seconds > 0.0 ? seconds : solver::infinity;

    double before = processor_time();
    run_choices choices;
    choices.watch = watch_for(limit);
    const IloCplex session = run_phases(files_below(argv[1]), choices);
    const solver::model_record& record = session.solved_record();
    const solver::solve_answer& answer = session.answer();
    std::printf("run %.3f value %.0f bound %.0f\n", processor_time() - before, answer.objective, answer.bound);

    before = processor_time();
    const auto found =
        solver::find_regrets(record, answer, {.jobs = argc > 3 ? std::atoi(argv[3]) : 1}, watch_for(limit));
    const double spent = processor_time() - before;
    if (!found) {
        std::fprintf(stderr, "the model does not fit\n");
        return 1;
    }
    std::FILE* const file = argc > 4 ? std::fopen(argv[4], "w") : nullptr;
    int tied = 0;
    int decided = 0;
    int open_gates = 0;
    int priced = 0;
    int open_prices = 0;
    long sum = 0;
    for (std::size_t c = 0; c < found->regret.size(); ++c) {
        const auto& [lower, upper] = found->regret[c];
        if (record.column_integral[c] != 0 && answer.values[c] > 0.5) {
            (upper == 0 ? tied : lower > 0 ? decided : open_gates) += 1;
            open_gates += lower > 0 && lower < upper ? 1 : 0;
            sum += lower;
            if (file != nullptr) {
                std::fprintf(file, "regret %zu %ld %ld\n", c, lower, upper);
            }
        }
        if (record.column_objective[c] > 0.0 && answer.values[c] < 0.5) {
            (found->price[c].lower == found->price[c].upper ? priced : open_prices) += 1;
            sum += found->price[c].lower;
            if (file != nullptr) {
                std::fprintf(file, "price %zu %ld %ld\n", c, found->price[c].lower, found->price[c].upper);
            }
        }
    }
    if (file != nullptr) {
        std::fclose(file);
    }
    std::printf("gates tied %d decided %d open %d\ndemands priced %d open %d\nsum %ld\nregrets %.3f\n", tied, decided,
                open_gates, priced, open_prices, sum, spent);
    return 0;
}
