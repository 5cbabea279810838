// netorient-tools orient: the run, and what its answer rests on.
#include <memory>

#include "process/interruption.hpp"
#include "tools/commands.hpp"
#include "tools/run_options.hpp"
#include "tools/work_progress.hpp"

namespace {

void orient(const run_options& options, const std::vector<std::string>& arguments) {
    const run_clock clock(arguments);
    const input_files input = read_input_files(options.input);
    const std::string output = output_folder(options.output);
    remove_answer(output);

    outlive_failed_writes();
    const interruption& signals = lasting_interruption();
    work_progress progress("regrets and prices");
    answer_choices choices = choices_of(options);
    choices.stop_requested = [&] {
        progress.renew();
        return signals.requested();
    };
    choices.report = [&](int settled, int all) { progress.set(settled, all); };
    choices.output = output;
    const answered_run run = answer_run(input, choices);
    hold_answer();
    write_answer(output, input, run, clock.now());
}

}  // namespace

void add_orient_command(CLI::App& app, const std::vector<std::string>& arguments) {
    CLI::App* command = app.add_subcommand(
        "orient", "Orient a network, with tables of every interaction and every knockout pair and what they rest on");
    const auto options = std::make_shared<run_options>();
    add_run_options(*command, *options);
    command->callback([options, arguments] { orient(*options, arguments); });
}
