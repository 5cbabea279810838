// A terminal that takes what it is given, or not.
#include "process/terminal_writer.hpp"

#include <fcntl.h>
#include <pty.h>
#include <sys/ioctl.h>
#include <sys/wait.h>
#include <termios.h>

#include <csignal>
#include <string>

#include <gtest/gtest.h>

namespace {

struct terminal {
    int reader = -1;
    int stream = -1;
    terminal() { EXPECT_EQ(openpty(&reader, &stream, nullptr, nullptr, nullptr), 0); }
    ~terminal() {
        close(reader);
        close(stream);
    }
    std::string shown() const {
        fcntl(reader, F_SETFL, O_NONBLOCK);
        std::string text(1 << 18, '\0');
        std::size_t size = 0;
        for (ssize_t part = 0; (part = read(reader, text.data() + size, text.size() - size)) > 0;) {
            size += static_cast<std::size_t>(part);
        }
        return text.substr(0, size);
    }
};

// In a session of its own, in which the terminal stops whoever writes from the background.
int write_as_background_job(int stream) {
    setsid();
    termios settings{};
    tcgetattr(stream, &settings);
    settings.c_lflag |= TOSTOP;
    if (ioctl(stream, TIOCSCTTY, 0) != 0 || tcsetattr(stream, TCSANOW, &settings) != 0) {
        return 100;
    }
    const int in_front = static_cast<int>(terminal_writer(stream).write("front "));
    const pid_t job = fork();
    if (job == 0) {
        setpgid(0, 0);
        _exit(static_cast<int>(terminal_writer(stream).write("background")));
    }
    int status = 0;
    waitpid(job, &status, WUNTRACED);
    kill(job, SIGKILL);
    return in_front != 6 ? 101 : WIFEXITED(status) ? WEXITSTATUS(status) : 102;
}

}  // namespace

TEST(terminal_writer, leaves_out_what_the_terminal_does_not_take) {
    const terminal console;
    const terminal_writer writer(console.stream);
    EXPECT_EQ(writer.write("first "), 6u);

    tcflow(console.stream, TCOOFF);  // as Ctrl-S does
    EXPECT_EQ(writer.write("paused "), 0u);
    tcflow(console.stream, TCOON);
    EXPECT_EQ(writer.write("again"), 5u);
    EXPECT_EQ(console.shown(), "first again");

    std::size_t taken = 0;
    for (std::size_t more = 1; more > 0; taken += more) {
        ASSERT_LT(taken, 1u << 24);
        more = writer.write(std::string(1000, 'x'));  // which nobody reads
    }
    EXPECT_EQ(console.shown(), std::string(taken, 'x'));
    EXPECT_EQ(fcntl(console.stream, F_GETFL) & O_NONBLOCK, 0);  // others share it
}

TEST(terminal_writer, is_silent_as_a_background_job) {
    const terminal console;
    const pid_t child = fork();
    if (child == 0) {
        _exit(write_as_background_job(console.stream));
    }
    int status = 0;
    waitpid(child, &status, 0);
    EXPECT_EQ(WEXITSTATUS(status), 0);
    EXPECT_EQ(console.shown(), "front ");
}

TEST(terminal_writer, is_closed_where_there_is_no_terminal) {
    int ends[2] = {};
    ASSERT_EQ(pipe(ends), 0);
    EXPECT_FALSE(terminal_writer(ends[1]).is_open());
    EXPECT_EQ(terminal_writer(ends[1]).write("text"), 0u);
    EXPECT_FALSE(terminal_writer(-1).is_open());
    close(ends[0]);
    close(ends[1]);
}
