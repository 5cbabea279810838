// A file of results, written in one go: what keeps it from being whole is known.
#pragma once

#include <memory>
#include <ostream>
#include <string>

class output_file {
 public:
    // Replaces what stands at the path.
    explicit output_file(const std::string& path);
    ~output_file();
    output_file(const output_file&) = delete;
    output_file& operator=(const output_file&) = delete;

    bool is_open() const;
    // What goes into the file. To flush it does nothing.
    std::ostream& text() { return text_; }
    // To be called in the end: writes what is left and closes. Gives the system's reason
    // when the file does not hold everything, else nothing.
    std::string finish();

 private:
    class buffer;
    const std::unique_ptr<buffer> buffer_;
    std::ostream text_;
};

// Takes a file of an earlier run away. A link to it stays, and so does what is no plain file.
void take_away(const std::string& path);
