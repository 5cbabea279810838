#include <exception>
#include <iostream>
#include <new>

#include "tables/unusable_input.hpp"
#include "tools/commands.hpp"
#include "tools/version.hpp"

namespace {

int tell(const char* what, int status) {
    std::cout.flush();
    std::cerr << "netorient-tools: " << what << '\n';
    return status;
}

int run_command(int argc, char** argv) {
    CLI::App app("Around netorient: what its answer rests on, how often it is right, files from and to other tools");
    app.name("netorient-tools");
    app.set_version_flag("--version", std::string("netorient-tools ") + netorient_version);
    app.require_subcommand(1);
    const std::vector<std::string> arguments(argv + 1, argv + argc);
    int status = exit_done;
    add_check_command(app, status);
    add_import_command(app);
    add_orient_command(app, arguments);
    add_evaluate_command(app, arguments);
    add_export_command(app);
    add_report_command(app);
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        status = app.exit(error) == 0 ? exit_done : exit_wrong_usage;
    }
    return status;
}

}  // namespace

int main(int argc, char** argv) {
    try {
        return run_command(argc, argv);
    } catch (const std::bad_alloc&) {
        return tell("out of memory", exit_unusable_input);
    } catch (const std::exception& error) {
        return tell(error.what(), exit_unusable_input);
    }
}
