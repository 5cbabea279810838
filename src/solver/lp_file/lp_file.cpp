// The rules here are CPLEX's own, found out from the files that it writes; the
// tests compare with it byte for byte where its library is at hand.
#include "solver/lp_file/lp_file.hpp"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <initializer_list>
#include <string>
#include <string_view>

#include "process/output_file.hpp"
#include "solver/lp_file/lp_names.hpp"
#include "solver/lp_file/text_block.hpp"

namespace solver {
namespace {

constexpr std::size_t line_limit = 79;
constexpr std::size_t widest_indent = 33;

// A number as text, at most fifteen significant digits, exponents without a leading zero.
class number_text {
 public:
    explicit number_text(double value) {
        if (std::abs(value) < 1e15 && value == std::trunc(value)) {
            end_ = std::to_chars(text_, text_ + sizeof text_, static_cast<long long>(value)).ptr;
            return;
        }
        end_ = std::to_chars(text_, text_ + sizeof text_, value, std::chars_format::general, 15).ptr;
        char* exponent = std::find(text_, end_, 'e');
        if (exponent != end_ && exponent[2] == '0') {
            end_ = std::copy(exponent + 3, end_, exponent + 2);
        }
    }
    operator std::string_view() const { return {text_, static_cast<std::size_t>(end_ - text_)}; }

 private:
    char text_[32];
    char* end_;
};

// How long CPLEX takes a word to be: it counts the bytes that the word would have
// in UTF-8, read as ISO-8859-1.
std::size_t length_of(std::string_view word) {
    const auto beyond_ascii = [](char byte) { return static_cast<unsigned char>(byte) > 0x7f; };
    return word.size() + static_cast<std::size_t>(std::count_if(word.begin(), word.end(), beyond_ascii));
}

void add_all(text_block& text, std::initializer_list<std::string_view> pieces) {
    for (const std::string_view piece : pieces) {
        text.add(piece);
    }
}

// Gathers the words of one row or of the objective and breaks lines between them.
class line_filler {
 public:
    explicit line_filler(text_block& text) : text_(text) {}

    // The label stands at the start of a line, padded to a width.
    void start(std::string_view label, std::size_t width) {
        text_.add(' ');
        text_.add(label);
        text_.add(':');
        text_.add_blanks(width > label.size() ? width - label.size() : 0);
        length_ = std::max(width, label.size()) + 2;
        indent_ = std::min(length_ + 1, widest_indent);
        first_ = true;
    }
    // A word may be given in two pieces, the first of them plain ASCII.
    void add(std::string_view beginning, std::string_view rest) {
        const std::size_t length = beginning.size() + length_of(rest);
        if (length_ + 1 + length > line_limit && length_ >= indent_) {
            text_.add('\n');
            text_.add_blanks(indent_);
            length_ = indent_;
        } else {
            text_.add(' ');
            length_ += 1;
        }
        text_.add(beginning);
        text_.add(rest);
        length_ += length;
        first_ = false;
    }
    void add_term(double coefficient, std::string_view name) {
        const std::string_view sign = coefficient < 0.0 ? "- " : first_ ? "" : "+ ";
        const double size = std::abs(coefficient);
        if (size == 1.0) {
            add(sign, name);
        } else {
            add(std::string(sign).append(number_text(size)).append(" "), name);
        }
    }
    bool first() const { return first_; }
    void end() { text_.add('\n'); }

