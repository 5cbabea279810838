#include "support/program.hpp"

#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>
#include <fstream>
#include <sstream>

std::string program_path() {
    return NETORIENT_PROGRAM;
}

std::string tools_program() {
    return NETORIENT_TOOLS;
}

program_test::program_test() {
    std::string pattern = std::filesystem::temp_directory_path() / "netorient.XXXXXX";
    folder = mkdtemp(pattern.data());
}

program_test::~program_test() {
    std::filesystem::remove_all(folder);
}

void program_test::write(const std::string& path, const std::string& text) const {
    std::filesystem::create_directories((folder / path).parent_path());
    std::ofstream(folder / path, std::ios::binary) << text;
}

std::string program_test::read(const std::string& path) const {
    std::ostringstream text;
    text << std::ifstream(folder / path, std::ios::binary).rdbuf();
    return text.str();
}

program_result program_test::run_program(std::vector<std::string> arguments, std::string program) const {
    return finish_program(start_program(std::move(arguments), std::move(program)));
}

pid_t program_test::start_program(std::vector<std::string> arguments, std::string program, int error_stream,
                                  int output_stream) const {
    arguments.insert(arguments.begin(), program.empty() ? program_path() : program);
    std::vector<char*> argv;
    for (std::string& argument : arguments) {
        argv.push_back(argument.data());
    }
    argv.push_back(nullptr);
    const pid_t child = fork();
    if (child == 0) {
        if (chdir(folder.c_str()) == 0) {
            dup2(output_stream >= 0 ? output_stream : creat("stdout", 0600), STDOUT_FILENO);
            dup2(error_stream >= 0 ? error_stream : creat("stderr", 0600), STDERR_FILENO);
            execv(argv[0], argv.data());
        }
        _exit(127);
    }
    return child;
}

program_result program_test::finish_program(pid_t process) const {
    int status = 0;
    for (int waits = 0; waitpid(process, &status, WNOHANG) == 0; ++waits) {
        if (waits == 12000) {
            ADD_FAILURE() << "the program hangs";
            kill(process, SIGKILL);
        }
        usleep(10'000);
    }
    return {.exit_status = WIFEXITED(status) ? WEXITSTATUS(status) : -1,
            .signal = WIFSIGNALED(status) ? WTERMSIG(status) : 0,
            .out = read("stdout"),
            .err = read("stderr")};
}
