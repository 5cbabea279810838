// Many names in one piece of memory. Most rows of a model and most of its columns have
// none: those cost a bit each.
#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace solver {

class name_list {
 public:
    name_list() = default;
    name_list(const std::vector<std::string>& names) {
        for (const std::string& name : names) {
            push_back(name);
        }
    }
    bool operator==(const name_list&) const = default;

    std::size_t size() const { return size_; }
    // Empty where there is no name.
    std::string_view operator[](std::size_t index) const {
        const block& around = blocks_[index / block_size];
        const std::uint64_t bit = std::uint64_t{1} << index % block_size;
        if ((around.named & bit) == 0) {
            return {};
        }
        const std::size_t name =
            around.names_before + static_cast<std::size_t>(std::popcount(around.named & (bit - 1)));
        const std::size_t begin = name == 0 ? 0 : end_[name - 1];
        return {text_.data() + begin, end_[name] - begin};
    }
    void push_back(std::string_view name) {
        add_part(name);
        end_name();
    }

    // A name in parts: it is made of what was added since the one before was ended.
    void add_part(std::string_view part) { text_ += part; }
    void add_part(char part) { text_ += part; }
    void end_name() {
        if (size_ % block_size == 0) {
            blocks_.push_back({0, end_.size()});
        }
        if (text_.size() > (end_.empty() ? 0 : end_.back())) {
            blocks_.back().named |= std::uint64_t{1} << size_ % block_size;
            end_.push_back(text_.size());
        }
        ++size_;
    }

 private:
    static constexpr std::size_t block_size = 64;
    struct block {
        std::uint64_t named;  // a bit each
        std::size_t names_before;
        bool operator==(const block&) const = default;
    };
    std::string text_;
    std::vector<std::size_t> end_;  // of those that have a name
    std::vector<block> blocks_;
    std::size_t size_ = 0;
};

}  // namespace solver
