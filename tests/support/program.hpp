// Tests of the real program, each in a folder of its own.
#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include <gtest/gtest.h>

struct program_result {
    int exit_status = -1;  // -1 when a signal ended the program
    int signal = 0;
    std::string out;
    std::string err;
};

// Paths of netorient and netorient-tools, as programs to run.
std::string program_path();
std::string tools_program();

class program_test : public testing::Test {
 protected:
    program_test();
    ~program_test() override;

    // Paths are relative to the folder; folders in between are made.
    void write(const std::string& path, const std::string& text) const;
    std::string read(const std::string& path) const;
    bool exists(const std::string& path) const { return std::filesystem::exists(folder / path); }
    // Runs inside the folder; without a path given, the program itself.
    program_result run_program(std::vector<std::string> arguments, std::string program = {}) const;
    // The two halves of that. Streams given here take the place of standard error's and
    // standard output's file. What does not end in two minutes is killed.
    pid_t start_program(std::vector<std::string> arguments, std::string program = {}, int error_stream = -1,
                        int output_stream = -1) const;
    program_result finish_program(pid_t process) const;

    std::filesystem::path folder;
};
