#include <algorithm>
#include <cstdio>

#include "checking/check_input.hpp"

namespace {

// "1 line", "2 lines".
std::string counted(long count, const std::string& what) {
    return std::to_string(count) + " " + what + (count == 1 ? "" : "s");
}

// Bytes that a terminal would not show as they are.
std::string shown_name(const std::string& name) {
    if (name.empty()) {
        return "(empty)";
    }
    std::string text;
    for (const char c : name) {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x20 || byte == 0x7f) {
            char code[8];
            std::snprintf(code, sizeof code, "\\x%02x", byte);
            text += c == '\t' ? "\\t" : c == '\r' ? "\\r" : code;
        } else {
            text += c;
        }
    }
    return text;
}

std::string and_more(std::size_t count, std::size_t shown) {
    return count > shown ? ", and " + std::to_string(count - shown) + " more" : "";
}

std::string line_list(const line_numbers& lines, std::size_t shown) {
    std::string text = lines.size() == 1 ? "line " : "lines ";
    for (std::size_t i = 0; i < std::min(lines.size(), shown); ++i) {
        text += (i > 0 ? ", " : "") + std::to_string(lines[i]);
    }
    return text + and_more(lines.size(), shown);
}

std::string name_list(const std::vector<std::string>& names) {
    constexpr std::size_t shown = 3;
    std::string text;
    for (std::size_t i = 0; i < std::min(names.size(), shown); ++i) {
        text += (i > 0 ? " or " : "") + shown_name(names[i]);
    }
    return text + and_more(names.size(), shown);
}

void append_file(std::string& text, const file_check& file, std::size_t shown) {
    text += file.name + ": " +
            (file.opened ? counted(file.lines, "line") + ", " + std::to_string(file.taken) + " taken" : "");
    if (!file.opened) {
        text += "cannot be opened\n";
        return;
    }
    text += '\n';
    for (const auto& [reason, lines] : file.dropped) {
        text += std::string("  ") + (is_loss(reason) ? "lost, " : "dropped, ") + describe(reason) + ": " +
                std::to_string(lines.size()) + " (" + line_list(lines, shown) + ")\n";
    }
    for (const auto& [what, lines] : file.hazards) {
        text += std::string("  note: ") + describe(what) +
                (lines.empty() ? "\n" : ": " + std::to_string(lines.size()) + " (" + line_list(lines, shown) + ")\n");
    }
}

// A heading with the count, and an indented line for each that is shown.
template <typename item, typename describer>
void append_list(std::string& text, const std::string& heading, const std::vector<item>& items, std::size_t shown,
                 const describer& describe_item) {
    if (items.empty()) {
        return;
    }
    text += heading + ": " + std::to_string(items.size()) + '\n';
    for (std::size_t i = 0; i < std::min(items.size(), shown); ++i) {
        text += "  " + describe_item(items[i]) + '\n';
    }
    if (items.size() > shown) {
        text += "  and " + std::to_string(items.size() - shown) + " more (--all shows them)\n";
    }
}

std::string describe_unknown(const unknown_name& unknown) {
    std::string text = shown_name(unknown.name) + " (" + unknown.mentions[0].file + " line " +
                       std::to_string(unknown.mentions[0].line);
    if (unknown.mentions.size() > 1) {
        text += ", " + std::to_string(unknown.mentions.size()) + " times in all";
    }
    text += ")";
    if (unknown.meant.how == likeness::same) {
        return text + ": stands in names.txt, where a run does not find it";
    }
    return unknown.meant.names.empty() ? text
                                       : text + ": is " + name_list(unknown.meant.names) + " meant? They differ in " +
                                             describe(unknown.meant.how);
}

std::string describe_pair(const std::string& cause, const std::string& effect) {
    return shown_name(cause) + " -> " + shown_name(effect);
}

// How many for each reason, a line each.
std::string count_reasons(const std::vector<pathless_pair>& pathless) {
    std::map<no_path, long> counts;
    for (const pathless_pair& pair : pathless) {
        ++counts[pair.why];
    }
    std::string text;
    for (const auto& [why, count] : counts) {
        text += "  " + std::string(describe(why)) + ": " + std::to_string(count) + '\n';
    }
    return text;
}

}  // namespace

std::string check_text(const input_check& check, std::size_t shown) {
    std::string text;
    for (const file_check& file : check.files) {
        append_file(text, file, shown);
    }
    append_list(text, "Unknown names", check.unknown_names, shown, describe_unknown);
    append_list(text, "Proteins that nothing mentions", check.unmentioned, shown,
                [](const unmentioned_protein& protein) {
                    return shown_name(protein.name) + " (line " + std::to_string(protein.line) + ")";
                });
    append_list(text, "Knockout pairs listed more than once, which count more than once", check.repeated_pairs, shown,
                [&](const repeated_pair& pair) {
                    return describe_pair(pair.cause, pair.effect) + " (" + line_list(pair.lines, shown) + ")";
                });
    append_list(text, "Knockout pairs without a path, which a run leaves out", check.pathless_pairs, shown,
                [](const pathless_pair& pair) {
                    return describe_pair(pair.cause, pair.effect) + " (line " + std::to_string(pair.line) +
                           "): " + describe(pair.why);
                });
    if (check.pathless_pairs.size() > shown) {
        text += "Why they have none\n" + count_reasons(check.pathless_pairs);
    }
    append_list(text, "Arcs that share a variable's name in shortest.lp", check.shared_variables, shown,
                [](const shared_variable& shared) { return shared.variable + ": " + name_list(shared.arcs); });
    const long lost = check.lines_lost();
    const auto unknown = static_cast<long>(check.unknown_names.size());
    text += check.is_clean() ? "Nothing is lost."
                             : "Lost: " + counted(lost, "line") + "; " + counted(unknown, "unknown name") + ".";
    const std::size_t num_pairs = check.network.pairs.size();
    return text + " A run finds " + counted(std::max(check.network.num_searched, 0), "protein") + ", " +
           counted(static_cast<long>(check.network.interactions.size()), "interaction") + " and " +
           counted(static_cast<long>(num_pairs), "knockout pair") + ", " +
           std::to_string(num_pairs - check.pathless_pairs.size()) + " of them with a path.\n";
}
