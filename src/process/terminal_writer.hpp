// Writing to a terminal without ever waiting for it.
#pragma once

#include <unistd.h>

#include <cstddef>
#include <string_view>

// A terminal may be paused (Ctrl-S), or nobody may read it any more; a plain write would
// then stop the program. This one leaves out what the terminal does not take at once, so it
// is for lines that are written anew anyway. It writes through an access of its own:
// the stream itself, which is shared with other programs, stays as it is.
class terminal_writer {
 public:
    // The terminal behind a stream. Where it is none, or gives no second access,
    // nothing is ever written.
    explicit terminal_writer(int stream = STDERR_FILENO);
    ~terminal_writer();
    terminal_writer(const terminal_writer&) = delete;
    terminal_writer& operator=(const terminal_writer&) = delete;

    bool is_open() const { return terminal_ >= 0; }

    // Gives how many bytes the terminal has taken: none while it is paused, or while the
    // program is a job in its background; some where it has little room.
    std::size_t write(std::string_view text) const;

 private:
    int terminal_ = -1;
};
