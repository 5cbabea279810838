// Holds back what is printed until what matters more is done.
#pragma once

#include <iostream>
#include <sstream>
#include <streambuf>

// Keeps what goes to standard output for as long as it lives, and prints it then. A
// terminal that is paused or a reader that does not read would else hold up the program
// before its last file is written.
class held_output {
 public:
    held_output() : standard_output_(std::cout.rdbuf(text_.rdbuf())) {}
    ~held_output() {
        std::cout.rdbuf(standard_output_);
        std::cout << text_.view() << std::flush;
    }
    held_output(const held_output&) = delete;
    held_output& operator=(const held_output&) = delete;

 private:
    std::ostringstream text_;
    std::streambuf* standard_output_;
};
