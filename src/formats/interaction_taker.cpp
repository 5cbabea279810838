#include "formats/interaction_taker.hpp"

#include <algorithm>
#include <cmath>

#include "tables/unusable_input.hpp"

void line_tally::add(long line) {
    ++count;
    if (first.size() < shown) {
        first.push_back(line);
    }
}

void interaction_taker::drop(long line, const std::string& reason) {
    ++account_.rows;
    account_.dropped[reason].add(line);
}

void interaction_taker::take(const interaction_row& row) {
    if (row.confidence && !std::isfinite(*row.confidence)) {
        throw unusable_input(account_.path + ":" + std::to_string(row.line) + ": a confidence is infinite");
    }
    if (is_missing_name(row.first) || is_missing_name(row.second)) {
        drop(row.line, "a name is missing");
    } else if (row.first == row.second) {
        drop(row.line, "a protein with itself");
    } else if (options_.min_confidence && !row.confidence) {
        drop(row.line, "no confidence");
    } else if (options_.min_confidence && *row.confidence < *options_.min_confidence) {
        drop(row.line, "confidence below the minimum");
    } else {
        ++account_.rows;
        ++account_.taken;
        sink_(row);
    }
}

bool interaction_taker::is_directed(std::string_view word, bool is_usually_directed, long line) {
    const bool result = options_.directed.empty() ? is_usually_directed
                                                  : std::find(options_.directed.begin(), options_.directed.end(),
                                                              word) != options_.directed.end();
    assume(line, "'" + std::string(word) + "' taken as " + (result ? "directed" : "undirected"));
    return result;
}

void interaction_taker::need_confidence(const text_source& source, const std::string& why_not) const {
    if (options_.min_confidence) {
        throw unusable_input(source.path() + ": a minimum confidence was asked for, but " + why_not);
    }
}

void interaction_taker::need_organism(const text_source& source, const std::string& why_not) const {
    if (!options_.organism.empty()) {
        throw unusable_input(source.path() + ": an organism was asked for, but " + why_not);
    }
}
