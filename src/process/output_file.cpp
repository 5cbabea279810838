#include "process/output_file.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <filesystem>
#include <streambuf>
#include <system_error>
#include <vector>

// Gathers a block and writes it. After a failure it takes no more.
class output_file::buffer : public std::streambuf {
 public:
    explicit buffer(const std::string& path)
        : block_(1 << 16), file_(::open(path.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666)) {
        setp(block_.data(), block_.data() + block_.size());
    }
    ~buffer() override { finish(); }
    buffer(const buffer&) = delete;
    buffer& operator=(const buffer&) = delete;

    bool is_open() const { return file_ >= 0; }

    // The number of the error that kept the file from being whole; 0 = none.
    int finish() {
        if (file_ >= 0) {
            write_out();
            // Some file systems tell only now that there was no room.
            if (::close(file_) != 0 && error_ == 0) {
                error_ = errno;
            }
            file_ = -1;
        }
        return error_;
    }

 protected:
    int_type overflow(int_type character) override {
        if (!write_out()) {
            return traits_type::eof();
        }
        if (!traits_type::eq_int_type(character, traits_type::eof())) {
            sputc(traits_type::to_char_type(character));
        }
        return traits_type::not_eof(character);
    }

 private:
    bool write_out() {
        const char* next = pbase();
        while (next < pptr() && error_ == 0) {
            const ssize_t written = ::write(file_, next, static_cast<std::size_t>(pptr() - next));
            if (written >= 0) {
                next += written;
            } else if (errno != EINTR) {
                error_ = errno;
            }
        }
        setp(block_.data(), block_.data() + block_.size());
        return error_ == 0;
    }

    std::vector<char> block_;
    int file_;
    int error_ = 0;
};

output_file::output_file(const std::string& path) : buffer_(std::make_unique<buffer>(path)), text_(buffer_.get()) {}

output_file::~output_file() = default;

bool output_file::is_open() const {
    return buffer_->is_open();
}

std::string output_file::finish() {
    const int error = buffer_->finish();
    return error == 0 ? std::string() : std::generic_category().message(error);
}

void take_away(const std::string& path) {
    std::error_code ignored;
    const std::filesystem::path file = std::filesystem::canonical(path, ignored);
    if (std::filesystem::is_regular_file(file, ignored) && !std::filesystem::remove(file, ignored)) {
        std::filesystem::resize_file(file, 0, ignored);  // the folder belongs to somebody else
    }
}
