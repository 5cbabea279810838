// Runs a command with its output in a file, and prints what it cost:
//
//   measure [-i SECONDS] OUTPUT COMMAND [ARGUMENT]...
//
// With -i the command is interrupted (SIGINT) when it has not ended by then, and once
// more when it has still not ended ten seconds later.
//
// "cpu SECONDS wall SECONDS peak MEGABYTES status NUMBER": processor time of user
// and system, highest resident memory, exit status (128 + signal when killed); and
// "answered SECONDS" from the first interrupt to the end, when there was one.
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <ctime>

namespace {

double seconds(const timeval& time) {
    return static_cast<double>(time.tv_sec) + 1e-6 * static_cast<double>(time.tv_usec);
}

volatile pid_t child = 0;

timespec interrupted = {0, 0};

void interrupt_child(int) {
    if (interrupted.tv_sec == 0) {
        clock_gettime(CLOCK_MONOTONIC, &interrupted);
    }
    kill(child, SIGINT);
    alarm(10);
}

}  // namespace

int main(int argc, char** argv) {
    double limit = 0.0;
    if (argc > 2 && std::strcmp(argv[1], "-i") == 0) {
        limit = std::atof(argv[2]);
        argc -= 2;
        argv += 2;
    }
    if (argc < 3) {
        std::fprintf(stderr, "usage: measure [-i SECONDS] OUTPUT COMMAND [ARGUMENT]...\n");
        return 1;
    }
    const auto start = std::chrono::steady_clock::now();
    child = fork();
    if (child == 0) {
        const int output = open(argv[1], O_WRONLY | O_CREAT | O_TRUNC, 0666);
        if (output < 0 || dup2(output, STDOUT_FILENO) < 0 || dup2(output, STDERR_FILENO) < 0) {
            _exit(126);
        }
        execvp(argv[2], argv + 2);
        _exit(127);
    }
    if (limit > 0.0) {
        std::signal(SIGALRM, interrupt_child);
        itimerval timer{};
        timer.it_value.tv_sec = static_cast<time_t>(limit);
        timer.it_value.tv_usec = static_cast<suseconds_t>(1e6 * (limit - std::floor(limit)));
        setitimer(ITIMER_REAL, &timer, nullptr);
    }
    int status = 0;
    rusage usage{};
    if (child < 0 || wait4(child, &status, 0, &usage) != child) {
        std::perror("measure");
        return 1;
    }
    const double wall = std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
    std::printf("cpu %.3f wall %.3f peak %.0f status %d", seconds(usage.ru_utime) + seconds(usage.ru_stime), wall,
                static_cast<double>(usage.ru_maxrss) / 1024,
                WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status));
    if (interrupted.tv_sec != 0) {
        timespec end{};
        clock_gettime(CLOCK_MONOTONIC, &end);
        std::printf(" answered %.3f", static_cast<double>(end.tv_sec - interrupted.tv_sec) +
                                          1e-9 * static_cast<double>(end.tv_nsec - interrupted.tv_nsec));
    }
    std::printf("\n");
    return 0;
}
