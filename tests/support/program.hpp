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

// Path of netorient-tools, as a program to run.
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
    // The two halves of that. A stream given here takes the place of standard error's file.
    pid_t start_program(std::vector<std::string> arguments, std::string program = {}, int error_stream = -1) const;
    program_result finish_program(pid_t process) const;

    std::filesystem::path folder;
};
