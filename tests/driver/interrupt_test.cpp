// Signals at every time of a run: what they end, and that no answer is lost to them.
#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <tuple>

#include "driver/long_solve.hpp"
#include "driver/run.hpp"

using namespace std::chrono_literals;

namespace {

class interrupt_test : public long_solve_test {
 protected:
    // A file that only gives its bytes once they are written into it.
    void make_pipe(const std::string& path) const {
        std::filesystem::remove(folder / path);
        ASSERT_EQ(mkfifo((folder / path).c_str(), 0600), 0);
    }

    pid_t start_reading_a_pipe() const {
        const pid_t process = start_program({"in/", "out/"});
        EXPECT_TRUE(comes_true([&] { return has_signal(process, "SigCgt", SIGTERM); }));
        return process;
    }
};

constexpr auto past_the_burst = 1050ms;
constexpr auto past_patience = 1750ms;  // of a signal with the work before the solve

}  // namespace

TEST_F(interrupt_test, ends_with_the_best_so_far) {
    const std::tuple<std::string, int, std::chrono::milliseconds> cases[] = {
        {"", SIGINT, 0ms},  {"", SIGTERM, 1500ms}, {PLAIN_PROGRAM, SIGTERM, 0ms}, {PLAIN_PROGRAM, SIGINT, 4s},
        {"", SIGHUP, 50ms}, {"", SIGXCPU, 50ms},   {"", SIGUSR1, 50ms},           {"", SIGUSR2, 50ms}};
    for (const auto& [program, signal_number, delay] : cases) {
        const pid_t process = start_solving(program);
        std::this_thread::sleep_for(delay);
        interrupt(process, signal_number);
    }
}

TEST_F(interrupt_test, takes_a_burst_of_signals_as_one_wish) {
    for (const auto gap : {0ms, 10ms, 50ms, 300ms}) {
        for (const int second : {SIGTERM, SIGINT}) {
            const pid_t process = start_solving();
            kill(process, SIGTERM);
            std::this_thread::sleep_for(gap);
            interrupt(process, second);
        }
    }
}

// It signals the program and then its group, at any time of the run.
TEST_F(interrupt_test, loses_nothing_to_timeout) {
    for (int run = 1; run <= 20; ++run) {
        std::filesystem::remove_all(folder / "out");
        write("out/keep", "");
        const std::string command =
            "exec timeout --preserve-status " + std::to_string(0.05 * run) + " " + program_path() + " in/ out/";
        expect_feasible(run_program({"-c", command}, "/bin/sh"));
    }
}

TEST_F(interrupt_test, remembers_a_signal_that_comes_before_the_solve) {
    const std::string names = read("in/names.txt");
    make_pipe("in/names.txt");
    const pid_t process = start_reading_a_pipe();
    kill(process, SIGTERM);
    write("in/names.txt", names);
    const auto fed = clock_type::now();
    ASSERT_TRUE(comes_true([&] { return has_written("out/shortest.lp", "\nEnd\n"); }));
    const auto solving = clock_type::now();
    preparation = solving - fed;
    expect_feasible(finish_program(process));
    EXPECT_LT(clock_type::now() - solving, limit());
}

TEST_F(interrupt_test, ends_by_the_signal_where_it_is_too_early_for_an_answer) {
    const std::string knockouts = read("in/ko");
    make_pipe("in/ko");
    write("out/solution_graph.txt", "old");
    const pid_t process = start_reading_a_pipe();
    kill(process, SIGUSR1);
    std::this_thread::sleep_for(past_patience);
    write("in/ko", knockouts);
    const program_result result = finish_program(process);
    EXPECT_EQ(result.signal, SIGUSR1);
    EXPECT_EQ(result.out, "ERROR: ended by a signal before the model was made: nothing is answered\n");
    EXPECT_FALSE(exists("out/initial_graph.txt"));
}

