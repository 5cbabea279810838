// Networks with a true orientation that is hidden from the solver, and knockout pairs
// that follow from it.
#pragma once

#include <map>
#include <random>
#include <string>
#include <utility>
#include <vector>

using parameter_values = std::map<std::string, double>;

// The generator's engine is fixed by the language; the library's distributions, which are
// not, stay out.
struct random_draws {
    std::mt19937_64 engine;

    int below(std::size_t limit) { return static_cast<int>(engine() % limit); }
    bool chance(double share) { return static_cast<double>(engine() >> 11) * 0x1p-53 < share; }

    template <typename item>
    void shuffle(std::vector<item>& items) {
        for (std::size_t i = items.size(); i > 1; --i) {
            std::swap(items[i - 1], items[static_cast<std::size_t>(below(i))]);
        }
    }
};

using arc = std::pair<int, int>;  // tail, head: the true direction

struct planted_network {
    std::vector<std::string> names;  // of the proteins
    std::vector<arc> directed;
    std::vector<arc> test;
    std::vector<arc> undirected;
};

// Drawn by the parameters; in layers where those ask for some. Throws when they do not fit.
planted_network draw_network(const parameter_values& parameters, random_draws& random);

// The proteins and interactions of an input folder, read by the program's own rules; the
// direction of those that may be oriented either way is drawn.
planted_network read_network(const std::string& folder, random_draws& random);

// Pairs of cause and effect: from causes in random order, pairs_per_source each, until
// there are enough of them or no cause is left. In layers: from the first one to the last.
std::vector<arc> draw_pairs(const planted_network& planted, const parameter_values& parameters, random_draws& random);
