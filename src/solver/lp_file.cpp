// The rules here are CPLEX's own, found out from the files that it writes; the
// tests compare with it byte for byte where its library is at hand.
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
constexpr std::size_t widest_indent = 33;

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

// A name may not begin as a number may; such a one gets a '_' in front, and so
// does one that begins with a character that is replaced.
std::string legal_name(const std::string& name) {
    std::string legal;
    const char first = name.front();
    if (std::strchr(".0123456789eE", first) != nullptr || legal_substitute(static_cast<unsigned char>(first)) != '\0') {
        legal += '_';
    }
    for (const char character : name) {
        const char substitute = legal_substitute(static_cast<unsigned char>(character));
        legal += substitute == '\0' ? character : substitute;
    }
    return legal;
}

// Fifteen significant digits at most, exponents without a leading zero.
std::string number(double value) {
    char text[32];
    if (std::abs(value) < 1e15 && value == std::trunc(value)) {
        return std::string(text, std::to_chars(text, text + sizeof text, static_cast<long long>(value)).ptr);
    }
    std::string digits(text, std::to_chars(text, text + sizeof text, value, std::chars_format::general, 15).ptr);
    const std::size_t exponent = digits.find('e');
    if (exponent != std::string::npos && digits[exponent + 2] == '0') {
        digits.erase(exponent + 2, 1);
    }
    return digits;
}

// How long CPLEX takes a word to be: it counts the bytes that the word would have
// in UTF-8, read as ISO-8859-1.
std::size_t length_of(std::string_view word) {
    const auto beyond_ascii = [](char byte) { return static_cast<unsigned char>(byte) > 0x7f; };
    return word.size() + static_cast<std::size_t>(std::count_if(word.begin(), word.end(), beyond_ascii));
}

// Gathers the words of one row or of the objective and breaks lines between them.
class line_filler {
 public:
    explicit line_filler(std::string& text) : text_(text) {}

    // The label stands at the start of a line, padded to a width.
    void start(std::string_view label, std::size_t width) {
        text_.append(" ").append(label).append(":");
        text_.append(width > label.size() ? width - label.size() : 0, ' ');
        length_ = std::max(width, label.size()) + 2;
        indent_ = std::min(length_ + 1, widest_indent);
        first_ = true;
    }
    void add(std::string_view word) {
        const std::size_t length = length_of(word);
        if (length_ + 1 + length > line_limit && length_ >= indent_) {
            text_ += '\n';
            text_.append(indent_, ' ');
            length_ = indent_;
        } else {
            text_ += ' ';
            length_ += 1;
        }
        text_ += word;
        length_ += length;
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

void add_term(line_filler& line, double coefficient, std::string_view name, std::string& word) {
    word.clear();
    if (coefficient < 0.0) {
        word += "- ";
    } else if (!line.first()) {
        word += "+ ";
    }
    const double size = std::abs(coefficient);
    if (size != 1.0) {
        word.append(number(size)).append(" ");
    }
    line.add(word.append(name));
}

// Terms with a coefficient, and those columns that would not be named otherwise.
void add_objective(const model_record& record, const std::vector<std::string>& columns, std::string& text) {
    std::vector<char> in_row(columns.size(), 0);
    for (std::size_t t = 0; t < record.row_column.size(); ++t) {
        if (record.row_value[t] != 0.0) {
            in_row[static_cast<std::size_t>(record.row_column[t])] = 1;
        }
    }
    line_filler line(text);
    const std::string name = record.objective_name.empty() ? "obj1" : record.objective_name;
    line.start(lp_names({name}, '\0').front(), 0);
    std::string word;
    for (std::size_t c = 0; c < columns.size(); ++c) {
        if (record.column_objective[c] != 0.0 || in_row[c] == 0) {
            add_term(line, record.column_objective[c], columns[c], word);
        }
    }
    if (record.objective_constant != 0.0) {
        const char* sign = record.objective_constant < 0.0 ? "- " : line.first() ? "" : "+ ";
        line.add(sign + number(std::abs(record.objective_constant)));
    }
    line.end();
}

std::string right_side(double lower, double upper) {
    if (lower == upper) {
        return " = " + number(upper);
    }
    return upper < infinity ? "<= " + number(upper) : ">= " + number(lower);
}

void add_rows(const model_record& record, const std::vector<std::string>& columns, std::string& text,
              std::ostream& out) {
    const std::vector<std::string> rows = lp_names(record.row_names, 'c');
    std::size_t width = 0;
    for (const std::string& row : rows) {
        width = std::max(width, row.size());
    }
    width = std::min(width, widest_indent - 3);
    line_filler line(text);
    std::string word;
    for (std::size_t r = 0; r < rows.size(); ++r) {
        line.start(rows[r], width);
        for (std::size_t t = record.row_start[r]; t < record.row_start[r + 1]; ++t) {
            if (record.row_value[t] != 0.0) {
                add_term(line, record.row_value[t], columns[static_cast<std::size_t>(record.row_column[t])], word);
            }
        }
        line.add(right_side(record.row_lower[r], record.row_upper[r]));
        line.end();
        if (text.size() > (std::size_t{1} << 20)) {
            out << text;
            text.clear();
        }
    }
}

void add_bounds(const model_record& record, const std::vector<std::string>& columns, std::string& text) {
    const char* title = "Bounds\n";
    for (std::size_t c = 0; c < columns.size(); ++c) {
        const double lower = record.column_lower[c];
        const double upper = record.column_upper[c];
        if (lower == 0.0 && upper == infinity) {
            continue;
        }
        text.append(title);
        title = "";
        if (lower == -infinity && upper == infinity) {
            text.append("      ").append(columns[c]).append(" Free\n");
        } else if (lower == upper) {
            text.append("      ").append(columns[c]).append(" = ").append(number(upper)).append("\n");
        } else if (upper == infinity) {
            text.append("      ").append(columns[c]).append(" >= ").append(number(lower)).append("\n");
        } else {
            text.append(lower < 0.0 && lower > -infinity ? "" : " ")
                .append(lower == -infinity ? "-Inf" : number(lower));
            text.append(" <= ").append(columns[c]).append(" <= ").append(number(upper)).append("\n");
        }
    }
}

// One blank before a line's first name and two after each name but its last.
void add_integral_columns(const model_record& record, const std::vector<std::string>& columns, bool binary,
                          const char* title, std::string& text) {
    std::size_t length = 0;
    for (std::size_t c = 0; c < columns.size(); ++c) {
        const bool is_binary = record.column_lower[c] >= 0.0 && record.column_upper[c] <= 1.0;
        if (record.column_integral[c] == 0 || is_binary != binary) {
            continue;
        }
        const std::size_t name_length = length_of(columns[c]);
        if (length == 0) {
            text.append(title).append("\n ");
            length = 1;
        } else if (length + 2 + name_length > line_limit) {
            text += "\n ";
            length = 1;
        } else {
            text += ' ';
            length += 1;
        }
        text.append(columns[c]).append(" ");
        length += name_length + 1;
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
        legal[i] = legal_name(names[i]);
        tagged =
            tagged || legal[i] != names[i] || !seen.insert(names[i]).second || is_default_name(names[i], prefix, names);
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
    add_objective(record, columns, text);
    if (record.num_rows() > 0) {
        text += "Subject To\n";
        add_rows(record, columns, text, out);
    }
    add_bounds(record, columns, text);
    add_integral_columns(record, columns, true, "Binaries", text);
    add_integral_columns(record, columns, false, "Generals", text);
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
