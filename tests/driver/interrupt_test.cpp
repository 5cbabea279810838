// The real program on a network whose best orientation takes longer to find than
// anybody waits: interrupted, and watched on a terminal.
#include <fcntl.h>
#include <pty.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <fstream>
#include <regex>
#include <thread>

#include "support/program.hpp"

namespace {

using namespace std::chrono_literals;
using clock_type = std::chrono::steady_clock;

// True while the process has handlers of its own, which is while it solves.
bool catches_signals(pid_t process) {
    std::ifstream status("/proc/" + std::to_string(process) + "/status");
    for (std::string line; std::getline(status, line);) {
        if (line.starts_with("SigCgt:")) {
            return (std::stoull(line.substr(7), nullptr, 16) >> (SIGTERM - 1) & 1) != 0;
        }
    }
    return false;
}

class interrupt_test : public program_test {
 protected:
    void SetUp() override {
        run_program({"in/", "proteins=2000", "directed=500", "undirected=4000", "test=500", "pairs=7000", "noise=0.6",
                     "max_distance=8"},
                    NETORIENT_GENERATE);
        write("out/keep", "");
    }

    pid_t start_solving(const std::string& program = {}, int error_stream = -1) const {
        const pid_t process = start_program({"in/", "out/"}, program, error_stream);
        for (const auto start = clock_type::now(); !catches_signals(process) && clock_type::now() - start < 60s;) {
            std::this_thread::sleep_for(5ms);
        }
        return process;
    }

    // Sends the signal and sees the program end as it should.
    void interrupt(pid_t process, int signal_number) const {
        const auto sent = clock_type::now();
        kill(process, signal_number);
        const program_result result = finish_program(process);
        EXPECT_LT(clock_type::now() - sent, 2s);
        EXPECT_EQ(result.exit_status, 0);
        EXPECT_EQ(result.err, "");
        int value = 0;
        ASSERT_EQ(std::sscanf(result.out.c_str(), "Solution status = Feasible\nSolution value  = %d\ncplex", &value),
                  1);
        EXPECT_TRUE(value > 0 && value < 7000) << value;
        EXPECT_TRUE(read("out/shortest.lp").ends_with("\nEnd\n"));
        const std::string solution = read("out/solution_graph.txt");
        EXPECT_TRUE(solution.ends_with("\n}\n"));
        EXPECT_LT(solution.size(), read("out/initial_graph.txt").size());  // test arcs that lost are gone
    }
};

}  // namespace

TEST_F(interrupt_test, ends_with_the_best_so_far) {
    const std::tuple<std::string, int, std::chrono::milliseconds> cases[] = {
        {"", SIGINT, 0ms}, {"", SIGTERM, 1500ms}, {PLAIN_PROGRAM, SIGTERM, 0ms}, {PLAIN_PROGRAM, SIGINT, 4s}};
    for (const auto& [program, signal_number, delay] : cases) {
        const pid_t process = start_solving(program);
        std::this_thread::sleep_for(delay);
        interrupt(process, signal_number);
    }
}

TEST_F(interrupt_test, shows_its_progress_on_a_terminal) {
    int terminal = -1;
    int program_side = -1;
    ASSERT_EQ(openpty(&terminal, &program_side, nullptr, nullptr, nullptr), 0);
    const pid_t process = start_solving({}, program_side);
    std::this_thread::sleep_for(2500ms);
    interrupt(process, SIGINT);

    std::string shown(1 << 16, '\0');
    fcntl(terminal, F_SETFL, O_NONBLOCK);
    shown.resize(static_cast<std::size_t>(std::max<ssize_t>(0, ::read(terminal, shown.data(), shown.size()))));
    close(program_side);
    close(terminal);
    const std::string line = "\r\x1b\\[K\\d+ s: \\d+ pairs, bound (\\d+|-), gap (\\d+\\.\\d|-) %, [a-z ]+";
    EXPECT_TRUE(std::regex_match(shown, std::regex("(" + line + "){2,20}\r\x1b\\[K"))) << shown;
    EXPECT_NE(shown.find("\r\x1b[K2 s: "), std::string::npos) << shown;
}
