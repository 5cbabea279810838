#include <iostream>
#include <memory>

#include "importing/import_network.hpp"
#include "process/interruption.hpp"
#include "process/renewed_line.hpp"
#include "tables/unusable_input.hpp"
#include "tools/commands.hpp"
#include "tools/version.hpp"

namespace {

struct import_arguments {
    import_plan plan;
    std::vector<std::string> columns;
    std::vector<std::string> knockout_columns;
    std::vector<std::string> conditions;
    double min_confidence = 0;
    std::string default_direction = "undirected";
    std::string names = "symbol";
    std::string match = "exact";
    std::string input;
};

// "first=gene_a" for each of the roles.
std::map<std::string, std::string> read_columns(const std::vector<std::string>& columns, const char* option,
                                                const std::vector<std::string>& roles) {
    std::map<std::string, std::string> by_role;
    for (const std::string& column : columns) {
        const std::size_t sign = column.find('=');
        const std::string role = column.substr(0, sign);
        const bool is_known = std::find(roles.begin(), roles.end(), role) != roles.end();
        if (sign == std::string::npos || sign + 1 == column.size() || !is_known) {
            std::string known;
            for (const std::string& name : roles) {
                known.append(known.empty() ? "" : ", ").append(name).append("=COLUMN");
            }
            throw CLI::ValidationError(option, std::string("'").append(column).append("' is none of ").append(known));
        }
        by_role[role] = column.substr(sign + 1);
    }
    return by_role;
}

import_result import_watched(const import_plan& plan) {
    renewed_line line;
    return import_network(plan, [&](const std::string& what, int done, int all) {
        line.renew([&](long seconds) { return bar_text(seconds, what, done, all); });
    });
}

void import_files(import_arguments& arguments, const CLI::App& command) {
    import_plan& plan = arguments.plan;
    plan.interactions.columns =
        read_columns(arguments.columns, "--columns", {"first", "second", "direction", "confidence"});
    plan.knockouts.columns = read_columns(arguments.knockout_columns, "--knockout-columns", {"cause", "effect"});
    for (const std::string& text : arguments.conditions) {
        try {
            plan.knockouts.conditions.push_back(read_condition(text));
        } catch (const unusable_input& error) {
            throw CLI::ValidationError("--where", error.what());
        }
    }
    if (command.count("--min-confidence") > 0) {
        plan.interactions.min_confidence = arguments.min_confidence;
    }
    plan.interactions.is_directed_by_default = arguments.default_direction == "directed";
    plan.interactions.names = arguments.names == "symbol" ? name_kind::symbol
                              : arguments.names == "id"   ? name_kind::id
                                                          : name_kind::systematic;
    plan.match_loosely = arguments.match == "loose";
    const import_result result = import_watched(plan);
    {
        // Until here a signal ends the program with nothing written; from here on files that
        // belong together are moved one by one.
        const interruption signals;
        hold_answer();
        write_import(arguments.input, plan, result, netorient_version);
    }
    std::cout << import_text(plan, result);
}

}  // namespace

void add_import_command(CLI::App& app) {
    CLI::App* command = app.add_subcommand("import", "Write the five input files from files in other formats");
    const auto arguments = std::make_shared<import_arguments>();
    import_plan& plan = arguments->plan;
    command->add_option("INPUT", arguments->input, "Folder to write, made if it is not there")->required();

    const auto add = [&](const char* name, auto& value, const char* about, const char* group) {
        return command->add_option(name, value, about)->group(group);
    };
    const char* const interactions = "Interactions";
    add("--interactions", plan.interaction_files, "Files, plain or gzipped", interactions)->required();
    add("--format", plan.interactions.format, "Their format, if it is not to be found by itself", interactions)
        ->check(CLI::IsMember({"sif", "delimited", "psi-mitab", "omnipath", "biogrid", "string"}));
    add("--columns", arguments->columns, "first=COLUMN,second=COLUMN,direction=COLUMN,confidence=COLUMN", interactions)
        ->delimiter(',')
        ->allow_extra_args(false);
    add("--min-confidence", arguments->min_confidence, "Take none below", interactions);
    add("--organism", plan.interactions.organism, "Take one organism's, by its taxon number", interactions);
    add("--names", arguments->names, "Which names, where a format has several: symbol, id, systematic", interactions)
        ->check(CLI::IsMember({"symbol", "id", "systematic"}));
    add("--directed", plan.interactions.directed,
        "Words (relations, methods, values of the direction column) that make an interaction directed, all others not",
        interactions)
        ->delimiter(',')
        ->allow_extra_args(false);
    add("--default-direction", arguments->default_direction, "What one is whose file does not say", interactions)
        ->check(CLI::IsMember({"directed", "undirected"}));
    add("--aliases", plan.interactions.aliases, "STRING's files of names: aliases, info", interactions);
    add("--alias-source", plan.interactions.alias_source, "The source of names in an aliases file", interactions);
    command->add_flag("--with-genetic", plan.interactions.with_genetic, "BioGRID: genetic interactions, too")
        ->group(interactions);

    const char* const knockouts = "Knockouts";
    add("--knockouts", plan.knockout_files, "Files, plain or gzipped", knockouts)->required();
    add("--knockout-format", plan.knockouts.format, "A table of pairs, or a matrix of effects by causes", knockouts)
        ->check(CLI::IsMember({"delimited", "matrix"}));
    add("--knockout-columns", arguments->knockout_columns, "cause=COLUMN,effect=COLUMN", knockouts)
        ->delimiter(',')
        ->allow_extra_args(false);
    add("--where", arguments->conditions, "Take what meets it: 'padj<=0.05', '|log2fc|>=1', '|value|>=1' in a matrix",
        knockouts)
        ->allow_extra_args(false);

    const char* const network = "Network";
    add("--match", arguments->match, "loose: names that differ in case, dashes, blanks or version alone are one",
        network)
        ->check(CLI::IsMember({"exact", "loose"}));
    command->add_flag("--prune", plan.prune, "Leave out what lies on no shortest path of a pair")->group(network);
    add("--hide", plan.hide, "Known directions to hide as test interactions: a number, or a share as 0.1 or 10%",
        network);
    add("--seed", plan.seed, "For drawing them", network);
    command->callback([arguments, command] { import_files(*arguments, *command); });
}
