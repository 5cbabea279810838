#include "evaluation/evaluation_tables.hpp"

#include <cstdio>
#include <sstream>

#include "tables/table_text.hpp"

namespace {

using nlohmann::ordered_json;

template <typename kind, std::size_t size>
const char* name_in(const std::array<const char*, size>& names, kind value) {
    return names.at(static_cast<std::size_t>(value));
}

template <typename... values>
std::string printed(const char* format, values... shown) {
    char text[256];
    std::snprintf(text, sizeof text, format, shown...);
    return text;
}

ordered_json share_json(const share_line& line) {
    ordered_json json;
    json["name"] = line.name;
    json["oriented"] = line.oriented;
    json["right"] = line.right;
    json["share"] = line.oriented == 0 ? ordered_json() : ordered_json(line.share());
    json["interval"] = {line.range().lower, line.range().upper};
    json["best_baseline"] = line.baseline;
    return json;
}

ordered_json baseline_json(const baseline_line& line) {
    ordered_json json;
    json["name"] = line.name;
    json["decided"] = line.decided;
    json["right"] = line.right;
    json["share"] = line.decided == 0 ? ordered_json() : ordered_json(line.right / static_cast<double>(line.decided));
    json["score"] = line.score;
    return json;
}

std::string share_text(const char* indent, const share_line& line) {
    const std::string name = indent + line.name;
    if (line.oriented == 0) {
        return printed("%-38s %9ld %9ld\n", name.c_str(), line.oriented, line.right);
    }
    return printed("%-38s %9ld %9ld %7.1f %%   %.1f to %.1f %%\n", name.c_str(), line.oriented, line.right,
                   100.0 * line.share(), 100.0 * line.range().lower, 100.0 * line.range().upper);
}

// In lines of at most 100 characters.
std::string wrapped(const std::string& sentences) {
    constexpr std::size_t longest = 100;
    std::istringstream words(sentences);
    std::string text;
    std::string line;
    for (std::string word; words >> word;) {
        if (!line.empty() && line.size() + 1 + word.size() > longest) {
            text += line + "\n";
            line.clear();
        }
        line += (line.empty() ? "" : " ") + word;
    }
    return text + line + "\n";
}

std::string way_text(const evaluation& made, const evaluation_choices& choices) {
    switch (choices.way) {
        case way_of_hiding::all:
            return "all known directions hidden at once";
        case way_of_hiding::given:
            return "those of \"test\" hidden";
        case way_of_hiding::folds:
            break;
    }
    return "hidden in " + std::to_string(choices.folds) + " folds" +
           (made.runs.size() < static_cast<std::size_t>(choices.folds)
                ? ", of which " + std::to_string(made.runs.size()) + " were run"
                : "");
}

}  // namespace

std::string evaluation_table(const evaluation& made) {
    std::string text;
    append_row(text, {"fold", "first", "second", "file", "line", "found", "right", "status", "regret_min", "regret_max",
                      "outgoing_share", "nearer_to_causes"});
    for (const judged_direction& item : made.judged) {
        const known_direction& known = made.known.at(static_cast<std::size_t>(item.known));
        append_row(text, {std::to_string(item.fold), known.first, known.second, name_of(known.file),
                          std::to_string(known.line), name_in(direction_names, item.found),
                          item.found == found_direction::none ? ""
                          : item.is_right()                   ? "yes"
                                                              : "no",
                          name_in(interaction_status_names, item.status),
                          item.has_regret ? std::to_string(item.regret.lower) : "",
                          item.has_regret ? std::to_string(item.regret.upper) : "", name_in(vote_names, item.share),
                          name_in(vote_names, item.nearness)});
    }
    return text;
}

ordered_json evaluation_json(const evaluation& made, const evaluation_summary& summary,
                             const evaluation_choices& choices, const provenance& origin, const input_files& input) {
    ordered_json json = origin_json(origin, input);
    json["hide"] = name_in(way_names, choices.way);
    if (choices.way == way_of_hiding::folds) {
        json["folds"] = choices.folds;
        json["seed"] = choices.seed;
    }
    json["runs"] = ordered_json::array();
    for (const evaluated_run& run : made.runs) {
        json["runs"].push_back({{"fold", run.fold},
                                {"status", run.optimal ? "Optimal" : "Feasible"},
                                {"value", run.value},
                                {"bound", run.bound}});
    }
    json["hidden"] = summary.hidden;
    json["all"] = share_json(summary.all);
    json["classes"] = ordered_json::array();
    for (const share_line& line : summary.classes) {
        json["classes"].push_back(share_json(line));
    }
    json["baselines"] = ordered_json::array();
    for (const baseline_line& line : summary.baselines) {
        json["baselines"].push_back(baseline_json(line));
    }
    json["conclusion"] = conclusion(summary, choices.way);
    return json;
}

std::string evaluation_text(const evaluation_summary& summary, const evaluation& made,
                            const evaluation_choices& choices) {
    std::string text = "Known directions: " + std::to_string(made.known.size()) + ", " + way_text(made, choices) +
                       ". Hidden: " + std::to_string(summary.hidden) +
                       ", given a direction: " + std::to_string(summary.all.oriented) + ".\n\n";
    text += printed("%-38s %9s %9s %9s   %s\n", "", "decided", "right", "share", "95 % interval");
    text += share_text("", summary.all);
    for (const share_line& line : summary.classes) {
        text += share_text("  ", line);
    }
    text += "baselines, for the same interactions\n";
    for (const baseline_line& line : summary.baselines) {
        const std::string name = "  " + line.name;
        text += printed("%-38s %9ld %9.*f", name.c_str(), line.decided, line.name == "coin" ? 1 : 0, line.right);
        text +=
            line.decided == 0 ? "\n" : printed(" %7.1f %%\n", 100.0 * line.right / static_cast<double>(line.decided));
    }
    return text + "\n" + wrapped(conclusion(summary, choices.way));
}
