#include "answer/answer_run.hpp"

#include <chrono>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

#include "answer/answer_tables.hpp"
#include "driver/run.hpp"
#include "tables/unusable_input.hpp"
#include "tables/whole_file.hpp"

namespace {

using clock_type = std::chrono::steady_clock;

// Wants to stop when somebody else does, or when the time is over.
class time_limit {
 public:
    time_limit(const std::function<bool()>& outer, std::optional<double> seconds) : outer_(outer) {
        if (seconds) {
            constexpr double longest = 1e9;  // seconds: more would leave the clock's range
            end_ = clock_type::now() + std::chrono::duration_cast<clock_type::duration>(
                                           std::chrono::duration<double>(std::min(*seconds, longest)));
        }
    }
    bool operator()() const { return outer_() || (end_ && clock_type::now() >= *end_); }

 private:
    std::function<bool()> outer_;
    std::optional<clock_type::time_point> end_;
};

std::string status_text(const IloCplex& cplex) {
    std::ostringstream text;
    text << cplex.getStatus();
    return text.str();
}

IloCplex solve(const input_files& input, const answer_choices& choices, network_record& network) {
    // The clock of the limit starts with the solve.
    std::optional<time_limit> limit;
    run_choices run;
    run.output = choices.output;
    run.watch.stop_requested = [&] { return limit ? (*limit)() : choices.stop_requested(); };
    run.before_solving = [&] {
        if (boost::num_vertices(bi_graph) > MAX_PROTEIN_ID) {
            throw unusable_input(input.folder + "names.txt: more than " + std::to_string(MAX_PROTEIN_ID - 1) +
                                 " proteins");
        }
        network = record_network(input);
        limit.emplace(choices.stop_requested, choices.time_limit);
    };
    try {
        return run_phases(input.opener(), run);
    } catch (const int&) {
        throw std::runtime_error("the solve failed; no table was written");
    }
}

}  // namespace

answered_run answer_run(const input_files& input, const answer_choices& choices) {
    answered_run made;
    IloCplex cplex = solve(input, choices, made.network);
    cplex.set_watch({});
    std::optional<solver::regret_report> regrets;
    if (choices.with_regrets) {
        solver::solve_watch watch;
        watch.stop_requested = time_limit(choices.stop_requested, choices.regret_time);
        regrets = solver::find_regrets(cplex.solved_record(), cplex.answer(),
                                       {.jobs = choices.jobs, .report = choices.report}, watch);
    }
    made.rows = make_rows(made.network, cplex, regrets);
    made.outcome = {.solver = solver::default_solver(),
                    .status = status_text(cplex),
                    .value = std::lround(cplex.getObjValue()),
                    .bound = proven_bound(cplex),
                    .has_regrets = regrets.has_value()};
    return made;
}

void write_answer(const std::string& output, const input_files& input, const answered_run& run,
                  const provenance& origin) {
    write_whole_file(output + "interactions.tsv", interactions_table(run.rows.interactions));
    write_whole_file(output + "pairs.tsv", pairs_table(run.rows.pairs));
    const std::string aliases = input.folder + "aliases.tsv";
    if (std::filesystem::exists(aliases)) {
        write_whole_file(output + "aliases.tsv", open_text_file(aliases).text);
    }
    write_whole_file(output + "run.json", json_text(run_json(origin, run.outcome, input, run.rows)));
}

void remove_answer(const std::string& output) {
    for (const char* name : {"interactions.tsv", "pairs.tsv", "aliases.tsv", "run.json"}) {
        std::error_code ignored;
        std::filesystem::remove(output + name, ignored);
    }
}