// Asked to leave off while it reads, marks, makes the record, writes the model.
TEST_F(interrupt_test, leaves_no_file_that_is_not_whole_wherever_it_is_cut) {
    const auto questions_of_a_run_cut_at = [&](long question, std::string& said) {
        reset_run_state();
        std::filesystem::remove(folder / "out/initial_graph.txt");
        write("out/shortest.lp", "old");
        write("out/solution_graph.txt", "old");
        long asked = 0;
        run_choices choices;
        choices.output = folder / "out/";
        choices.watch.stop_requested = [] { return true; };
        choices.cut_requested = [&](auto) { return ++asked >= question; };
        testing::internal::CaptureStdout();
        try {
            run_phases(files_below(folder / "in/"), choices);
        } catch (const ended_early&) {
            std::cout << "early";
        }
        said = testing::internal::GetCapturedStdout();
        return asked;
    };
    std::string said;
    const long all = questions_of_a_run_cut_at(1'000'000, said);
    const std::string model = read("out/shortest.lp");
    const std::string answer = said;
    ASSERT_TRUE(model.ends_with("\nEnd\n"));
    for (const long question : {1L, 6L, 7L, all / 2, all - 1, all, all + 1}) {
        SCOPED_TRACE(question);
        questions_of_a_run_cut_at(question, said);
        if (said == "early") {
            const bool has_begun = has_written("out/initial_graph.txt", "\n}\n");
            EXPECT_EQ(has_begun, question > 6);
            EXPECT_EQ(read("out/shortest.lp"), has_begun ? "" : "old");
            EXPECT_EQ(read("out/solution_graph.txt"), has_begun ? "" : "old");
            EXPECT_LE(question, all / 2);
            continue;
        }
        const std::string path = folder / "out/shortest.lp";
        const std::string told = "ERROR: file " + path + " could not be completed: ended by a signal\n";
        EXPECT_EQ(said, (question <= all ? told : "") + answer);
        EXPECT_EQ(read("out/shortest.lp"), question <= all ? "" : model);
        EXPECT_TRUE(has_written("out/solution_graph.txt", "\n}\n"));
        EXPECT_GT(question, all / 2);
    }
}

TEST_F(interrupt_test, ends_at_once_by_a_later_signal_while_there_is_no_answer) {
    make_pipe("in/names.txt");
    const pid_t process = start_reading_a_pipe();
    kill(process, SIGTERM);
    std::this_thread::sleep_for(past_the_burst);
    kill(process, SIGHUP);
    EXPECT_EQ(finish_program(process).signal, SIGHUP);
}

TEST_F(interrupt_test, writes_its_last_file_whatever_signals_come) {
    make_pipe("out/solution_graph.txt");
    const pid_t process = start_program({"in/", "out/"});
    ASSERT_TRUE(comes_true([&] { return has_written("out/shortest.lp", "\nEnd\n"); }));
    kill(process, SIGTERM);
    // Now it waits for a reader of that file.
    ASSERT_TRUE(comes_true([&] { return has_signal(process, "SigIgn", SIGQUIT); }));
    std::this_thread::sleep_for(past_the_burst);
    for (const int signal_number : {SIGTERM, SIGINT, SIGHUP, SIGXCPU, SIGUSR1, SIGUSR2, SIGQUIT, SIGALRM}) {
        kill(process, signal_number);
    }
    const std::string solution = read("out/solution_graph.txt");
    const program_result result = finish_program(process);
    write("solution", solution);
    std::filesystem::rename(folder / "solution", folder / "out/solution_graph.txt");
    expect_feasible(result);
}

TEST_F(interrupt_test, leaves_ignored_what_was_ignored) {
    const pid_t process = start_program({"-c", "trap '' INT HUP; exec " + program_path() + " in/ out/"}, "/bin/sh");
    ASSERT_TRUE(comes_true([&] { return has_written("out/shortest.lp", "\nEnd\n"); }));
    kill(process, SIGINT);
    kill(process, SIGHUP);
    std::this_thread::sleep_for(past_the_burst);       // so that the next would end it at once if they had counted
    EXPECT_EQ(waitpid(process, nullptr, WNOHANG), 0);  // it goes on
    interrupt(process, SIGTERM);
}

TEST_F(interrupt_test, outlives_its_limits_and_its_reader) {
    // The system repeats SIGXCPU with each further second that both threads compute.
    expect_feasible(run_program({"-c", "ulimit -S -t 1; exec " + program_path() + " in/ out/"}, "/bin/sh"));

    // The reader has gone before the first message; tee goes like this at Ctrl-C.
    write("in/names.txt", "A\nB\nC\nD\n");
    write("in/test", "A B 1\n");
    write("in/directed", "X Y 1\n");
    write("in/undirected", "B C 1\n");
    write("in/ko", "A C 1\n");
    std::filesystem::remove(folder / "out/solution_graph.txt");
    const std::string command = "(sleep 0.2; " + program_path() + " in/ out/; echo $? >status) | true";
    run_program({"-c", command}, "/bin/sh");
    EXPECT_EQ(read("status"), "0\n");
    EXPECT_TRUE(has_written("out/solution_graph.txt", "\n}\n"));
}
