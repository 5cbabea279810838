#include <iostream>
#include <memory>
#include <system_error>

#include "export/formats.hpp"
#include "results/read_results.hpp"
#include "tables/whole_file.hpp"
#include "tools/commands.hpp"

namespace {

struct export_arguments {
    std::string folder;
    std::string file;
    std::string format;
    std::vector<std::string> part;
    std::vector<std::string> pair;
    int neighbourhood = 0;
};

network_format chosen_format(const export_arguments& arguments) {
    const bool is_given = !arguments.format.empty();
    const auto format = is_given ? format_named(arguments.format) : format_of_file(arguments.file);
    if (!format) {
        throw CLI::ValidationError(
            "FILE", "no format of this name: end it with .cx2, .graphml, .sif, .tsv or .dot, or give --format");
    }
    return *format;
}

selection chosen_part(const export_arguments& arguments, const results::answer& answer) {
    selection chosen;
    chosen.neighbourhood = arguments.neighbourhood;
    for (const std::string& name : arguments.part) {
        chosen.part.push_back(results::find_protein(answer, name));
    }
    if (!arguments.pair.empty()) {
        const std::size_t cause = results::find_protein(answer, arguments.pair[0]);
        chosen.pair = results::named_pair(cause, results::find_protein(answer, arguments.pair[1]));
    }
    return chosen;
}

void put(const std::string& path, const std::string& text) {
    if (path != "-") {
        write_whole_file(path, text);
    } else if (!std::cout.write(text.data(), static_cast<std::streamsize>(text.size())).flush()) {
        throw std::system_error(errno, std::generic_category(), "standard output could not be written");
    }
}

void run(const export_arguments& arguments) {
    if (arguments.neighbourhood > 0 && arguments.part.empty() && arguments.pair.empty()) {
        throw CLI::ValidationError("--neighbourhood", "needs --part or --pair to be around");
    }
    const network_format format = chosen_format(arguments);
    const results::answer answer = results::read_answer(arguments.folder);
    const subnetwork network = choose(answer, chosen_part(arguments, answer));
    put(arguments.file, network_text(answer, network, format));
    std::cerr << "netorient-tools: " << network.proteins.size() << " proteins, " << network.interactions.size()
              << " interactions exported\n";
}

}  // namespace

void add_export_command(CLI::App& app) {
    const auto arguments = std::make_shared<export_arguments>();
    CLI::App* command = app.add_subcommand("export", "The oriented network as a file for other programs");
    command->add_option("OUTPUT", arguments->folder, "folder that orient has written")->required();
    command->add_option("FILE", arguments->file, "file to write; - for standard output")->required();
    command->add_option("--format", arguments->format, "overrules the end of FILE's name")
        ->check(CLI::IsMember({"cx2", "graphml", "sif", "tsv", "dot"}));
    command->add_option("--part", arguments->part, "only these proteins and what joins them")->type_name("PROTEIN...");
    command->add_option("--pair", arguments->pair, "only the open shortest paths from a cause to an effect")
        ->expected(2)
        ->type_name("CAUSE EFFECT");
    command->add_option("--neighbourhood", arguments->neighbourhood, "and what is within K steps, either way")
        ->type_name("K")
        ->check(CLI::PositiveNumber);
    command->callback([arguments] { run(*arguments); });
}
