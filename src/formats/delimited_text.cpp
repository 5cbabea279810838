#include "formats/delimited_text.hpp"

#include <algorithm>

namespace {

// Lines of a comment at the start go; "#" before a header's first name stays for the header.
char skip_comments(text_source& source) {
    std::string line;
    while (true) {
        const std::vector<std::string> next = source.peek(1);
        if (next.empty()) {
            return '\t';
        }
        const bool is_comment = next[0].starts_with('#') && next[0].find_first_of("\t,;") == std::string::npos;
        if (!is_comment && !trimmed(next[0]).empty()) {
            return guess_separator(next[0]);
        }
        source.next_line(line);
    }
}

}  // namespace

char guess_separator(std::string_view line) {
    for (const char separator : {'\t', ',', ';'}) {
        if (line.find(separator) != std::string_view::npos) {
            return separator;
        }
    }
    return ' ';
}

std::string_view trimmed(std::string_view text) {
    const std::size_t start = text.find_first_not_of(" \t");
    return start == std::string_view::npos ? std::string_view()
                                           : text.substr(start, text.find_last_not_of(" \t") + 1 - start);
}

std::string plain_word(std::string_view text) {
    std::string word;
    for (const char c : text) {
        if ((c >= 'a' && c <= 'z') || (c >= '0' && c <= '9')) {
            word += c;
        } else if (c >= 'A' && c <= 'Z') {
            word += static_cast<char>(c - 'A' + 'a');
        }
    }
    return word;
}

bool delimited_rows::next(std::vector<std::string>& cells) {
    do {
        if (!source_.next_line(text_)) {
            return false;
        }
    } while (trimmed(text_).empty() && (shape_.separator != '\t' || text_.empty()));
    line_ = source_.line_number();
    cells.clear();
    std::size_t i = 0;
    while (true) {
        if (shape_.separator == ' ') {
            i = std::min(text_.find_first_not_of(" \t", i), text_.size());
            if (i == text_.size()) {
                return true;
            }
        }
        std::string cell;
        if (shape_.has_quotes && i < text_.size() && text_[i] == '"') {
            ++i;
            while (true) {
                const std::size_t quote = text_.find('"', i);
                cell.append(text_, i, quote == std::string::npos ? quote : quote - i);
                if (quote == std::string::npos) {
                    cell += '\n';
                    i = 0;
                    if (!source_.next_line(text_)) {
                        source_.fail_at(line_, "a double quote opens a cell and never closes");
                    }
                } else if (quote + 1 < text_.size() && text_[quote + 1] == '"') {
                    cell += '"';
                    i = quote + 2;
                } else {
                    i = quote + 1;
                    break;
                }
            }
        }
        const std::size_t end =
            shape_.separator == ' ' ? text_.find_first_of(" \t", i) : text_.find(shape_.separator, i);
        cell.append(text_, i, end == std::string::npos ? end : end - i);
        cells.push_back(std::move(cell));
        if (end == std::string::npos) {
            return true;
        }
        i = end + 1;
    }
}

delimited_table::delimited_table(text_source& source, bool has_header, bool has_quotes)
    : source_(source),
      has_header_(has_header),
      rows_(source, {.separator = skip_comments(source), .has_quotes = has_quotes}) {
    if (has_header && !rows_.next(header_)) {
        source.fail_at(1, "is empty");
    }
    if (has_header && header_[0].starts_with('#')) {
        header_[0].erase(0, header_[0].find_first_not_of("# "));
    }
    const long header_line = rows_.line();
    has_first_row_ = rows_.next(first_row_);
    if (has_header && header_.size() + 1 == first_row_.size()) {
        header_.insert(header_.begin(), std::string());
    }
    num_columns_ = has_header ? header_.size() : first_row_.size();
    line_ = header_line;
}

std::optional<std::size_t> delimited_table::find(const std::string& name) const {
    const auto found = std::find(header_.begin(), header_.end(), name);
    if (found != header_.end()) {
        return found - header_.begin();
    }
    const bool is_number =
        !name.empty() && name.size() < 5 && name.find_first_not_of("0123456789") == std::string::npos;
    if (!has_header_ && is_number && name != "0") {
        return static_cast<std::size_t>(std::stoi(name) - 1);
    }
    return std::nullopt;
}

std::optional<std::size_t> delimited_table::find_like(const std::vector<std::string>& names) const {
    for (const std::string& name : names) {
        for (std::size_t i = 0; i < header_.size(); ++i) {
            if (plain_word(header_[i]) == name) {
                return i;
            }
        }
    }
    return std::nullopt;
}

std::optional<std::size_t> delimited_table::find_asked(const std::map<std::string, std::string>& asked,
                                                       const std::string& role,
                                                       const std::vector<std::string>& usual) const {
    const auto named = asked.find(role);
    if (named == asked.end()) {
        return find_like(usual);
    }
    const std::optional<std::size_t> found = find(named->second);
    if (!found) {
        source().fail_at(1,
                         "there is no column '" + named->second + "' for '" + role + "'; there are " + list_columns());
    }
    return found;
}

std::string delimited_table::list_columns() const {
    std::string text;
    for (std::size_t i = 0; i < header_.size(); ++i) {
        text += (i == 0 ? "" : i + 1 == header_.size() ? " and " : ", ") + header_[i];
    }
    return header_.empty() ? "columns by number only, as there is no header" : text;
}

bool delimited_table::next(std::vector<std::string>& cells) {
    if (has_first_row_) {
        has_first_row_ = false;
        cells = first_row_;
    } else if (!rows_.next(cells)) {
        return false;
    }
    line_ = rows_.line();
    if (cells.size() != num_columns_) {
        source_.fail_at(line_, std::to_string(cells.size()) + " cells where " +
                                   (has_header_ ? "the header has " : "the first line has ") +
                                   std::to_string(num_columns_));
    }
    return true;
}
