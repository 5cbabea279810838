// Signals that ask the program to end, as wishes to end early with what there is.
#pragma once

#include <chrono>
#include <csignal>

// While an object of this lives, SIGINT, SIGTERM, SIGHUP, SIGXCPU, SIGUSR1 and SIGUSR2 are
// noted. Schedulers send them in bursts, to a process and then to its group: what comes
// within a second of the first is the same wish. A signal that comes later ends the
// program at once, as it does by default, unless the answer is held. SIGXCPU never does:
// the system repeats it with every second that a process computes beyond its limit.
//
// What was ignored when the object was made stays ignored. Afterwards all signals do what
// they did before. One object at a time.
class interruption {
 public:
    interruption();
    ~interruption();
    interruption(const interruption&) = delete;
    interruption& operator=(const interruption&) = delete;

    bool requested() const;  // from any thread
    // Whether the first signal came that long ago, or longer.
    bool requested_before(std::chrono::nanoseconds ago) const;
    // Ends the program by the first signal, as if it had never been noted.
    void end_by_first_signal() const;
};

// One that lasts as long as the program: a signal that comes when the work is done must
// not change how it ends.
const interruption& lasting_interruption();

// An answer is at hand that is still to be written: until it is released, or the object
// above ends, no signal ends the program that it can withstand. Without such an object
// both do nothing.
void hold_answer();
void release_answer();

// For good: a reader that is gone and a limit on the size of files are failures of the
// write that meets them, no longer signals that end the program.
void outlive_failed_writes();
