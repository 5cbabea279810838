// Many names in one piece of memory. Most rows of a model and half of its columns have
// none, and a string for each of those would be more than all that the rest is named.
#pragma once

#include <cstddef>
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

    std::size_t size() const { return end_.size(); }
    std::string_view operator[](std::size_t index) const {
        const std::size_t begin = index == 0 ? 0 : end_[index - 1];
        return {text_.data() + begin, end_[index] - begin};
    }
    void reserve(std::size_t num_names) { end_.reserve(num_names); }
    void push_back(std::string_view name) {
        add_part(name);
        end_name();
    }

    // A name in parts: it is made of what was added since the one before was ended.
    void add_part(std::string_view part) { text_ += part; }
    void add_part(char part) { text_ += part; }
    void end_name() { end_.push_back(text_.size()); }

 private:
    std::string text_;
    std::vector<std::size_t> end_;
};

}  // namespace solver
