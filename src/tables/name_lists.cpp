#include "tables/name_lists.hpp"

#include <charconv>

namespace {

constexpr std::string_view special = "\\>;";

void append_name(std::string& cell, const std::string& name) {
    for (const char c : name) {
        if (special.find(c) != std::string_view::npos) {
            cell += '\\';
        }
        cell += c;
    }
}

// Lists of names: semicolons end a list, > ends a name.
std::vector<std::vector<std::string>> take_apart(std::string_view cell) {
    std::vector<std::vector<std::string>> lists;
    if (cell.empty()) {
        return lists;
    }
    lists.push_back({""});
    for (std::size_t i = 0; i < cell.size(); ++i) {
        if (cell[i] == ';') {
            lists.push_back({""});
        } else if (cell[i] == '>') {
            lists.back().emplace_back();
        } else {
            const bool escaped =
                cell[i] == '\\' && i + 1 < cell.size() && special.find(cell[i + 1]) != std::string_view::npos;
            i += escaped ? 1 : 0;
            lists.back().back() += cell[i];
        }
    }
    return lists;
}

}  // namespace

std::string path_cell(const std::vector<std::string>& names) {
    std::string cell;
    for (const std::string& name : names) {
        if (&name != &names.front()) {
            cell += '>';
        }
        append_name(cell, name);
    }
    return cell;
}

std::vector<std::string> read_path_cell(std::string_view cell) {
    const auto lists = take_apart(cell);
    return lists.empty() ? std::vector<std::string>() : lists.front();
}

std::string pair_list_cell(const pair_list& list) {
    std::string cell;
    for (const auto& [cause, effect] : list.pairs) {
        cell += cell.empty() ? "" : ";";
        cell += path_cell({cause, effect});
    }
    if (list.more > 0) {
        cell += (cell.empty() ? "+" : ";+") + std::to_string(list.more);
    }
    return cell;
}

pair_list read_pair_list_cell(std::string_view cell) {
    pair_list list;
    for (const std::vector<std::string>& names : take_apart(cell)) {
        if (names.size() == 2) {
            list.pairs.emplace_back(names[0], names[1]);
        } else if (names.size() == 1 && names[0].starts_with('+')) {
            std::from_chars(names[0].data() + 1, names[0].data() + names[0].size(), list.more);
        }
    }
    return list;
}
