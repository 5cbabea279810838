#include "tables/whole_file.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

namespace {

[[noreturn]] void fail(const std::string& path) {
    throw std::system_error(errno, std::generic_category(), path + " could not be written");
}

void write_all(int file, std::string_view text) {
    while (!text.empty()) {
        const ssize_t written = ::write(file, text.data(), text.size());
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return;
        }
        text.remove_prefix(static_cast<std::size_t>(written));
    }
}

}  // namespace

void write_whole_file(const std::string& path, std::string_view text) {
    const std::string part = path + ".part";
    const int file = ::open(part.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC, 0666);
    if (file < 0) {
        fail(path);
    }
    errno = 0;
    write_all(file, text);
    bool is_whole = errno == 0 && ::lseek(file, 0, SEEK_CUR) == static_cast<off_t>(text.size()) && ::fsync(file) == 0;
    int reason = errno;
    if (::close(file) != 0 && is_whole) {
        is_whole = false;
        reason = errno;
    }
    if (is_whole && std::rename(part.c_str(), path.c_str()) == 0) {
        return;
    }
    if (is_whole) {
        reason = errno;
    }
    ::unlink(part.c_str());
    errno = reason;
    fail(path);
}
