#include "solver/lp_file.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstring>
#include <fstream>
#include <string_view>
#include <unordered_set>

namespace solver {
namespace {

constexpr std::size_t line_limit = 79;

// What stands for a character that a name may not hold; 0 = the character is legal.
char legal_substitute(unsigned char character) {
    static constexpr char illegal[] = " \\*+-/:<=>[]^|";
    static constexpr char substitute[] = "__apmd.leg()cb";
    if (character < 0x20 || character == 0x7f) {
        return '_';
    }
    const char* found = std::strchr(illegal, character);
    return found == nullptr ? '\0' : substitute[found - illegal];
}

std::string number(double value) {
    char text[32];
    const auto end = std::to_chars(text, text + sizeof text, value + 0.0).ptr;
    return std::string(text, end);
}

// Gathers the words of one row or section and breaks lines between them.
class line_filler {
 public:
    explicit line_filler(std::string& text) : text_(text) {}

    void start(std::string_view label) {
        text_ += label;
        length_ = indent_ = label.size();
        first_ = true;
    }
    void add(std::string_view word) {
        const std::size_t blank = first_ ? 0 : 1;
        if (!first_ && length_ + blank + word.size() > line_limit) {
            text_ += '\n';
            text_.append(indent_, ' ');
            length_ = indent_;
        } else {
            text_.append(blank, ' ');
            length_ += blank;
        }
        text_ += word;
        length_ += word.size();
        first_ = false;
    }
    bool first() const { return first_; }
    void end() { text_ += '\n'; }

 private:
    std::string& text_;
    std::size_t length_ = 0;
    std::size_t indent_ = 0;
    bool first_ = true;
};

void add_term(line_filler& line, double coefficient, const std::string& name, std::string& word) {
    word.clear();
    if (coefficient < 0.0) {
        word += "- ";
    } else if (!line.first()) {
        word += "+ ";
    }
    const double size = std::abs(coefficient);
    if (size != 1.0) {
        word += number(size) + " ";
    }
    line.add(word += name);
}

void add_rows(const model_record& record, const std::vector<std::string>& columns, std::string& text,
              std::ostream& out) {
    const std::vector<std::string> rows = lp_names(record.row_names, 'c');
    std::size_t widest = 0;
    for (const std::string& row : rows) {
        widest = std::max(widest, row.size());
    }
    line_filler line(text);
    std::string label;
    std::string word;
    for (std::size_t r = 0; r < rows.size(); ++r) {
        label.assign(" ").append(rows[r]).append(":");
        label.append(widest - rows[r].size() + 1, ' ');
        line.start(label);
        for (std::size_t t = record.row_start[r]; t < record.row_start[r + 1]; ++t) {
            add_term(line, record.row_value[t], columns[static_cast<std::size_t>(record.row_column[t])], word);
        }
        if (line.first()) {
            add_term(line, 0.0, columns.front(), word);
        }
        if (record.row_lower[r] == record.row_upper[r]) {
            line.add("= " + number(record.row_upper[r]));
        } else if (record.row_upper[r] < infinity) {
            line.add("<= " + number(record.row_upper[r]));
        } else {
            line.add(">= " + number(record.row_lower[r]));
        }
        line.end();
        if (text.size() > (std::size_t{1} << 20)) {
            out << text;
            text.clear();
        }
    }
}

void add_bounds(const model_record& record, const std::vector<std::string>& columns, std::string& text) {
    for (std::size_t c = 0; c < columns.size(); ++c) {
        const double lower = record.column_lower[c];
        const double upper = record.column_upper[c];
        text += ' ';
        if (lower == -infinity && upper == infinity) {
            text += columns[c] + " free\n";
            continue;
        }
        text += (lower == -infinity ? "-inf" : number(lower)) + " <= " + columns[c];
        text += upper == infinity ? "\n" : " <= " + number(upper) + "\n";
    }
}

// One blank before a line's first name and two after each name but its last.
void add_integral_columns(const model_record& record, const std::vector<std::string>& columns, bool binary,
                          const char* title, std::string& text) {
    std::size_t length = 0;
    for (std::size_t c = 0; c < columns.size(); ++c) {
        const bool is_binary = record.column_lower[c] == 0.0 && record.column_upper[c] == 1.0;
        if (record.column_integral[c] == 0 || is_binary != binary) {
            continue;
        }
        if (length == 0) {
            text.append(title).append("\n ");
            length = 1;
        } else if (length + 1 + columns[c].size() > line_limit) {
            text += "\n ";
            length = 1;
        } else {
            text += ' ';
            length += 1;
        }
        text.append(columns[c]).append(" ");
        length += columns[c].size() + 1;
    }
    if (length > 0) {
        text += '\n';
    }
}

// A name that some unnamed item gets by default.
bool is_default_name(const std::string& name, char prefix, const std::vector<std::string>& names) {
    if (name.size() < 2 || name[0] != prefix || name[1] == '0') {
        return false;
    }
    std::size_t position = 0;
    const char* end = name.data() + name.size();
    const auto parsed = std::from_chars(name.data() + 1, end, position);
    return parsed.ec == std::errc() && parsed.ptr == end && position <= names.size() && names[position - 1].empty();
}

}  // namespace

std::vector<std::string> lp_names(const std::vector<std::string>& names, char prefix) {
    bool tagged = false;
    std::unordered_set<std::string_view> seen;
    std::vector<std::string> legal(names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        if (names[i].empty()) {
            legal[i] = prefix + std::to_string(i + 1);
            continue;
        }
        tagged = tagged || !seen.insert(names[i]).second || is_default_name(names[i], prefix, names);
        legal[i] = names[i];
        for (char& character : legal[i]) {
            if (const char substitute = legal_substitute(static_cast<unsigned char>(character)); substitute != '\0') {
                character = substitute;
                tagged = true;
            }
        }
    }
    if (tagged) {
        for (std::size_t i = 0; i < legal.size(); ++i) {
            legal[i] += '#' + std::to_string(i);
        }
    }
    return legal;
}

void write_lp(const model_record& record, std::ostream& out) {
    const std::vector<std::string> columns = lp_names(record.column_names, 'x');
    std::string text = "\\ENCODING=ISO-8859-1\n\\Problem name: \n\n";
    text += record.maximize ? "Maximize\n" : "Minimize\n";
    line_filler line(text);
    line.start(" " + (record.objective_name.empty() ? "obj" : record.objective_name) + ":");
    line.end();
    std::string word;
    bool any_term = false;
    for (std::size_t c = 0; c < columns.size(); ++c) {
        if (record.column_objective[c] == 0.0) {
            continue;
        }
        if (!any_term) {
            text.pop_back();
            line.start(" ");
            any_term = true;
        }
        add_term(line, record.column_objective[c], columns[c], word);
    }
    if (any_term) {
        line.end();
    }
    if (record.num_rows() > 0) {
        text += "Subject To\n";
        add_rows(record, columns, text, out);
        text += "Bounds\n";
        add_bounds(record, columns, text);
        add_integral_columns(record, columns, true, "Binaries", text);
        add_integral_columns(record, columns, false, "Generals", text);
    }
    text += "End\n";
    out << text;
}

bool write_lp_file(const model_record& record, const char* path) {
    std::ofstream out(path, std::ios::out | std::ios::trunc | std::ios::binary);
    if (!out) {
        return false;
    }
    write_lp(record, out);
    out.close();
    return !out.fail();
}

}  // namespace solver
