// Writes the input directory of a planted network: a network whose true
// orientation is drawn first and then hidden, with knockout pairs that this
// orientation explains and a share of pairs drawn at random.
//
//   generate DIRECTORY/ [parameter=value]...      parameters and defaults: below
//
// The same parameters give the same bytes everywhere: the generator's engine is
// fixed by the language, and the library's distributions, which are not, stay out.
// With noise=0 and any_path=0 the optimum is the number of pairs, for the hidden
// orientation explains every one of them by a shortest path of the network.
#include <algorithm>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <random>
#include <set>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

std::map<std::string, double> parameters = {
    {"proteins", 1000},        // at most 9999
    {"directed", 500},         // interactions of known direction
    {"undirected", 3000},      // interactions to orient
    {"test", 300},             // interactions to orient whose direction is known to us
    {"pairs", 2000},           // knockout pairs
    {"pairs_per_source", 10},  // knockout pairs of one cause
    {"max_distance", 5},       // arcs between cause and effect along the hidden orientation
    {"noise", 0.1},            // share of the pairs whose effect is any protein
    {"any_path", 0},           // 1 = effects may be nearer in the network than along the hidden orientation
    {"preferential", 1},       // 1 = preferential attachment, 0 = ends drawn evenly
    {"seed", 1},
};

int number(const std::string& parameter) {
    return static_cast<int>(parameters.at(parameter));
}

std::mt19937_64 engine;

int below(std::size_t limit) {
    return static_cast<int>(engine() % limit);
}

bool chance(double share) {
    return static_cast<double>(engine() >> 11) * 0x1p-53 < share;
}

template <typename item>
void shuffle(std::vector<item>& items) {
    for (std::size_t i = items.size(); i > 1; --i) {
        std::swap(items[i - 1], items[below(i)]);
    }
}

using arc = std::pair<int, int>;  // tail, head: the true direction

// A tree over all proteins and then interactions up to `count`, no two between the
// same proteins, each in a direction drawn evenly.
std::vector<arc> draw_interactions(int proteins, int count) {
    std::vector<int> ends = {0};  // every protein once, and once for each of its interactions
    std::set<arc> taken;
    std::vector<arc> interactions;
    const auto add = [&](int one, int other) {
        if (one == other || !taken.insert(std::minmax(one, other)).second) {
            return;
        }
        interactions.push_back(chance(0.5) ? arc{one, other} : arc{other, one});
        if (number("preferential") == 1) {
            ends.insert(ends.end(), {one, other});
        }
    };
    for (int protein = 1; protein < proteins; ++protein) {
        const int other = ends[below(ends.size())];
        ends.push_back(protein);
        add(protein, other);
    }
    while (static_cast<int>(interactions.size()) < count) {
        const int one = below(proteins);
        add(one, ends[below(ends.size())]);
    }
    shuffle(interactions);
    return interactions;
}

using neighbours = std::vector<std::vector<int>>;

std::vector<int> distances(const neighbours& network, int source) {
    std::vector<int> distance(network.size(), -1);
    std::vector<int> queue = {source};
    distance[source] = 0;
    for (std::size_t i = 0; i < queue.size(); ++i) {
        for (const int next : network[queue[i]]) {
            if (distance[next] < 0) {
                distance[next] = distance[queue[i]] + 1;
                queue.push_back(next);
            }
        }
    }
    return distance;
}

