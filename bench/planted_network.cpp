#include "planted_network.hpp"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <set>
#include <stdexcept>

namespace {

std::vector<std::string> numbered_names(int proteins) {
    std::vector<std::string> names;
    for (int protein = 0; protein < proteins; ++protein) {
        char text[16];
        std::snprintf(text, sizeof text, "P%04d", protein);
        names.emplace_back(text);
    }
    return names;
}

// A tree over all proteins and then interactions up to `count`, no two between the
// same proteins, each in a direction drawn evenly.
std::vector<arc> draw_interactions(int proteins, int count, bool preferential, random_draws& random) {
    std::vector<int> ends = {0};  // every protein once, and once for each of its interactions
    std::set<arc> taken;
    std::vector<arc> interactions;
    const auto add = [&](int one, int other) {
        if (one == other || !taken.insert(std::minmax(one, other)).second) {
            return;
        }
        interactions.push_back(random.chance(0.5) ? arc{one, other} : arc{other, one});
        if (preferential) {
            ends.insert(ends.end(), {one, other});
        }
    };
    const auto drawn_end = [&] { return ends[static_cast<std::size_t>(random.below(ends.size()))]; };
    for (int protein = 1; protein < proteins; ++protein) {
        const int other = drawn_end();
        ends.push_back(protein);
        add(protein, other);
    }
    while (static_cast<int>(interactions.size()) < count) {
        const int one = random.below(static_cast<std::size_t>(proteins));
        add(one, drawn_end());
    }
    random.shuffle(interactions);
    return interactions;
}

// Every protein is joined to `links` of the next layer.
std::vector<arc> draw_layered_interactions(int width, int layers, int links, random_draws& random) {
    std::vector<arc> interactions;
    for (int protein = 0; protein < width * (layers - 1); ++protein) {
        std::vector<int> next;
        for (int i = 0; i < width; ++i) {
            next.push_back((protein / width + 1) * width + i);
        }
        random.shuffle(next);
        for (int i = 0; i < links; ++i) {
            const int other = next[static_cast<std::size_t>(i)];
            interactions.push_back(random.chance(0.5) ? arc{protein, other} : arc{other, protein});
        }
    }
    random.shuffle(interactions);
    return interactions;
}

using neighbours = std::vector<std::vector<int>>;

neighbours neighbours_of(const planted_network& planted, bool along_hidden) {
    neighbours made(planted.names.size());
    for (const std::vector<arc>* arcs : {&planted.directed, &planted.test, &planted.undirected}) {
        for (const auto& [tail, head] : *arcs) {
            made[static_cast<std::size_t>(tail)].push_back(head);
            if (!along_hidden && arcs != &planted.directed) {
                made[static_cast<std::size_t>(head)].push_back(tail);
            }
        }
    }
    return made;
}

std::vector<int> distances(const neighbours& network, int source) {
    std::vector<int> distance(network.size(), -1);
    std::vector<int> queue = {source};
    distance[static_cast<std::size_t>(source)] = 0;
    for (std::size_t i = 0; i < queue.size(); ++i) {
        for (const int next : network[static_cast<std::size_t>(queue[i])]) {
            if (distance[static_cast<std::size_t>(next)] < 0) {
                distance[static_cast<std::size_t>(next)] = distance[static_cast<std::size_t>(queue[i])] + 1;
                queue.push_back(next);
            }
        }
    }
    return distance;
}

}  // namespace

planted_network draw_network(const parameter_values& parameters, random_draws& random) {
    const auto number = [&parameters](const char* name) { return static_cast<int>(parameters.at(name)); };
    const int proteins = number("proteins");
    const int layers = number("layers");
    planted_network planted;
    std::vector<arc> all;
    if (layers > 0) {
        const int width = proteins / layers;
        if (layers < 2 || proteins > 9999 || width * layers != proteins || number("links") > width) {
            throw std::runtime_error(
                "needs two layers or more of equal size, and no more links than a layer has proteins");
        }
        all = draw_layered_interactions(width, layers, number("links"), random);
    } else {
        const int interactions = number("directed") + number("undirected") + number("test");
        if (proteins < 2 || proteins > 9999 || interactions < proteins - 1 ||
            interactions > static_cast<double>(proteins) * (proteins - 1) / 4) {
            throw std::runtime_error(
                "needs 2 to 9999 proteins, an interaction for each, and at most half of all possible");
        }
        all = draw_interactions(proteins, interactions, number("preferential") == 1, random);
    }
    if (number("directed") + number("test") > static_cast<int>(all.size())) {
        throw std::runtime_error("there are fewer interactions than directed and test ask for");
    }
    planted.names = numbered_names(proteins);
    const auto test_begin = all.begin() + number("directed");
    const auto undirected_begin = test_begin + number("test");
    planted.directed.assign(all.begin(), test_begin);
    planted.test.assign(test_begin, undirected_begin);
    planted.undirected.assign(undirected_begin, all.end());
    return planted;
}

