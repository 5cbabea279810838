// SIGINT and SIGTERM as a wish to end early, for as long as an object of this lives.
#pragma once

#include <csignal>

// The first of the two signals to arrive is only noted; the second ends the program at
// once, as that signal does by default. Afterwards both do what they did before. One
// object at a time.
class interruption {
 public:
    interruption();
    ~interruption();
    interruption(const interruption&) = delete;
    interruption& operator=(const interruption&) = delete;

    bool requested() const;

 private:
    struct sigaction old_interrupt_ {};
    struct sigaction old_terminate_ {};
};
