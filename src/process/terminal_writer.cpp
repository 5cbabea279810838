#include "process/terminal_writer.hpp"

#include <fcntl.h>
#include <poll.h>

#include <algorithm>
#include <csignal>
#include <string>

namespace {

constexpr int access_flags = O_WRONLY | O_NONBLOCK | O_NOCTTY | O_CLOEXEC;

int open_again(int stream) {
    const int terminal = open(("/proc/self/fd/" + std::to_string(stream)).c_str(), access_flags);
    // Another user's terminal, as after su, opens by the name that every program has for its
    // own. Only for its own does it tell which job stands in front.
    return terminal < 0 && tcgetpgrp(stream) != -1 ? open("/dev/tty", access_flags) : terminal;
}

// A terminal may be set to stop whoever writes from the background; this thread goes on.
class undisturbed {
 public:
    undisturbed() {
        sigset_t blocked;
        sigemptyset(&blocked);
        sigaddset(&blocked, SIGTTOU);
        pthread_sigmask(SIG_BLOCK, &blocked, &before_);
    }
    ~undisturbed() { pthread_sigmask(SIG_SETMASK, &before_, nullptr); }
    undisturbed(const undisturbed&) = delete;
    undisturbed& operator=(const undisturbed&) = delete;

 private:
    sigset_t before_;
};

}  // namespace

terminal_writer::terminal_writer(int stream) : terminal_(isatty(stream) == 1 ? open_again(stream) : -1) {}

terminal_writer::~terminal_writer() {
    if (terminal_ >= 0) {
        close(terminal_);
    }
}

std::size_t terminal_writer::write(std::string_view text) const {
    if (terminal_ < 0) {
        return 0;
    }
    const pid_t in_front = tcgetpgrp(terminal_);
    if (in_front != -1 && in_front != getpgrp()) {
        return 0;
    }
    pollfd room{.fd = terminal_, .events = POLLOUT, .revents = 0};
    if (poll(&room, 1, 0) != 1 || (room.revents & POLLOUT) == 0) {
        return 0;
    }
    const undisturbed writing;
    return static_cast<std::size_t>(std::max<ssize_t>(0, ::write(terminal_, text.data(), text.size())));
}
