#include "importing/interaction_pool.hpp"

#include <algorithm>

int interaction_pool::number_of_name(std::string_view name, int source) {
    auto place = numbers_.find(name);
    if (place == numbers_.end()) {
        place = numbers_.emplace(name, static_cast<int>(names_.size())).first;
        names_.emplace_back(name);
        sources_.emplace_back();
    }
    std::vector<int>& sources = sources_[static_cast<std::size_t>(place->second)];
    if (std::find(sources.begin(), sources.end(), source) == sources.end()) {
        sources.push_back(source);
    }
    return place->second;
}

interaction_pool::entry& interaction_pool::entry_of(int first, int second) {
    const std::uint64_t key = (static_cast<std::uint64_t>(first) << 32) | static_cast<std::uint64_t>(second);
    const auto [place, is_new] = places_.emplace(key, entries_.size());
    if (is_new) {
        entries_.emplace_back();
        entries_.back().first = first;
        entries_.back().second = second;
    }
    return entries_[place->second];
}

void interaction_pool::merge(int first, int second, const entry& said) {
    entry& known = entry_of(std::min(first, second), std::max(first, second));
    const bool is_turned = first > second;
    known.forward = std::max(known.forward, is_turned ? said.backward : said.forward);
    known.backward = std::max(known.backward, is_turned ? said.forward : said.backward);
    known.undirected = std::max(known.undirected, said.undirected);
    known.directed_rows += said.directed_rows;
    known.undirected_rows += said.undirected_rows;
}

void interaction_pool::add(const interaction_row& row, int source) {
    const double confidence = row.confidence.value_or(1);
    const int first = number_of_name(row.first, source);
    const int second = number_of_name(row.second, source);
    entry said{.first = first, .second = second};
    (row.is_directed ? said.forward : said.undirected) = confidence;
    (row.is_directed ? said.directed_rows : said.undirected_rows) = 1;
    merge(first, second, said);
}

int interaction_pool::find(const std::string& name) const {
    const auto found = numbers_.find(name);
    return found == numbers_.end() ? -1 : found->second;
}

interaction_pool interaction_pool::renamed(const std::vector<std::string>& new_names) const {
    interaction_pool result;
    std::vector<int> numbers;
    for (std::size_t i = 0; i < names_.size(); ++i) {
        for (const int source : sources_[i]) {
            result.number_of_name(new_names[i], source);
        }
        numbers.push_back(result.find(new_names[i]));
    }
    for (const entry& said : entries_) {
        const int first = numbers[static_cast<std::size_t>(said.first)];
        const int second = numbers[static_cast<std::size_t>(said.second)];
        if (first != second) {
            result.merge(first, second, said);
        }
    }
    return result;
}
