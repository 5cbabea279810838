// Text on its way into a stream: gathered in a large block, so that short pieces cost
// a copy of their bytes and little more.
#pragma once

#include <cstddef>
#include <cstring>
#include <ostream>
#include <string_view>
#include <vector>

namespace solver {

class text_block {
 public:
    explicit text_block(std::ostream& out) : out_(out), bytes_(std::size_t{1} << 18) {}
    text_block(const text_block&) = delete;
    text_block& operator=(const text_block&) = delete;
    ~text_block() { flush(); }

    void add(char character) { *room(1) = character; }
    void add(std::string_view text) {
        if (text.size() > bytes_.size()) {
            flush();
            out_.write(text.data(), static_cast<std::streamsize>(text.size()));
        } else if (!text.empty()) {
            std::memcpy(room(text.size()), text.data(), text.size());
        }
    }
    // Small counts only.
    void add_blanks(std::size_t count) { std::memset(room(count), ' ', count); }

 private:
    char* room(std::size_t count) {
        if (used_ + count > bytes_.size()) {
            flush();
        }
        used_ += count;
        return bytes_.data() + used_ - count;
    }
    void flush() {
        out_.write(bytes_.data(), static_cast<std::streamsize>(used_));
        used_ = 0;
    }

    std::ostream& out_;
    std::vector<char> bytes_;
    std::size_t used_ = 0;
};

}  // namespace solver
