#include "importing/hide_directions.hpp"

#include <algorithm>
#include <cmath>
#include <random>
#include <set>

#include "tables/unusable_input.hpp"

namespace {

std::size_t number_to_hide(const std::string& amount, std::size_t available) {
    const bool is_percent = amount.ends_with('%');
    const std::optional<double> number = number_of(is_percent ? amount.substr(0, amount.size() - 1) : amount);
    if (!number || *number < 0) {
        throw unusable_input("--hide " + amount + ": neither a number nor a share of known directions");
    }
    const bool is_count = !is_percent && amount.find_first_not_of("0123456789") == std::string::npos;
    const double share = is_percent ? *number / 100 : *number;
    if (!is_count && share > 1) {
        throw unusable_input("--hide " + amount + ": more than all known directions");
    }
    const double wanted = is_count ? *number : std::round(share * static_cast<double>(available));
    if (wanted > static_cast<double>(available)) {
        throw unusable_input("--hide " + amount + ": only " + std::to_string(available) + " directions are known");
    }
    return static_cast<std::size_t>(wanted);
}

}  // namespace

void hide_directions(imported_network& network, const std::string& amount, std::uint64_t seed) {
    std::set<std::pair<int, int>> directed;
    for (const imported_network::interaction& found : network.interactions) {
        if (found.what == imported_network::kind::directed) {
            directed.emplace(found.first, found.second);
        }
    }
    std::vector<imported_network::interaction*> candidates;
    for (imported_network::interaction& found : network.interactions) {
        if (directed.contains({found.first, found.second}) && !directed.contains({found.second, found.first})) {
            candidates.push_back(&found);
        }
    }
    // The library's own ways to draw and to shuffle differ from one library to another.
    std::mt19937_64 engine(seed);
    const std::size_t wanted = number_to_hide(amount, candidates.size());
    for (std::size_t i = 0; i < wanted; ++i) {
        std::swap(candidates[i], candidates[i + engine() % (candidates.size() - i)]);
        candidates[i]->what = imported_network::kind::test;
    }
}
