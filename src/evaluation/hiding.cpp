#include "evaluation/hiding.hpp"

#include <charconv>
#include <iostream>
#include <random>
#include <set>
#include <sstream>

#include "tables/unusable_input.hpp"

namespace {

std::string line_of(const network_record& network, const interaction& item) {
    char confidence[32];
    char* const end = std::to_chars(confidence, confidence + sizeof confidence, item.confidence).ptr;
    return network.names[static_cast<std::size_t>(item.first)] + " " +
           network.names[static_cast<std::size_t>(item.second)] + " " + std::string(confidence, end) + "\n";
}

// Positions among the interactions.
std::vector<std::size_t> known_positions(const network_record& network) {
    std::set<std::pair<int, int>> arcs;
    for (const interaction& item : network.interactions) {
        if (item.file == interaction_file::directed) {
            arcs.emplace(item.first, item.second);
        }
    }
    std::vector<std::size_t> positions;
    for (std::size_t i = 0; i < network.interactions.size(); ++i) {
        const interaction& item = network.interactions[i];
        if (item.file == interaction_file::test ||
            (item.file == interaction_file::directed && !arcs.contains({item.second, item.first}))) {
            positions.push_back(i);
        }
    }
    return positions;
}

}  // namespace

network_record read_network(const input_files& input, std::string& messages) {
    reset_run_state();
    std::ostringstream said;
    std::streambuf* const standard_output = std::cout.rdbuf(said.rdbuf());
    const int result = read_data(input.opener(), IloModel(env));
    std::cout.rdbuf(standard_output);
    messages = said.str();
    if (result != 0) {
        throw unusable_input(input.folder + "names.txt: more than " + std::to_string(MAX_PROTEIN_ID - 1) + " proteins");
    }
    return record_network(input);
}

std::vector<known_direction> known_directions(const network_record& network) {
    std::vector<known_direction> known;
    for (const std::size_t i : known_positions(network)) {
        const interaction& item = network.interactions[i];
        known.push_back({network.names[static_cast<std::size_t>(item.first)],
                         network.names[static_cast<std::size_t>(item.second)], item.file, item.line});
    }
    return known;
}

hidden_input hide(const input_files& input, const network_record& network, const std::vector<char>& hidden) {
    std::vector<int> known_at(network.interactions.size(), -1);
    int number = 0;
    for (const std::size_t i : known_positions(network)) {
        known_at[i] = number++;
    }
    hidden_input made{.input = input, .known = {}, .lines_of_test = {}, .lines_of_directed = {}};
    text_file& test = made.input.files[1];
    text_file& directed = made.input.files[2];
    test.opened = true;
    test.text.clear();
    directed.text.clear();
    for (std::size_t i = 0; i < network.interactions.size(); ++i) {
        const interaction& item = network.interactions[i];
        if (known_at[i] >= 0 && hidden[static_cast<std::size_t>(known_at[i])] != 0) {
            test.text += line_of(network, item);
            made.known.push_back(known_at[i]);
            made.lines_of_test.push_back(item);
        } else if (item.file != interaction_file::undirected) {
            directed.text += line_of(network, item);
            made.lines_of_directed.push_back(item);
        }
    }
    return made;
}

std::vector<int> draw_folds(std::size_t num_known, int num_folds, std::uint64_t seed) {
    std::vector<int> folds(num_known);
    for (std::size_t i = 0; i < num_known; ++i) {
        folds[i] = static_cast<int>(i % static_cast<std::size_t>(num_folds));
    }
    std::mt19937_64 engine(seed);
    for (std::size_t i = num_known; i > 1; --i) {
        std::swap(folds[i - 1], folds[engine() % i]);
    }
    return folds;
}
