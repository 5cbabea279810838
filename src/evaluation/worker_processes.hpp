// Independent tasks over the run-wide state, each in a process of its own.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <vector>

struct worker_choices {
    int jobs = 1;  // processes at a time
    // Then no further task begins, and those that run are sent SIGTERM.
    std::function<bool()> stop_requested = [] { return false; };
    std::function<void(int done, int all)> report = [](int, int) {};  // called often
};

// Calls task(0) .. task(num_tasks - 1), and gives what each gave, whatever the number of
// jobs; nothing for those that did not begin, or did not end well after a stop. The processes print nothing. To be
// called while there is one thread. Throws std::runtime_error with the reason of the first task that failed.
std::vector<std::optional<std::string>> run_in_processes(int num_tasks, const std::function<std::string(int)>& task,
                                                         const worker_choices& choices);
