#include "evaluation/worker_processes.hpp"

#include <fcntl.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <iostream>
#include <stdexcept>
#include <system_error>

namespace {

struct worker {
    int task = 0;
    pid_t process = -1;
    int pipe = -1;  // what it sends: its result, or why there is none
    std::string sent;
};

[[noreturn]] void fail(const char* what) {
    throw std::system_error(errno, std::generic_category(), what);
}

void send(int pipe, const std::string& text) {
    for (std::size_t sent = 0; sent < text.size();) {
        const ssize_t written = ::write(pipe, text.data() + sent, text.size() - sent);
        if (written < 0 && errno != EINTR) {
            return;
        }
        sent += written > 0 ? static_cast<std::size_t>(written) : 0;
    }
}

[[noreturn]] void work(int pipe, const std::function<std::string(int)>& task, int number) {
    const int nowhere = ::open("/dev/null", O_WRONLY);
    ::dup2(nowhere, STDOUT_FILENO);
    ::dup2(nowhere, STDERR_FILENO);
    int status = 0;
    try {
        send(pipe, task(number));
    } catch (const std::exception& error) {
        send(pipe, error.what());
        status = 1;
    }
    ::_exit(status);  // the parent's buffers are the parent's to write
}

worker start(const std::function<std::string(int)>& task, int number) {
    int ends[2];
    if (::pipe2(ends, O_CLOEXEC) != 0) {
        fail("no pipe to a process");
    }
    std::cout.flush();
    const pid_t process = ::fork();
    if (process < 0) {
        fail("no further process");
    }
    if (process == 0) {
        ::close(ends[0]);
        work(ends[1], task, number);
    }
    ::close(ends[1]);
    return {number, process, ends[0], {}};
}

// False when the worker has closed its end.
bool receive(worker& sender) {
    char block[4096];
    const ssize_t count = ::read(sender.pipe, block, sizeof block);
    if (count > 0) {
        sender.sent.append(block, static_cast<std::size_t>(count));
    }
    return count > 0 || (count < 0 && errno == EINTR);
}

bool ended_well(const worker& ended) {
    int status = 0;
    while (::waitpid(ended.process, &status, 0) < 0 && errno == EINTR) {
    }
    ::close(ended.pipe);
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

void wait_for_news(const std::vector<worker>& running) {
    std::vector<pollfd> pipes;
    pipes.reserve(running.size());
    for (const worker& one : running) {
        pipes.push_back({one.pipe, POLLIN, 0});
    }
    ::poll(pipes.data(), pipes.size(), 100);
}

bool has_news(const worker& one) {
    pollfd pipe{one.pipe, POLLIN, 0};
    return ::poll(&pipe, 1, 0) > 0;
}

}  // namespace

std::vector<std::optional<std::string>> run_in_processes(int num_tasks, const std::function<std::string(int)>& task,
                                                         const worker_choices& choices) {
    std::vector<std::optional<std::string>> results(static_cast<std::size_t>(num_tasks));
    std::vector<worker> running;
    std::string failure;
    int next = 0;
    int done = 0;
    bool stopping = false;
    while (!running.empty() || (next < num_tasks && !stopping)) {
        while (next < num_tasks && !stopping && static_cast<int>(running.size()) < choices.jobs) {
            running.push_back(start(task, next++));
        }
        choices.report(done, num_tasks);
        wait_for_news(running);
        for (std::size_t i = 0; i < running.size();) {
            if (!has_news(running[i]) || receive(running[i])) {
                ++i;
                continue;
            }
            if (ended_well(running[i])) {
                results[static_cast<std::size_t>(running[i].task)] = running[i].sent;
            } else if (failure.empty() && !stopping) {
                failure = running[i].sent.empty() ? "a process ended before its work was done" : running[i].sent;
            }
            ++done;
            running.erase(running.begin() + static_cast<std::ptrdiff_t>(i));
        }
        if (!stopping && (choices.stop_requested() || !failure.empty())) {
            stopping = true;
            for (const worker& one : running) {
                ::kill(one.process, SIGTERM);
            }
        }
    }
    if (!failure.empty()) {
        throw std::runtime_error(failure);
    }
    return results;
}