 private:
    text_block& text_;
    std::size_t length_ = 0;
    std::size_t indent_ = 0;
    bool first_ = true;
};

// Terms with a coefficient, and those columns that would not be named otherwise.
void add_objective(const model_record& record, const lp_names& columns, text_block& text) {
    std::vector<char> in_row(columns.size(), 0);
    for (std::size_t t = 0; t < record.row_column.size(); ++t) {
        if (record.row_value[t] != 0.0) {
            in_row[static_cast<std::size_t>(record.row_column[t])] = 1;
        }
    }
    line_filler line(text);
    name_list name;
    name.push_back(record.objective_name.empty() ? "obj1" : record.objective_name);
    line.start(lp_names(name, '\0')[0], 0);
    for (std::size_t c = 0; c < columns.size(); ++c) {
        if (record.column_objective[c] != 0.0 || in_row[c] == 0) {
            line.add_term(record.column_objective[c], columns[c]);
        }
    }
    if (record.objective_constant != 0.0) {
        const std::string_view sign = record.objective_constant < 0.0 ? "- " : line.first() ? "" : "+ ";
        line.add(sign, number_text(std::abs(record.objective_constant)));
    }
    line.end();
}

void add_right_side(line_filler& line, double lower, double upper) {
    if (lower == upper) {
        line.add(" = ", number_text(upper));
    } else if (upper < infinity) {
        line.add("<= ", number_text(upper));
    } else {
        line.add(">= ", number_text(lower));
    }
}

void add_rows(const model_record& record, const lp_names& columns, text_block& text) {
    const lp_names rows(record.row_names, 'c');
    std::size_t width = 0;
    for (std::size_t r = 0; r < rows.size(); ++r) {
        width = std::max(width, rows[r].size());
    }
    width = std::min(width, widest_indent - 3);
    line_filler line(text);
    for (std::size_t r = 0; r < rows.size() && !text.is_cut(); ++r) {
        line.start(rows[r], width);
        for (std::size_t t = record.row_start[r]; t < record.row_start[r + 1]; ++t) {
            if (record.row_value[t] != 0.0) {
                line.add_term(record.row_value[t], columns[static_cast<std::size_t>(record.row_column[t])]);
            }
        }
        add_right_side(line, record.row_lower[r], record.row_upper[r]);
        line.end();
    }
}

void add_bounds(const model_record& record, const lp_names& columns, text_block& text) {
    std::string_view title = "Bounds\n";
    for (std::size_t c = 0; c < columns.size() && !text.is_cut(); ++c) {
        const double lower = record.column_lower[c];
        const double upper = record.column_upper[c];
        // The format's own bounds go without saying, but for whole numbers.
        if (lower == 0.0 && upper == infinity && record.column_integral[c] == 0) {
            continue;
        }
        text.add(title);
        title = {};
        if (lower == -infinity && upper == infinity) {
            add_all(text, {"      ", columns[c], " Free\n"});
        } else if (lower == upper) {
            add_all(text, {"      ", columns[c], " = ", number_text(upper), "\n"});
        } else if (upper == infinity) {
            add_all(text, {"      ", columns[c], " >= ", number_text(lower), "\n"});
        } else if (lower == -infinity) {
            add_all(text, {" -Inf <= ", columns[c], " <= ", number_text(upper), "\n"});
        } else {
            const std::string_view blank = lower < 0.0 ? "" : " ";
            add_all(text, {blank, number_text(lower), " <= ", columns[c], " <= ", number_text(upper), "\n"});
        }
    }
}

// One blank before a line's first name and two after each name but its last.
void add_integral_columns(const model_record& record, const lp_names& columns, bool binary, std::string_view title,
                          text_block& text) {
    std::size_t length = 0;
    for (std::size_t c = 0; c < columns.size(); ++c) {
        const bool is_binary = record.column_lower[c] >= 0.0 && record.column_upper[c] <= 1.0;
        if (record.column_integral[c] == 0 || is_binary != binary) {
            continue;
        }
        const std::size_t name_length = length_of(columns[c]);
        if (length == 0) {
            add_all(text, {title, "\n "});
            length = 1;
        } else if (length + 2 + name_length > line_limit) {
            text.add("\n ");
            length = 1;
        } else {
            text.add(' ');
            length += 1;
        }
        add_all(text, {columns[c], " "});
        length += name_length + 1;
    }
    if (length > 0) {
        text.add('\n');
    }
}

}  // namespace

namespace {

// False when cut: then some of it is missing.
bool write_lp_unless(const std::function<bool()>& cut_requested, const model_record& record, std::ostream& out) {
    if (cut_requested()) {
        return false;
    }
    const lp_names columns(record.column_names, 'x');
    text_block text(out, cut_requested);
    text.add("\\ENCODING=ISO-8859-1\n\\Problem name: \n\n");
    text.add(record.maximize ? "Maximize\n" : "Minimize\n");
    add_objective(record, columns, text);
    if (record.num_rows() > 0) {
        text.add("Subject To\n");
        add_rows(record, columns, text);
    }
    add_bounds(record, columns, text);
    add_integral_columns(record, columns, true, "Binaries", text);
    add_integral_columns(record, columns, false, "Generals", text);
    text.add("End\n");
    return !text.is_cut();
}

}  // namespace

void write_lp(const model_record& record, std::ostream& out) {
    write_lp_unless([] { return false; }, record, out);
}

std::string write_lp_file(const model_record& record, const char* path, const std::function<bool()>& cut_requested) {
    output_file file(path);
    const bool is_whole = !file.is_open() || write_lp_unless(cut_requested, record, file.text());
    std::string reason = file.finish();
    if (!is_whole) {
        take_away(path);
        return "ended by a signal";
    }
    return reason;
}

}  // namespace solver
