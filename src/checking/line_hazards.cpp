#include "checking/line_hazards.hpp"

#include <algorithm>

#include "naming/drawable.hpp"

namespace {

// By its mark, or by the null bytes that plain letters bring with them.
bool is_utf16(std::string_view text) {
    const std::string_view start = text.substr(0, 1000);
    const long nulls = std::count(start.begin(), start.end(), '\0');
    return start.starts_with("\xff\xfe") || start.starts_with("\xfe\xff") ||
           (nulls > 1 && 4 * static_cast<std::size_t>(nulls) >= start.size());
}

bool begins_with_a_mark(const source_lines& lines, file_check& file) {
    if (lines.count() == 0) {
        return false;
    }
    const std::string_view first = lines.line(1);
    if (first.starts_with("\xef\xbb\xbf")) {
        file.hazards[hazard::byte_order_mark].push_back(1);
    }
    return is_utf16(first);
}

void find_bytes(std::string_view line, long number, file_check& file) {
    const struct {
        char byte;
        hazard what;
    } bytes[] = {{'\r', hazard::carriage_return}, {'\t', hazard::tab}, {'\0', hazard::null_byte}};
    for (const auto& [byte, what] : bytes) {
        if (line.find(byte) != std::string_view::npos) {
            file.hazards[what].push_back(number);
        }
    }
    if (line.empty()) {
        file.hazards[hazard::empty_line].push_back(number);
    }
}

// Where nothing but the blanks is amiss.
void find_separators(std::string_view line, long number, file_check& file) {
    const std::size_t first_blank = line.find(' ');
    if (line.empty() || line.find('\t') != std::string_view::npos) {
        return;
    }
    if (first_blank == 0) {
        file.hazards[hazard::leading_blank].push_back(number);
    } else if (first_blank == std::string_view::npos || line.find(' ', first_blank + 1) == std::string_view::npos) {
        file.hazards[hazard::ends_at_name].push_back(number);
    } else if (line[first_blank + 1] == ' ') {
        file.hazards[hazard::doubled_blank].push_back(number);
    }
}

}  // namespace

void find_name_hazards(const source_lines& lines, file_check& file) {
    if (begins_with_a_mark(lines, file)) {
        file.hazards[hazard::utf16];
        return;
    }
    for (long number = 1; number <= lines.count(); ++number) {
        const std::string_view name = lines.line(number);
        find_bytes(name, number, file);
        if (name.find(' ') != std::string_view::npos) {
            file.hazards[hazard::blank_in_name].push_back(number);
        }
        if (!is_drawable(name)) {
            file.hazards[hazard::not_drawable].push_back(number);
        }
    }
}

void find_pair_hazards(const source_lines& lines, file_check& file) {
    if (begins_with_a_mark(lines, file)) {
        file.hazards[hazard::utf16];
        return;
    }
    for (long number = 1; number <= lines.count(); ++number) {
        find_bytes(lines.line(number), number, file);
        find_separators(lines.line(number), number, file);
    }
}