// Knockout pairs from causes in random order, pairs_per_source each, until there
// are enough of them or no cause is left.
std::vector<arc> draw_pairs(const neighbours& hidden, const neighbours& network) {
    const int proteins = static_cast<int>(network.size());
    std::vector<int> causes(proteins);
    for (int protein = 0; protein < proteins; ++protein) {
        causes[protein] = protein;
    }
    shuffle(causes);

    std::vector<arc> pairs;
    for (const int cause : causes) {
        const std::vector<int> along_hidden = distances(hidden, cause);
        const std::vector<int> in_network = distances(network, cause);
        std::vector<int> explained;
        for (int effect = 0; effect < proteins; ++effect) {
            if (along_hidden[effect] > 0 && along_hidden[effect] <= number("max_distance") &&
                (number("any_path") == 1 || along_hidden[effect] == in_network[effect])) {
                explained.push_back(effect);
            }
        }
        shuffle(explained);
        std::set<int> effects;
        for (int i = 0; i < number("pairs_per_source"); ++i) {
            if (static_cast<int>(pairs.size()) == number("pairs")) {
                shuffle(pairs);
                return pairs;
            }
            int effect = below(proteins);
            if (!chance(parameters["noise"])) {
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
    shuffle(pairs);
    return pairs;
}

std::string name(int protein) {
    char text[16];
    std::snprintf(text, sizeof text, "P%04d", protein);
    return text;
}

// One line a pair: name, blank, name, blank, value.
void write_lines(const std::string& path, const std::vector<arc>& lines, const char* value) {
    std::ofstream file(path);
    for (const auto& [first, second] : lines) {
        file << name(first) << ' ' << name(second) << ' ' << value << '\n';
    }
    if (!file.flush()) {
        throw std::runtime_error("cannot write " + path);
    }
}

void read_parameters(int argc, char** argv) {
    for (int i = 2; i < argc; ++i) {
        const std::string argument = argv[i];
        const std::size_t equals = argument.find('=');
        if (equals == std::string::npos || !parameters.contains(argument.substr(0, equals))) {
            throw std::runtime_error("unknown parameter " + argument);
        }
        parameters[argument.substr(0, equals)] = std::stod(argument.substr(equals + 1));
    }
}

void generate(const std::string& directory) {
    const int proteins = number("proteins");
    const int interactions = number("directed") + number("undirected") + number("test");
    if (proteins < 2 || proteins > 9999 || interactions < proteins - 1 ||
        interactions > static_cast<double>(proteins) * (proteins - 1) / 4) {
        throw std::runtime_error("needs 2 to 9999 proteins, an interaction for each, and at most half of all possible");
    }
    engine.seed(number("seed"));

    const std::vector<arc> all = draw_interactions(proteins, interactions);
    const auto test_begin = all.begin() + number("directed");
    const auto undirected_begin = test_begin + number("test");
    const std::vector<arc> directed(all.begin(), test_begin);
    const std::vector<arc> test(test_begin, undirected_begin);
    std::vector<arc> undirected(undirected_begin, all.end());

    neighbours hidden(proteins);
    neighbours network(proteins);
    for (auto interaction = all.begin(); interaction != all.end(); ++interaction) {
        hidden[interaction->first].push_back(interaction->second);
        network[interaction->first].push_back(interaction->second);
        if (interaction >= test_begin) {
            network[interaction->second].push_back(interaction->first);
        }
    }
    const std::vector<arc> pairs = draw_pairs(hidden, network);

    // The order of the names in a line must not tell the hidden direction.
    for (arc& interaction : undirected) {
        if (chance(0.5)) {
            std::swap(interaction.first, interaction.second);
        }
    }

    std::filesystem::create_directories(directory);
    std::ofstream names(directory + "names.txt");
    for (int protein = 0; protein < proteins; ++protein) {
        names << name(protein) << '\n';
    }
    write_lines(directory + "directed", directed, "0.9");
    write_lines(directory + "test", test, "0.9");
    write_lines(directory + "undirected", undirected, "0.5");
    write_lines(directory + "ko", pairs, "1");
    std::cout << directory << ": " << proteins << " proteins, " << directed.size() << " directed, " << undirected.size()
              << " undirected, " << test.size() << " test, " << directed.size() + 2 * (undirected.size() + test.size())
              << " arcs, " << pairs.size() << " pairs\n";
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::cerr << "usage: generate DIRECTORY/ [parameter=value]...\n";
        for (const auto& [parameter, value] : parameters) {
            std::cerr << "  " << parameter << '=' << value << '\n';
        }
        return 1;
    }
    try {
        read_parameters(argc, argv);
        generate(argv[1]);
    } catch (const std::exception& failure) {
        std::cerr << "generate: " << failure.what() << '\n';
        return 1;
    }
    return 0;
}
