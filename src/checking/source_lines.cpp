#include "checking/source_lines.hpp"

#include <algorithm>

source_lines::source_lines(std::string_view text) : text_(text) {
    std::size_t start = 0;
    while (start < text.size()) {
        starts_.push_back(start);
        const std::size_t end = text.find('\n', start);
        start = end == std::string_view::npos ? text.size() : end + 1;
    }
    starts_.push_back(text.size());
}

std::string_view source_lines::line(long number) const {
    const std::size_t start = starts_[static_cast<std::size_t>(number - 1)];
    const std::size_t next = starts_[static_cast<std::size_t>(number)];
    return text_.substr(start, next - start - (is_ended(number) ? 1 : 0));
}

bool source_lines::is_ended(long number) const {
    return text_[starts_[static_cast<std::size_t>(number)] - 1] == '\n';
}

long source_lines::number_at(std::size_t position) const {
    return std::upper_bound(starts_.begin(), starts_.end() - 1, position) - starts_.begin();
}
