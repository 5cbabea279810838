// What the judged directions add up to.
#pragma once

#include <string>
#include <vector>

#include "evaluation/evaluation.hpp"

struct interval {
    double lower = 0.0;
    double upper = 1.0;
};

// The interval of a share of which `right` of `all` were seen, by Wilson's score (1927) with
// 95 % confidence; 0 to 1 when nothing was seen.
interval wilson_interval(long right, long all);

struct share_line {
    std::string name;   // "regret 2-3"
    long oriented = 0;  // directions given
    long right = 0;
    double baseline = 0.5;  // best score of a baseline for these, see below

    double share() const { return oriented == 0 ? 0.0 : static_cast<double>(right) / static_cast<double>(oriented); }
    interval range() const { return wilson_interval(right, oriented); }
};

struct baseline_line {
    std::string name;
    long decided = 0;  // of the directions that netorient gave, those that the baseline gives too
    double right = 0.0;
    double score = 0.0;  // share right, where an undecided one counts as a toss of a coin
};

struct evaluation_summary {
    long hidden = 0;
    share_line all;
    std::vector<share_line> classes;       // tied, regret 1, 2-3, 4-9, 10+, not proven
    std::vector<baseline_line> baselines;  // for the same interactions; the coin first
};

evaluation_summary summarize(const std::vector<judged_direction>& judged);

// One plain sentence or two of what it means, chosen by the figures: beside the baselines,
// which classes may be relied on, and what the way of hiding does to it.
std::string conclusion(const evaluation_summary& summary, way_of_hiding way);
