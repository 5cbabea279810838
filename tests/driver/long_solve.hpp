// The real program on a network whose best orientation takes longer to find than
// anybody waits.
#pragma once

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdint>
#include <fstream>
#include <string>
#include <thread>

#include "support/program.hpp"

class long_solve_test : public program_test {
 protected:
    using clock_type = std::chrono::steady_clock;

    void SetUp() override {
        run_program({"in/", "proteins=2000", "directed=500", "undirected=4000", "test=500", "pairs=7000", "noise=0.6",
                     "max_distance=8"},
                    NETORIENT_GENERATE);
        write("out/keep", "");
    }

    // Looks every few milliseconds. False when nothing came of it in a minute.
    template <typename condition>
    static bool comes_true(const condition& holds) {
        const auto start = clock_type::now();
        while (!holds()) {
            if (clock_type::now() - start > std::chrono::seconds(60)) {
                return false;
            }
            std::this_thread::sleep_for(std::chrono::milliseconds(5));
        }
        return true;
    }

    // Whether a signal is in one of the sets of /proc/PID/status: SigCgt (it has a handler), SigIgn.
    static bool has_signal(pid_t process, const std::string& set, int signal_number) {
        std::ifstream status("/proc/" + std::to_string(process) + "/status");
        for (std::string line; std::getline(status, line);) {
            if (line.starts_with(set + ":")) {
                return (std::stoull(line.substr(set.size() + 1), nullptr, 16) >> (signal_number - 1) & 1) != 0;
            }
        }
        return false;
    }

    bool has_written(const std::string& path, const std::string& end) const { return read(path).ends_with(end); }

    // Starts the program and waits until the model is written, which is right before it solves.
    pid_t start_solving(const std::string& program = {}, int error_stream = -1, int output_stream = -1) {
        std::filesystem::remove(folder / "out/shortest.lp");
        std::filesystem::remove(folder / "out/solution_graph.txt");
        const auto start = clock_type::now();
        const pid_t process = start_program({"in/", "out/"}, program, error_stream, output_stream);
        EXPECT_TRUE(comes_true([&] { return has_written("out/shortest.lp", "\nEnd\n"); }));
        preparation = clock_type::now() - start;
        return process;
    }

    // The program has ended with the best so far, and has left all of it.
    void expect_feasible(const program_result& result) const {
        EXPECT_EQ(result.exit_status, 0);
        EXPECT_EQ(result.err, "");
        int value = 0;
        int size = 0;
        std::sscanf(result.out.c_str(), "Solution status = Feasible\nSolution value  = %d\ncplex solver finished\n%n",
                    &value, &size);
        EXPECT_TRUE(value > 0 && value < 7000 && size == static_cast<int>(result.out.size())) << result.out;
        EXPECT_TRUE(has_written("out/shortest.lp", "\nEnd\n"));
        EXPECT_TRUE(has_written("out/solution_graph.txt", "\n}\n"));
        // Test arcs that lost are gone.
        EXPECT_LT(read("out/solution_graph.txt").size(), read("out/initial_graph.txt").size());
    }

    // Sends the signal and sees the program end as it should.
    void interrupt(pid_t process, int signal_number) const {
        const auto sent = clock_type::now();
        kill(process, signal_number);
        const program_result result = finish_program(process);
        EXPECT_LT(clock_type::now() - sent, limit());
        expect_feasible(result);
    }

    // Two seconds, and more where the machine is so slow that this holds up everything.
    clock_type::duration limit() const {
        return std::max<clock_type::duration>(std::chrono::seconds(2), 8 * preparation);
    }

    clock_type::duration preparation{};  // what reading and making the model took, of the last start_solving
};
