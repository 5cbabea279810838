#include "checking/pair_file_check.hpp"

#include <cstdlib>

#include "checking/line_hazards.hpp"
#include "input/pair_record.hpp"

void unknown_mentions::add(const std::string& name, const std::string& file, long line) {
    const auto [place, is_new] = positions.emplace(name, names.size());
    if (is_new) {
        names.push_back({.name = name, .mentions = {}, .meant = {}});
    }
    names[place->second].mentions.push_back({.file = file, .line = line});
}

namespace {

// Empty lines hold nothing that could be lost.
void drop_lines(const source_lines& lines, long first, long last, drop_reason reason, file_check& check) {
    for (long number = first; number <= last; ++number) {
        if (!lines.line(number).empty()) {
            check.dropped[reason].push_back(number);
        }
    }
}

}  // namespace

template <typename taker>
void pair_file_checker::for_each_record(text_file& file, bool needs_line_feed, file_check& check, const taker& take) {
    check.opened = file.opened;
    if (!file.opened) {
        check.hazards[hazard::not_opened];
        return;
    }
    const std::string text = file.text;
    const source_lines lines(text);
    check.lines = lines.count();
    find_pair_hazards(lines, check);
    if (!names_.fits()) {
        drop_lines(lines, 1, lines.count(), drop_reason::not_read, check);
        return;
    }
    pair_record found;
    std::string_view long_name;
    while (file.position < text.size()) {
        const long line = lines.number_at(file.position);
        const record_end end = take_pair_record(file, found, long_name);
        if (end == record_end::name_too_long) {
            drop_lines(lines, line, line, drop_reason::name_too_long, check);
            continue;
        }
        if (end == record_end::file_ended) {
            // More than one line of it, or a last line that is ended: the blanks are amiss.
            const bool is_cut = line == lines.count() && !lines.is_ended(line);
            drop_lines(lines, line, lines.count(), is_cut ? drop_reason::no_line_feed : drop_reason::runs_on, check);
            return;
        }
        if (needs_line_feed && !found.line_ended) {
            const bool runs_on = line < lines.count();
            drop_lines(lines, line, lines.count(), runs_on ? drop_reason::runs_on : drop_reason::no_line_feed, check);
            return;
        }
        const long last_line = lines.number_at(file.position - 1);
        const bool runs_on = (found.first + found.second).find('\n') != std::string::npos;
        if (runs_on) {
            drop_lines(lines, line, last_line, drop_reason::runs_on, check);
            continue;
        }
        drop_lines(lines, line + 1, last_line, drop_reason::runs_on, check);
        const record whole{
            .first = names_.find(found.first), .second = names_.find(found.second), .rest = found.rest, .line = line};
        if (whole.first >= 0 && whole.second >= 0) {
            take(whole);
            continue;
        }
        check.dropped[drop_reason::unknown_name].push_back(line);
        if (whole.first < 0) {
            unknown_.add(found.first, check.name, line);
        }
        if (whole.second < 0) {
            unknown_.add(found.second, check.name, line);
        }
    }
}

namespace {

std::uint64_t key_of(int tail, int head) {
    return (static_cast<std::uint64_t>(tail) << 32) | static_cast<std::uint64_t>(head);
}

}  // namespace

void pair_file_checker::add_arc(int tail, int head, interaction_kind kind) {
    arcs_.emplace(key_of(tail, head), kind);
}

const interaction_kind* pair_file_checker::find_arc(int tail, int head) const {
    const auto found = arcs_.find(key_of(tail, head));
    return found == arcs_.end() ? nullptr : &found->second;
}

// What is known of two proteins stands against what a later line says of them: an arc
// against the same arc, any arc against an interaction without direction.
drop_reason pair_file_checker::reason_to_drop(const record& line, interaction_kind kind, bool& drops) const {
    drops = true;
    if (line.first == line.second) {
        return drop_reason::self_loop;
    }
    const interaction_kind* known = find_arc(line.first, line.second);
    if (known == nullptr && kind == interaction_kind::undirected) {
        known = find_arc(line.second, line.first);
    }
    drops = known != nullptr;
    if (!drops || *known == kind) {
        return drop_reason::repeated;
    }
    return *known == interaction_kind::test ? drop_reason::test_interaction : drop_reason::directed_interaction;
}

void pair_file_checker::check_interactions(text_file file, interaction_kind kind, file_check& check) {
    for_each_record(file, true, check, [&](const record& line) {
        bool drops;
        const drop_reason reason = reason_to_drop(line, kind, drops);
        if (drops) {
            check.dropped[reason].push_back(line.line);
            return;
        }
        ++check.taken;
        char* number_end = nullptr;
        const double confidence = std::strtod(line.rest.c_str(), &number_end);
        if (number_end == line.rest.c_str()) {
            check.hazards[hazard::no_number].push_back(line.line);
        }
        network_.interactions.push_back({line.first, line.second, kind, confidence, line.line});
        add_arc(line.first, line.second, kind);
        if (kind != interaction_kind::directed) {
            add_arc(line.second, line.first, kind);
        }
    });
}

void pair_file_checker::check_knockouts(text_file file, file_check& check) {
    for_each_record(file, false, check, [&](const record& line) {
        ++check.taken;
        network_.pairs.push_back({line.first, line.second, line.line});
    });
}
