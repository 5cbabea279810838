// The subcommands of netorient-tools. Each reads its arguments, calls rooms in order,
// and prints.
#pragma once

#include <string>
#include <vector>

#include <CLI/CLI.hpp>

enum exit_status { exit_done = 0, exit_wrong_usage = 1, exit_unusable_input = 2, exit_lines_lost = 3 };

// Each adds a subcommand whose callback does the job; the callback sets the status when
// it ends otherwise than done, or throws.
void add_check_command(CLI::App& app, int& status);
void add_import_command(CLI::App& app);
// Arguments are the program's own, subcommand first.
void add_orient_command(CLI::App& app, const std::vector<std::string>& arguments);
void add_evaluate_command(CLI::App& app, const std::vector<std::string>& arguments);
void add_export_command(CLI::App& app);
void add_report_command(CLI::App& app);
