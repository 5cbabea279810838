#include "evaluation/evaluation.hpp"

#include <cstring>
#include <iostream>
#include <sstream>

#include "evaluation/worker_processes.hpp"

namespace {

// Keeps what a run prints to itself.
class muted_output {
 public:
    muted_output() : standard_output_(std::cout.rdbuf(text_.rdbuf())) {}
    ~muted_output() { std::cout.rdbuf(standard_output_); }
    muted_output(const muted_output&) = delete;
    muted_output& operator=(const muted_output&) = delete;

 private:
    std::ostringstream text_;
    std::streambuf* standard_output_;
};

// known: by test interaction of the run, position among the known directions.
std::vector<judged_direction> judge(const answered_run& run, const std::vector<int>& known, int fold) {
    const std::vector<vote> share = by_outgoing_share(run.network);
    const std::vector<vote> nearness = by_nearness_to_causes(run.network);
    std::vector<judged_direction> judged;
    for (const interaction_row& row : run.rows.interactions) {
        if (row.file == interaction_file::test) {
            const std::size_t i = judged.size();
            judged.push_back({fold, known.at(i), row.direction, row.status, row.regret.has_value(),
                              row.regret.value_or(solver::proven_range()), share.at(i), nearness.at(i)});
        }
    }
    return judged;
}

evaluated_run outcome_of(const answered_run& run, int fold) {
    return {fold, run.outcome.bound == run.outcome.value, run.outcome.value, run.outcome.bound};
}

answered_run run_quietly(const input_files& input, const answer_choices& choices) {
    reset_run_state();
    const muted_output muted;
    return answer_run(input, choices);
}

// Rows speak of the files as they are, not of those in which directions were hidden.
void name_true_lines(answered_run& run, const hidden_input& hidden) {
    for (std::size_t i = 0; i < run.rows.interactions.size(); ++i) {
        interaction_row& row = run.rows.interactions[i];
        const auto line = static_cast<std::size_t>(row.line - 1);
        if (row.file != interaction_file::undirected) {
            const interaction& origin =
                row.file == interaction_file::test ? hidden.lines_of_test.at(line) : hidden.lines_of_directed.at(line);
            row.file = origin.file;
            row.line = origin.line;
        }
    }
}

// A fold's results as bytes: they go from one process to another of the same program.
template <typename record>
void append_bytes(std::string& bytes, const record& item) {
    static_assert(std::is_trivially_copyable_v<record>);
    bytes.append(reinterpret_cast<const char*>(&item), sizeof item);
}

template <typename record>
record take_bytes(const std::string& bytes, std::size_t& position) {
    record item;
    std::memcpy(&item, bytes.data() + position, sizeof item);
    position += sizeof item;
    return item;
}

std::string bytes_of(const answered_run& run, const std::vector<int>& known, int fold) {
    std::string bytes;
    append_bytes(bytes, outcome_of(run, fold));
    for (const judged_direction& item : judge(run, known, fold)) {
        append_bytes(bytes, item);
    }
    return bytes;
}

void evaluate_folds(const input_files& input, const network_record& network, const evaluation_choices& choices,
                    evaluation& made) {
    const std::vector<int> folds = draw_folds(made.known.size(), choices.folds, choices.seed);
    answer_choices run = choices.run;
    run.output.reset();
    run.jobs = 1;
    run.report = [](int, int) {};
    const auto task = [&](int fold) {
        std::vector<char> hidden(folds.size());
        for (std::size_t i = 0; i < folds.size(); ++i) {
            hidden[i] = folds[i] == fold ? 1 : 0;
        }
        const hidden_input files = hide(input, network, hidden);
        return bytes_of(run_quietly(files.input, run), files.known, fold + 1);
    };
    const auto results = run_in_processes(
        choices.folds, task,
        {.jobs = choices.run.jobs, .stop_requested = choices.run.stop_requested, .report = choices.report});
    for (const std::optional<std::string>& bytes : results) {
        if (bytes) {
            std::size_t position = 0;
            made.runs.push_back(take_bytes<evaluated_run>(*bytes, position));
            while (position < bytes->size()) {
                made.judged.push_back(take_bytes<judged_direction>(*bytes, position));
            }
        }
    }
}

}  // namespace

evaluation evaluate(const input_files& input, const evaluation_choices& choices) {
    evaluation made;
    const network_record network = read_network(input, made.messages);
    made.known = known_directions(network);
    if (choices.way == way_of_hiding::folds) {
        evaluate_folds(input, network, choices, made);
        return made;
    }
    if (choices.way == way_of_hiding::given) {
        std::vector<int> known;
        for (std::size_t i = 0; i < made.known.size() && made.known[i].file == interaction_file::test; ++i) {
            known.push_back(static_cast<int>(i));
        }
        made.run = run_quietly(input, choices.run);
        made.judged = judge(*made.run, known, 1);
    } else {
        const hidden_input hidden = hide(input, network, std::vector<char>(made.known.size(), 1));
        made.run = run_quietly(hidden.input, choices.run);
        made.judged = judge(*made.run, hidden.known, 1);
        name_true_lines(*made.run, hidden);
    }
    made.runs.push_back(outcome_of(*made.run, 1));
    return made;
}
