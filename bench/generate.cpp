// Writes the input directory of a planted network: a network whose true
// orientation is drawn first and then hidden, with knockout pairs that this
// orientation explains and a share of pairs drawn at random.
//
//   generate DIRECTORY/ [network=INPUT/] [parameter=value]...      parameters and defaults: below
//
// With network=INPUT/ proteins and interactions are those of an input, and only the
// hidden orientation and the pairs are drawn. With layers=N the proteins stand in N
// layers of equal size, each joined to `links` of the next, and pairs lead from the
// first layer to the last; `directed` and `test` of the interactions are of those
// kinds, all others undirected.
//
// The same parameters give the same bytes everywhere. With noise=0 and any_path=0 the
// optimum is the number of pairs, for the hidden orientation explains every one of them
// by a shortest path of the network.
#include <filesystem>
#include <fstream>
#include <iostream>
#include <stdexcept>
#include <string>
#include <vector>

#include "planted_network.hpp"

namespace {

parameter_values parameters = {
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
    {"layers", 0},             // 0 = none
    {"links", 7},              // of a protein to the next layer
    {"seed", 1},
};
std::string network;  // an input to draw over; empty = none

void read_parameters(int argc, char** argv) {
    for (int i = 2; i < argc; ++i) {
        const std::string argument = argv[i];
        const std::size_t equals = argument.find('=');
        const std::string name = argument.substr(0, equals);
        if (equals != std::string::npos && name == "network") {
            network = argument.substr(equals + 1);
        } else if (equals != std::string::npos && parameters.contains(name)) {
            parameters[name] = std::stod(argument.substr(equals + 1));
        } else {
            throw std::runtime_error("unknown parameter " + argument);
        }
    }
}

// One line a pair: name, blank, name, blank, value.
void write_lines(const std::string& path, const planted_network& planted, const std::vector<arc>& lines,
                 const char* value) {
    std::ofstream file(path);
    for (const auto& [first, second] : lines) {
        file << planted.names[static_cast<std::size_t>(first)] << ' ' << planted.names[static_cast<std::size_t>(second)]
             << ' ' << value << '\n';
    }
    if (!file.flush()) {
        throw std::runtime_error("cannot write " + path);
    }
}

void generate(const std::string& directory) {
    random_draws random;
    random.engine.seed(static_cast<unsigned>(parameters["seed"]));
    const planted_network planted = network.empty() ? draw_network(parameters, random) : read_network(network, random);
    const std::vector<arc> pairs = draw_pairs(planted, parameters, random);

    // The order of the names in a line must not tell the hidden direction.
    std::vector<arc> undirected = planted.undirected;
    for (arc& interaction : undirected) {
        if (random.chance(0.5)) {
            std::swap(interaction.first, interaction.second);
        }
    }

    std::filesystem::create_directories(directory);
    std::ofstream names(directory + "names.txt");
    for (const std::string& name : planted.names) {
        names << name << '\n';
    }
    write_lines(directory + "directed", planted, planted.directed, "0.9");
    write_lines(directory + "test", planted, planted.test, "0.9");
    write_lines(directory + "undirected", planted, undirected, "0.5");
    write_lines(directory + "ko", planted, pairs, "1");
    std::cout << directory << ": " << planted.names.size() << " proteins, " << planted.directed.size() << " directed, "
              << undirected.size() << " undirected, " << planted.test.size() << " test, "
              << planted.directed.size() + 2 * (undirected.size() + planted.test.size()) << " arcs, " << pairs.size()
              << " pairs\n";
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 2) {
        std::cerr << "usage: generate DIRECTORY/ [network=INPUT/] [parameter=value]...\n";
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
