// What every room throws when a file that it was given cannot be used.
#pragma once

#include <stdexcept>

// The text is one line for the user: file, line where there is one, reason.
class unusable_input : public std::runtime_error {
 public:
    using std::runtime_error::runtime_error;
};
