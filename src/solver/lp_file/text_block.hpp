// Text on its way into a stream: gathered in a large block, so that short pieces cost
// a copy of their bytes and little more. Before each block goes out it is asked whether
// the writing is cut; from then on none does.
#pragma once

#include <cstddef>
#include <cstring>
#include <functional>
#include <ostream>
#include <string_view>
#include <vector>

namespace solver {

class text_block {
 public:
    text_block(std::ostream& out, const std::function<bool()>& cut_requested)
        : out_(out), cut_requested_(cut_requested), bytes_(std::size_t{1} << 18) {}
    text_block(const text_block&) = delete;
    text_block& operator=(const text_block&) = delete;
    ~text_block() { write_out(); }

    void add(char character) { *room(1) = character; }
    void add(std::string_view text) {
        if (text.size() > bytes_.size()) {
            ask_and_write_out();
            out_.write(text.data(), is_cut_ ? 0 : static_cast<std::streamsize>(text.size()));
        } else if (!text.empty()) {
            std::memcpy(room(text.size()), text.data(), text.size());
        }
    }
    // Whoever adds to it in a long loop may leave off.
    bool is_cut() const { return is_cut_; }
    // Small counts only.
    void add_blanks(std::size_t count) { std::memset(room(count), ' ', count); }

 private:
    char* room(std::size_t count) {
        if (used_ + count > bytes_.size()) {
            ask_and_write_out();
        }
        used_ += count;
        return bytes_.data() + used_ - count;
    }
    void ask_and_write_out() {
        is_cut_ = is_cut_ || cut_requested_();
        write_out();
    }
    void write_out() {
        if (!is_cut_) {
            out_.write(bytes_.data(), static_cast<std::streamsize>(used_));
        }
        used_ = 0;
    }

    std::ostream& out_;
    const std::function<bool()>& cut_requested_;
    std::vector<char> bytes_;
    std::size_t used_ = 0;
    bool is_cut_ = false;
};

}  // namespace solver
