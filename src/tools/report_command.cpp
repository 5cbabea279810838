#include <iostream>
#include <memory>

#include "pages/report_page.hpp"
#include "results/read_results.hpp"
#include "tables/whole_file.hpp"
#include "tools/commands.hpp"

namespace {

struct report_arguments {
    std::string folder;
    std::string file;
};

void run(const report_arguments& arguments) {
    const results::answer answer = results::read_answer(arguments.folder);
    const auto left_behind = [&](const char* file) {
        return results::read_json(results::path_in(arguments.folder, file));
    };
    const report_extras extras = {.run = left_behind("run.json"),
                                  .evaluation = left_behind("evaluation.json"),
                                  .check = left_behind("check.json")};
    const std::string page = report_page(answer, extras);
    const std::string file =
        arguments.file.empty() ? results::path_in(arguments.folder, "report.html") : arguments.file;
    write_whole_file(file, page);
    std::cerr << "netorient-tools: " << file << " written, " << page.size() / 1024 << " KiB\n";
}

}  // namespace

void add_report_command(CLI::App& app) {
    const auto arguments = std::make_shared<report_arguments>();
    CLI::App* command = app.add_subcommand("report", "The answer as one HTML file to look at, offline");
    command->add_option("OUTPUT", arguments->folder, "folder that orient has written")->required();
    command->add_option("-o,--output", arguments->file, "file to write (default: report.html in OUTPUT)");
    command->callback([arguments] { run(*arguments); });
}
