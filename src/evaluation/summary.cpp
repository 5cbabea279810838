#include "evaluation/summary.hpp"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace {

enum regret_class { tied, one, two_to_three, four_to_nine, ten_and_more, not_proven };

constexpr std::array<const char*, 6> class_names = {"tied (regret 0)", "regret 1",   "regret 2-3",
                                                    "regret 4-9",      "regret 10+", "not proven"};

// What is decided is so by at least its lower end.
regret_class class_of(const judged_direction& item) {
    if (item.status == interaction_status::tied) {
        return tied;
    }
    if (item.status != interaction_status::decided) {
        return not_proven;
    }
    const long regret = item.regret.lower;
    return regret >= 10 ? ten_and_more : regret >= 4 ? four_to_nine : regret >= 2 ? two_to_three : one;
}

// What each baseline says of some directions, beginning with the coin.
class baseline_counter {
 public:
    void add(const judged_direction& item) {
        ++all_;
        add_vote(lines_[1], item.share);
        add_vote(lines_[2], item.nearness);
    }

    std::vector<baseline_line> lines() const {
        std::vector<baseline_line> counted = lines_;
        const auto all = static_cast<double>(all_);
        counted[0].decided = all_;
        counted[0].right = all / 2.0;
        for (baseline_line& line : counted) {
            const double tossed = all - static_cast<double>(line.decided);
            line.score = all_ > 0 ? (line.right + tossed / 2.0) / all : 0.5;
        }
        return counted;
    }

 private:
    static void add_vote(baseline_line& line, vote given) {
        line.decided += given != vote::undecided ? 1 : 0;
        line.right += given == vote::right ? 1.0 : 0.0;
    }

    long all_ = 0;
    std::vector<baseline_line> lines_ = {{"coin"}, {"larger share of known outgoing arcs"}, {"nearer to the causes"}};
};

const baseline_line& best_of(const std::vector<baseline_line>& lines) {
    return *std::max_element(lines.begin(), lines.end(),
                             [](const auto& a, const auto& b) { return a.score < b.score; });
}

std::string percent(double share) {
    char text[16];
    std::snprintf(text, sizeof text, "%.0f %%", 100.0 * share);
    return text;
}

std::string listed(const std::vector<std::string>& names) {
    std::string text;
    for (std::size_t i = 0; i < names.size(); ++i) {
        text += (i == 0 ? "" : i + 1 == names.size() ? " and " : ", ") + names[i];
    }
    return text;
}

// A class may be relied on when all of its interval lies above a coin and the baseline that
// is best in it. What keeps another from that is said: the baseline, or its smallness.
std::string about_classes(const evaluation_summary& summary) {
    constexpr long few = 30;
    std::vector<std::string> reliable;
    std::vector<std::string> above_coin;
    std::vector<std::string> too_few;
    std::vector<std::string> unreliable;
    for (const share_line& line : summary.classes) {
        if (line.oriented > 0) {
            const double level = line.baseline;
            const double lower = line.range().lower;
            const bool may_be_above = line.oriented < few && line.range().upper > level;
            (lower > level  ? reliable
             : may_be_above ? too_few
             : lower > 0.5  ? above_coin
                            : unreliable)
                .push_back(line.name);
        }
    }
    std::string text;
    const auto add = [&](const std::vector<std::string>& names, const char* what) {
        if (!names.empty()) {
            text += (text.empty() ? "" : "; ") + listed(names) + what;
        }
    };
    add(reliable, " may be relied on");
    add(above_coin, above_coin.size() == 1 ? " is better than a coin, but no better than a baseline"
                                           : " are better than a coin, but no better than a baseline");
    add(too_few, too_few.size() == 1 ? " is too small a class to tell" : " are too small classes to tell");
    add(unreliable, " may not be relied on");
    return " By regret: " + text + ".";
}

}  // namespace

interval wilson_interval(long right, long all) {
    if (all == 0) {
        return {};
    }
    constexpr double z = 1.959963984540054;  // of the normal distribution, 2.5 % beyond it
    const double n = static_cast<double>(all);
    const double share = static_cast<double>(right) / n;
    const double centre = share + z * z / (2.0 * n);
    const double reach = z * std::sqrt(share * (1.0 - share) / n + z * z / (4.0 * n * n));
    const double scale = 1.0 + z * z / n;
    return {std::max(0.0, (centre - reach) / scale), std::min(1.0, (centre + reach) / scale)};
}

evaluation_summary summarize(const std::vector<judged_direction>& judged) {
    evaluation_summary made;
    made.hidden = static_cast<long>(judged.size());
    made.all.name = "all";
    std::array<baseline_counter, class_names.size()> in_class;
    baseline_counter in_all;
    for (const char* name : class_names) {
        made.classes.push_back({name});
    }
    for (const judged_direction& item : judged) {
        if (item.found == found_direction::none) {
            continue;
        }
        const regret_class regret = class_of(item);
        for (share_line* counted : {&made.all, &made.classes[regret]}) {
            ++counted->oriented;
            counted->right += item.is_right() ? 1 : 0;
        }
        in_all.add(item);
        in_class.at(regret).add(item);
    }
    made.baselines = in_all.lines();
    made.all.baseline = best_of(made.baselines).score;
    for (std::size_t i = 0; i < made.classes.size(); ++i) {
        made.classes[i].baseline = best_of(in_class.at(i).lines()).score;
    }
    return made;
}

std::string conclusion(const evaluation_summary& summary, way_of_hiding way) {
    if (summary.all.oriented == 0) {
        return summary.hidden == 0 ? "No direction was hidden, so nothing can be said."
                                   : "No hidden direction was found, so nothing can be said.";
    }
    const baseline_line& best = best_of(summary.baselines);
    const interval range = summary.all.range();
    const std::string share = percent(summary.all.share()) + " of the directions given are right";
    std::string text;
    if (range.upper < 0.5) {
        text = "Worse than a coin: only " + share + ".";
    } else if (range.lower > best.score) {
        text = "Better than every baseline: " + share + ", the best baseline (" + best.name + ") has " +
               percent(best.score) + ".";
    } else {
        text = "No better than " + std::string(best.name == "coin" ? "a coin" : "the baseline " + best.name) +
               ", as far as " + std::to_string(summary.all.oriented) + " directions can tell: " + share + ", against " +
               percent(best.score) + ".";
    }
    text += about_classes(summary);
    if (way != way_of_hiding::all) {
        text +=
            " Mind the way of hiding: where directions of the same proteins stay visible, these lead out of regulators,"
            " so that paths can enter a regulator only over what is hidden, against its true direction."
            " --hide all is free of this bias.";
    }
    return text;
}
