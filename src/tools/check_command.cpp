#include <iostream>
#include <limits>
#include <memory>

#include "checking/check_input.hpp"
#include "process/renewed_line.hpp"
#include "tables/unusable_input.hpp"
#include "tools/commands.hpp"

namespace {

struct check_arguments {
    std::string input;
    bool all = false;
    bool as_json = false;
};

input_check check_watched(const input_opener& open_input) {
    renewed_line line;
    return check_input(open_input, [&](int done, int all) {
        line.renew([&](long seconds) { return bar_text(seconds, "pairs searched for a path", done, all); });
    });
}

int check_folder(const check_arguments& arguments) {
    const std::string folder = arguments.input + (arguments.input.ends_with('/') ? "" : "/");
    bool any_opened = false;
    const input_check check = check_watched([&](const char* name) {
        text_file file = open_text_file(folder + name);
        any_opened = any_opened || file.opened;
        return file;
    });
    if (!any_opened) {
        throw unusable_input(arguments.input + ": none of the five input files can be opened");
    }
    const std::size_t shown = arguments.all ? std::numeric_limits<std::size_t>::max() : 10;
    std::cout << (arguments.as_json ? check_json(check, shown) : check_text(check, shown));
    return check.is_clean() ? exit_done : exit_lines_lost;
}

}  // namespace

void add_check_command(CLI::App& app, int& status) {
    CLI::App* command = app.add_subcommand("check", "Say what a run would make of the five input files, and why");
    const auto arguments = std::make_shared<check_arguments>();
    command->add_option("INPUT", arguments->input, "Folder of the five files")->required();
    command->add_flag("--all", arguments->all,
                      "Show all line numbers, names and pairs, not only the first ten of a kind");
    command->add_flag("--json", arguments->as_json, "Write JSON instead of text");
    command->footer("Exit status 3 when a line is lost or a name is unknown.");
    command->callback([arguments, &status] { status = check_folder(*arguments); });
}
