#include "tools/run_options.hpp"

#include <unistd.h>

#include <charconv>
#include <ctime>
#include <filesystem>
#include <thread>

#include "tables/unusable_input.hpp"
#include "tools/version.hpp"

namespace {

CLI::Validator duration() {
    return {[](const std::string& text) {
                return seconds_of(text) ? std::string() : "'" + text + "' is no time like 30s, 10m or 2h";
            },
            ""};
}

}  // namespace

void add_run_options(CLI::App& command, run_options& options) {
    command.add_option("INPUT", options.input, "Folder with names.txt, test, directed, undirected and ko")->required();
    command.add_option("OUTPUT", options.output, "Folder for what is written; made when it is not there")->required();
    command.add_option("--time-limit", options.time_limit, "End the solve after this time (30s, 10m, 2h)")
        ->check(duration())
        ->type_name("TIME");
    command.add_option("--regret-time", options.regret_time, "The same for regrets and prices")
        ->check(duration())
        ->type_name("TIME");
    command.add_flag("--no-regret", options.no_regret, "Leave regrets and prices out");
    command.add_option("--jobs", options.jobs, "Processors to use; results do not depend on it")
        ->check(CLI::Range(1, 1024).name(""))
        ->type_name("N");
}

answer_choices choices_of(const run_options& options) {
    answer_choices choices;
    choices.time_limit = seconds_of(options.time_limit);
    choices.with_regrets = !options.no_regret;
    choices.regret_time = seconds_of(options.regret_time);
    choices.jobs = options.jobs > 0 ? options.jobs : std::max(1, static_cast<int>(std::thread::hardware_concurrency()));
    return choices;
}

std::string output_folder(const std::string& path) {
    std::string folder = path.ends_with('/') ? path : path + "/";
    std::error_code error;
    std::filesystem::create_directory(folder, error);
    if (error) {
        throw unusable_input(folder + ": cannot be made: " + error.message());
    }
    if (!std::filesystem::is_directory(folder, error) || ::access(folder.c_str(), W_OK | X_OK) != 0) {
        throw unusable_input(folder + ": nothing can be written there");
    }
    return folder;
}

std::optional<double> seconds_of(const std::string& text) {
    double number = 0.0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const std::string unit(end, text.data() + text.size());
    const double seconds = unit == "s" ? 1.0 : unit == "m" ? 60.0 : unit == "h" ? 3600.0 : 0.0;
    if (error != std::errc() || seconds == 0.0 || !(number >= 0.0)) {
        return std::nullopt;
    }
    return number * seconds;
}

run_clock::run_clock(std::vector<std::string> arguments) : arguments_(std::move(arguments)) {
    const std::time_t now = std::time(nullptr);
    std::tm parts{};
    gmtime_r(&now, &parts);
    char text[32];
    started_.assign(text, std::strftime(text, sizeof text, "%Y-%m-%dT%H:%M:%SZ", &parts));
}

provenance run_clock::now() const {
    const std::chrono::duration<double> passed = std::chrono::steady_clock::now() - start_;
    return {netorient_version, arguments_, started_, passed.count()};
}
