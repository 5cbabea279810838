// The part of a network that lies on shortest paths gives the same answer as the whole.
#include <algorithm>
#include <iostream>
#include <random>
#include <set>
#include <sstream>

#include "driver/run.hpp"
#include "importing/shortest_path_part.hpp"
#include "support/network.hpp"

namespace {

using kind = imported_network::kind;
using part_test = network_test;

imported_network draw_network(unsigned seed) {
    std::mt19937 engine(seed);
    const auto below = [&](int limit) { return static_cast<int>(engine() % static_cast<unsigned>(limit)); };
    imported_network network;
    const int num_proteins = 8 + below(30);
    for (int i = 0; i < num_proteins; ++i) {
        network.names.push_back("P" + std::to_string(100 + i));
    }
    std::set<std::pair<int, int>> joined;
    for (int i = num_proteins * (2 + below(3)) / 2; i > 0; --i) {
        const int first = below(num_proteins);
        const int second = below(num_proteins);
        if (first != second && joined.emplace(std::min(first, second), std::max(first, second)).second) {
            network.interactions.push_back({first, second, static_cast<kind>(below(3)), 1});
        }
    }
    std::set<std::pair<int, int>> pairs_drawn;
    for (int i = 3 + below(20); i > 0; --i) {
        pairs_drawn.emplace(below(4), below(num_proteins));
    }
    for (const auto& [cause, effect] : pairs_drawn) {
        network.pairs.push_back({cause, effect});
    }
    return network;
}

file_texts files_of(const imported_network& network) {
    file_texts files{{"names.txt", ""}, {"test", ""}, {"directed", ""}, {"undirected", ""}, {"ko", ""}};
    const auto name_of = [&](int protein) { return network.names[static_cast<std::size_t>(protein)]; };
    for (const std::string& name : network.names) {
        files["names.txt"] += name + "\n";
    }
    for (const imported_network::interaction& found : network.interactions) {
        files[found.what == kind::test       ? "test"
              : found.what == kind::directed ? "directed"
                                             : "undirected"] +=
            name_of(found.first) + " " + name_of(found.second) + " 1\n";
    }
    for (const imported_network::pair& pair : network.pairs) {
        files["ko"] += name_of(pair.cause) + " " + name_of(pair.effect) + " 1\n";
    }
    return files;
}

struct answer {
    long value = 0;
    lines distances;  // "cause effect distance" of each pair in the model, sorted
    bool operator==(const answer&) const = default;
};

answer solve(const imported_network& network) {
    reset_run_state();
    const file_texts files = files_of(network);
    const IloCplex session = run_phases(
        [&](const char* name) { return text_file{.path = name, .text = files.at(name)}; }, {.output = {}, .watch = {}});
    answer found{.value = std::lround(session.getObjValue()), .distances = {}};
    for (const pair_data& pair : pairs) {
        found.distances.push_back(boost::get(names_map, pair.pair_source) + " " +
                                  boost::get(names_map, pair.pair_target) + " " +
                                  std::to_string(pair.shortest_distance));
    }
    std::sort(found.distances.begin(), found.distances.end());
    return found;
}

TEST_F(part_test, has_the_value_the_pairs_and_the_distances_of_the_whole) {
    int compared = 0;
    long left_out = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        const imported_network whole = draw_network(seed);
        imported_network part = whole;
        const long pathless = keep_shortest_paths(part);
        if (part.names.size() < 4) {
            continue;  // too small for a run to find all names
        }
        const answer expected = solve(whole);
        ASSERT_EQ(solve(part), expected) << seed;
        ASSERT_EQ(whole.pairs.size() - part.pairs.size(), static_cast<std::size_t>(pathless)) << seed;
        ASSERT_EQ(expected.distances.size(), part.pairs.size()) << seed;
        left_out += static_cast<long>(whole.interactions.size() - part.interactions.size());

        // What is left is what a run counts as lying on shortest paths.
        load(files_of(part));
        prepare(true);
        printed();
        std::set<std::string> on_paths;
        std::istringstream arcs_counted(counted());
        for (std::string arc; arcs_counted >> arc;) {
            const std::string tail = arc.substr(0, 4);
            const std::string head = arc.substr(4, 4);
            on_paths.insert(std::min(tail, head) + std::max(tail, head));
        }
        ASSERT_EQ(on_paths.size(), part.interactions.size()) << seed;
        ++compared;
    }
    EXPECT_GT(compared, 200);
    EXPECT_GT(left_out, 1000);
    std::cerr << "compared the shortest-path parts of " << compared << " networks with the whole, " << left_out
              << " interactions left out\n";
}

}  // namespace
