#include "tables/whole_file.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <filesystem>
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

// Writes the text to a file of its own. Throws in the name of `path`, with nothing left.
void write_part(const std::string& part, const std::string& path, std::string_view text) {
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
    if (!is_whole) {
        ::unlink(part.c_str());
        errno = reason;
        fail(path);
    }
}

void move_part(const std::string& part, const std::string& path) {
    if (std::rename(part.c_str(), path.c_str()) != 0) {
        const int reason = errno;
        ::unlink(part.c_str());
        errno = reason;
        fail(path);
    }
}

}  // namespace

void write_whole_file(const std::string& path, std::string_view text) {
    const std::string part = path + ".part";
    write_part(part, path, text);
    move_part(part, path);
}

void write_whole_files(const std::string& folder, const std::vector<whole_file>& files) {
    const std::filesystem::path place(folder);
    const bool is_new = !std::filesystem::exists(place);
    std::filesystem::create_directories(place);
    std::size_t written = 0;
    std::size_t moved = 0;
    const auto path_of = [&](std::size_t i) { return (place / files[i].name).string(); };
    try {
        for (; written < files.size(); ++written) {
            // What cannot be moved to its place must be known before anything is.
            if (std::filesystem::is_directory(path_of(written))) {
                errno = EISDIR;
                fail(path_of(written));
            }
            write_part(path_of(written) + ".part", path_of(written), files[written].text);
        }
        for (; moved < files.size(); ++moved) {
            move_part(path_of(moved) + ".part", path_of(moved));
        }
    } catch (...) {
        for (std::size_t i = moved; i < written; ++i) {
            ::unlink((path_of(i) + ".part").c_str());
        }
        if (is_new && moved == 0) {
            ::rmdir(place.c_str());
        }
        throw;
    }
}