planted_network read_network(const std::string& folder, random_draws& random) {
    planted_network planted;
    std::map<std::string, int> number_of;
    std::ifstream names(folder + "names.txt");
    for (std::string name; std::getline(names, name);) {
        number_of.emplace(name, static_cast<int>(planted.names.size()));
        planted.names.push_back(name);
    }
    std::set<arc> test_joined;
    std::set<arc> joined;
    const auto read = [&](const char* file, const auto& take) {
        std::ifstream lines(folder + file);
        if (!lines) {
            throw std::runtime_error("cannot read " + folder + file);
        }
        std::string one;
        std::string other;
        for (std::string rest; lines >> one >> other && std::getline(lines, rest);) {
            const auto tail = number_of.find(one);
            const auto head = number_of.find(other);
            if (tail != number_of.end() && head != number_of.end() && tail != head) {
                take(arc{tail->second, head->second}, arc(std::minmax(tail->second, head->second)));
            }
        }
    };
    read("test", [&](arc drawn, arc ends) {
        if (test_joined.insert(ends).second) {
            planted.test.push_back(drawn);
        }
    });
    joined = test_joined;
    read("directed", [&](arc drawn, arc ends) {
        if (!test_joined.contains(ends)) {
            joined.insert(ends);
            planted.directed.push_back(drawn);
        }
    });
    read("undirected", [&](arc drawn, arc ends) {
        if (joined.insert(ends).second) {
            planted.undirected.push_back(random.chance(0.5) ? drawn : arc{drawn.second, drawn.first});
        }
    });
    return planted;
}

std::vector<arc> draw_pairs(const planted_network& planted, const parameter_values& parameters, random_draws& random) {
    const auto number = [&parameters](const char* name) { return static_cast<std::size_t>(parameters.at(name)); };
    const neighbours hidden = neighbours_of(planted, true);
    const neighbours network = neighbours_of(planted, false);
    const std::size_t proteins = planted.names.size();
    const std::size_t width = number("layers") > 0 ? proteins / number("layers") : proteins;
    const int farthest = number("layers") > 0 ? static_cast<int>(proteins) : static_cast<int>(number("max_distance"));
    std::vector<int> causes(width);
    for (std::size_t protein = 0; protein < width; ++protein) {
        causes[protein] = static_cast<int>(protein);
    }
    random.shuffle(causes);

    std::vector<arc> pairs;
    for (const int cause : causes) {
        const std::vector<int> along_hidden = distances(hidden, cause);
        const std::vector<int> in_network = distances(network, cause);
        std::vector<int> explained;
        for (std::size_t effect = proteins - width; effect < proteins; ++effect) {
            if (along_hidden[effect] > 0 && along_hidden[effect] <= farthest &&
                (number("any_path") == 1 || along_hidden[effect] == in_network[effect])) {
                explained.push_back(static_cast<int>(effect));
            }
        }
        random.shuffle(explained);
        std::set<int> effects;
        for (std::size_t i = 0; i < number("pairs_per_source"); ++i) {
            if (pairs.size() == number("pairs")) {
                random.shuffle(pairs);
                return pairs;
            }
            int effect = static_cast<int>(proteins - width) + random.below(width);
            if (!random.chance(parameters.at("noise"))) {
                if (explained.empty()) {
                    continue;
                }
                effect = explained.back();
                explained.pop_back();
            }
            if (effect != cause && effects.insert(effect).second) {
                pairs.emplace_back(cause, effect);
            }
        }
    }
    random.shuffle(pairs);
    return pairs;
}
