// The real program watched on a terminal, and on terminals that take no output.
#include <fcntl.h>
#include <pty.h>
#include <termios.h>
#include <unistd.h>

#include <regex>

#include "driver/long_solve.hpp"

using namespace std::chrono_literals;

namespace {

class terminal_test : public long_solve_test {
 protected:
    terminal_test() { EXPECT_EQ(openpty(&terminal, &program_side, nullptr, nullptr, nullptr), 0); }
    ~terminal_test() override {
        close(program_side);
        close(terminal);
    }

    // What nobody has read so far.
    std::string shown() const {
        std::string text(1 << 18, '\0');
        fcntl(terminal, F_SETFL, O_NONBLOCK);
        text.resize(static_cast<std::size_t>(std::max<ssize_t>(0, ::read(terminal, text.data(), text.size()))));
        return text;
    }

    int terminal = -1;
    int program_side = -1;
};

constexpr auto until_the_line_shows = 1500ms;

}  // namespace

TEST_F(terminal_test, shows_its_progress) {
    const pid_t process = start_solving({}, program_side);
    std::this_thread::sleep_for(2500ms);
    interrupt(process, SIGINT);

    const std::string text = shown();
    const std::string line = "\r\x1b\\[K\\d+ s: \\d+ pairs, bound (\\d+|-), gap (\\d+\\.\\d|-) %, [a-z ]+";
    EXPECT_TRUE(std::regex_match(text, std::regex("(" + line + "){2,20}\r\x1b\\[K"))) << text;
    EXPECT_NE(text.find("\r\x1b[K2 s: "), std::string::npos) << text;
}

TEST_F(terminal_test, solves_on_while_the_terminal_takes_no_output) {
    const pid_t paused = start_solving({}, program_side);
    tcflow(program_side, TCOOFF);  // as Ctrl-S does
    std::this_thread::sleep_for(until_the_line_shows);
    interrupt(paused, SIGTERM);
    EXPECT_EQ(shown(), "");
    tcflow(program_side, TCOON);

    // Nobody reads, and there is room for no byte more.
    fcntl(program_side, F_SETFL, O_NONBLOCK);
    while (::write(program_side, "x", 1) == 1) {
    }
    fcntl(program_side, F_SETFL, 0);
    const pid_t unread = start_solving({}, program_side);
    std::this_thread::sleep_for(until_the_line_shows);
    interrupt(unread, SIGTERM);
}

TEST_F(terminal_test, writes_its_last_file_before_it_prints_to_a_terminal_that_is_paused) {
    const pid_t process = start_solving({}, program_side, program_side);
    tcflow(program_side, TCOOFF);
    std::this_thread::sleep_for(until_the_line_shows);
    kill(process, SIGTERM);
    EXPECT_TRUE(comes_true([&] { return has_written("out/solution_graph.txt", "\n}\n"); }));
    tcflow(program_side, TCOON);
    EXPECT_EQ(finish_program(process).exit_status, 0);
    EXPECT_NE(shown().find("Solution status = Feasible\r\nSolution value  = "), std::string::npos);
}
