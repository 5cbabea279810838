// netorient-tools evaluate: how often directions are right.
#include <algorithm>
#include <iostream>
#include <memory>

#include "evaluation/evaluation_tables.hpp"
#include "process/interruption.hpp"
#include "tables/whole_file.hpp"
#include "tools/commands.hpp"
#include "tools/run_options.hpp"
#include "tools/work_progress.hpp"

namespace {

struct evaluate_options {
    run_options run;
    std::string way = "all";
    int folds = 10;
    std::uint64_t seed = 1;
};

// The files of the run itself. With all directions hidden it is another network than the
// user's, so that its files stand apart from those that orient leaves.
std::string folder_of_run(const std::string& output, way_of_hiding way) {
    return way == way_of_hiding::all ? output_folder(output + "all_hidden/") : output;
}

// The line on the terminal is gone when this returns.
evaluation evaluate_watched(const input_files& input, evaluation_choices& choices, const interruption& signals) {
    work_progress regrets("regrets and prices");
    work_progress folds("folds");
    choices.run.stop_requested = [&] {
        regrets.renew();
        return signals.requested();
    };
    choices.run.report = [&](int settled, int all) { regrets.set(settled, all); };
    choices.report = [&](int done, int all) {
        folds.set(done, all);
        folds.renew();
    };
    return evaluate(input, choices);
}

void evaluate(const evaluate_options& options, const std::vector<std::string>& arguments) {
    const run_clock clock(arguments);
    const input_files input = read_input_files(options.run.input);
    const std::string output = output_folder(options.run.output);

    outlive_failed_writes();
    const interruption& signals = lasting_interruption();
    evaluation_choices choices;
    choices.way =
        static_cast<way_of_hiding>(std::find(way_names.begin(), way_names.end(), options.way) - way_names.begin());
    choices.folds = options.folds;
    choices.seed = options.seed;
    choices.run = choices_of(options.run);
    if (choices.way != way_of_hiding::folds) {
        choices.run.output = folder_of_run(output, choices.way);
        remove_answer(*choices.run.output);
    }
    const evaluation made = evaluate_watched(input, choices, signals);
    hold_answer();
    std::cerr << made.messages;
    if (made.run) {
        write_answer(*choices.run.output, input, *made.run, clock.now());
    }
    const evaluation_summary summary = summarize(made.judged);
    write_whole_file(output + "evaluation.tsv", evaluation_table(made));
    write_whole_file(output + "evaluation.json",
                     json_text(evaluation_json(made, summary, choices, clock.now(), input)));
    std::cout << evaluation_text(summary, made, choices);
}

}  // namespace

void add_evaluate_command(CLI::App& app, const std::vector<std::string>& arguments) {
    CLI::App* command = app.add_subcommand(
        "evaluate",
        "Hide known directions, find them again, and say how often they are right, beside simple baselines");
    const auto options = std::make_shared<evaluate_options>();
    add_run_options(*command, options->run);
    command
        ->add_option("--hide", options->way,
                     "Known directions to hide: all at once, folds (a run each), or given in test")
        ->check(CLI::IsMember(std::vector<std::string>(way_names.begin(), way_names.end())))
        ->type_name("WAY")
        ->capture_default_str();
    command->add_option("--folds", options->folds, "Number of folds")
        ->check(CLI::Range(2, 1000).name(""))
        ->type_name("N")
        ->capture_default_str();
    command->add_option("--seed", options->seed, "By which folds are drawn")->type_name("N")->capture_default_str();
    command->callback([options, arguments] { evaluate(*options, arguments); });
}
