#include "tables/table_text.hpp"

#include <cstddef>

namespace {

constexpr std::string_view plain = "\\\t\n\r";
constexpr std::string_view letters = "\\tnr";

}  // namespace

std::string escape_cell(std::string_view text) {
    std::string cell;
    cell.reserve(text.size());
    for (const char c : text) {
        const std::size_t position = plain.find(c);
        if (position == std::string_view::npos) {
            cell += c;
        } else {
            cell += '\\';
            cell += letters[position];
        }
    }
    return cell;
}

std::string unescape_cell(std::string_view cell) {
    std::string text;
    text.reserve(cell.size());
    for (std::size_t i = 0; i < cell.size(); ++i) {
        const std::size_t position =
            cell[i] == '\\' && i + 1 < cell.size() ? letters.find(cell[i + 1]) : std::string_view::npos;
        if (position == std::string_view::npos) {
            text += cell[i];
        } else {
            text += plain[position];
            ++i;
        }
    }
    return text;
}

std::string join_list(const std::vector<std::string>& items, char separator) {
    std::string list;
    for (std::size_t i = 0; i < items.size(); ++i) {
        if (i > 0) {
            list += separator;
        }
        for (const char c : items[i]) {
            if (c == separator || c == '\\') {
                list += '\\';
            }
            list += c;
        }
    }
    return list;
}

std::vector<std::string> split_list(std::string_view list, char separator) {
    std::vector<std::string> items;
    if (list.empty()) {
        return items;
    }
    items.emplace_back();
    for (std::size_t i = 0; i < list.size(); ++i) {
        const bool is_escaped =
            list[i] == '\\' && i + 1 < list.size() && (list[i + 1] == separator || list[i + 1] == '\\');
        if (is_escaped) {
            items.back() += list[++i];
        } else if (list[i] == separator) {
            items.emplace_back();
        } else {
            items.back() += list[i];
        }
    }
    return items;
}

void append_row(std::string& text, const std::vector<std::string>& cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
        if (i > 0) {
            text += '\t';
        }
        text += escape_cell(cells[i]);
    }
    text += '\n';
}
