#include "formats/text_source.hpp"

#include <cerrno>
#include <cstring>
#include <filesystem>

#include "tables/unusable_input.hpp"

namespace {

constexpr unsigned block_size = 1 << 16;

}  // namespace

text_source::text_source(const std::string& path, const reading_watch& watch)
    : path_(path), watch_(watch), file_(nullptr) {
    // What is no plain file could not be read twice, as its digest needs.
    if (!std::filesystem::is_regular_file(path)) {
        throw unusable_input(
            path + (std::filesystem::exists(path) ? ": is no plain file" : ": cannot be opened: no such file"));
    }
    errno = 0;
    file_ = gzopen(path.c_str(), "rb");
    if (file_ == nullptr) {
        throw unusable_input(path + ": cannot be opened: " + std::strerror(errno));
    }
    gzbuffer(file_, 2 * block_size);
    if (watch_) {
        watch_(path_, 0);
    }
}

text_source::~text_source() {
    gzclose(file_);
}

void text_source::fail_at(long line, const std::string& reason) const {
    throw unusable_input(path_ + ":" + std::to_string(line) + ": " + reason);
}

bool text_source::fill() {
    block_.resize(block_size);
    const int size = gzread(file_, block_.data(), block_size);
    // A compressed file that is cut short reads well up to where it ends.
    int code = Z_OK;
    const char* what = gzerror(file_, &code);
    if (size < 0 || code == Z_BUF_ERROR) {
        throw unusable_input(
            path_ + ": cannot be read: " +
            (code == Z_ERRNO ? std::strerror(errno) : std::string("damaged or cut short gzip file (") + what + ")"));
    }
    if (watch_) {
        // The end of an empty file is its start, which was told.
        const z_off_t position = gzoffset(file_);
        if (position > 0) {
            watch_(path_, static_cast<std::uint64_t>(position));
        }
    }
    block_.resize(static_cast<std::size_t>(size));
    position_ = 0;
    if (at_start_) {
        at_start_ = false;
        refuse_what_is_no_text();
        if (block_.starts_with("\xef\xbb\xbf")) {
            position_ = 3;
        }
    }
    return position_ < block_.size();
}

void text_source::refuse_what_is_no_text() const {
    if (block_.starts_with("\xff\xfe") || block_.starts_with("\xfe\xff")) {
        throw unusable_input(path_ + ": is UTF-16; save it as UTF-8 or plain text");
    }
    if (block_.starts_with("PK\x03\x04")) {
        throw unusable_input(path_ + ": is a zip archive or a spreadsheet; unpack it, or save the sheet as CSV");
    }
}

bool text_source::read_line(std::string& line) {
    line.clear();
    bool any = false;
    while (position_ < block_.size() || fill()) {
        if (after_return_ && block_[position_] == '\n') {
            ++position_;
            after_return_ = false;
            continue;
        }
        after_return_ = false;
        any = true;
        const std::size_t end = block_.find_first_of(std::string_view("\n\r\0", 3), position_);
        line.append(block_, position_, end == std::string::npos ? end : end - position_);
        position_ = end == std::string::npos ? block_.size() : end + 1;
        if (end != std::string::npos) {
            if (block_[end] == '\0') {
                fail_at(line_number_ + static_cast<long>(peeked_.size()) + 1, "holds a null byte, so it is no text");
            }
            after_return_ = block_[end] == '\r';
            return true;
        }
    }
    return any;
}

bool text_source::next_line(std::string& line) {
    if (!peeked_.empty()) {
        line = std::move(peeked_.front());
        peeked_.pop_front();
    } else if (!read_line(line)) {
        return false;
    }
    ++line_number_;
    return true;
}

std::vector<std::string> text_source::peek(std::size_t count) {
    std::string line;
    while (peeked_.size() < count && read_line(line)) {
        peeked_.push_back(line);
    }
    return {peeked_.begin(), peeked_.end()};
}

std::string without_gz(std::string path) {
    if (path.ends_with(".gz")) {
        path.resize(path.size() - 3);
    }
    return path;
}
