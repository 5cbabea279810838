#include "support/network.hpp"

#include <iostream>
#include <random>

#include <boost/algorithm/string/join.hpp>

#include "driver/run.hpp"
#include "input/read_data.hpp"
#include "orientation/prepare_ilp.hpp"
#include "solver/lp_file/lp_file.hpp"

namespace {

// The ends of each arc and what is said of it; nothing of an arc of which "-" is said.
template <typename graph, typename text_function>
lines describe_arcs(const graph& network, const text_function& text_after) {
    lines described;
    for (const edge_descriptor& arc : boost::make_iterator_range(boost::edges(network))) {
        if (const std::string after = text_after(arc); after != "-") {
            described.push_back(boost::get(names_map, boost::source(arc, network)) +
                                boost::get(names_map, boost::target(arc, network)) + after);
        }
    }
    return described;
}

template <typename graph>
std::string ends_of_arcs(const graph& network) {
    return boost::algorithm::join(describe_arcs(network, [](const auto&) { return std::string(); }), " ");
}

}  // namespace

void network_test::load(const file_texts& files) {
    reset_run_state();
    model = IloModel(env);
    read_data(
        [&](const char* name) {
            const auto file = files.find(name);
            const bool given = file != files.end();
            return text_file{.path = name, .text = given ? file->second : "", .opened = given};
        },
        model);
}

void network_test::load_letters(file_texts files) {
    files.insert({{"names.txt", "A\nB\nC\nD\nE\nF\n"}, {"directed", ""}, {"undirected", ""}, {"ko", ""}});
    load(files);
}

void network_test::load_words(const std::string& words) {
    file_texts files;
    for (char name = 'a'; name <= 'z'; ++name) {
        files["names.txt"].append(1, name).append("\n");
    }
    std::istringstream stream(words);
    for (std::string word; stream >> word;) {
        const char kind = word[1];
        const char* file = kind == ':' ? "ko" : kind == '-' ? "undirected" : kind == '=' ? "test" : "directed";
        for (const char second : word.substr(kind == word.back() ? 1 : 2)) {
            files[file] += std::string{word[0], ' ', second, ' ', '1', '\n'};
        }
    }
    load_letters(files);
}

std::string network_test::draw_words(unsigned seed, int num_proteins, int num_interactions, int percent_directed) {
    std::mt19937 engine(seed);
    const auto below = [&](int limit) { return static_cast<int>(engine() % static_cast<unsigned>(limit)); };
    const auto any_protein = [&] { return std::string(1, static_cast<char>('a' + below(num_proteins))); };
    std::string words;
    while (num_interactions-- > 0) {
        const std::string kind = below(100) < percent_directed ? "" : below(3) == 0 ? "=" : "-";
        words += any_protein() + kind + any_protein() + " ";
    }
    for (int causes = 0; causes < 4; ++causes) {
        words += any_protein() + ":";
        for (int effects = 1 + below(5); effects > 0; --effects) {
            words += any_protein();
        }
        words += " ";
    }
    return words;
}

void network_test::prepare(bool allow_one_edge_path) {
    isoMap = copy_network(iso_vec);
    network_rows = rows(model).size();
    EXPECT_TRUE(prepare_ilp(model, allow_one_edge_path, isoMap));
}

std::string network_test::printed() {
    const std::string text = captured.str();
    captured.str({});
    return text;
}

lines network_test::flow_rows() const {
    lines found = rows(model);
    found.erase(found.begin(), found.begin() + static_cast<std::ptrdiff_t>(network_rows));
    for (std::string& row : found) {
        row.erase(0, row.find_first_not_of(' ', row.find(':') + 1));
    }
    return found;
}

lines proteins() {
    lines names;
    for (const vertex_descriptor protein : boost::make_iterator_range(boost::vertices(bi_graph))) {
        names.push_back(boost::get(names_map, protein));
    }
    return names;
}

lines arcs() {
    return describe_arcs(bi_graph, [](const edge_descriptor& arc) {
        std::ostringstream text;
        text << ' ' << boost::get(directions_map, arc) << ' ' << boost::get(hidden_map, arc) << ' '
             << boost::get(test_map, arc) << ' ' << boost::get(parallel_confidence_map, arc);
        return text.str();
    });
}

std::string marked() {
    return ends_of_arcs(in_shortest_filtered);
}

std::string counted() {
    const auto count_of = [](const edge_descriptor& arc) {
        const int count = boost::get(shortest_paths_counter_map, arc);
        return count == 0 ? "-" : std::string(":").append(std::to_string(count));
    };
    return boost::algorithm::join(describe_arcs(bi_graph, count_of), " ");
}

std::string comp_arcs() {
    return ends_of_arcs(comp_graph);
}

std::string lp_text(IloModel model) {
    std::ostringstream text;
    solver::write_lp(IloCplex(model).record(), text);
    return text.str();
}

lines rows(IloModel model) {
    std::istringstream text(lp_text(model));
    lines found;
    std::string line;
    while (std::getline(text, line) && line != "Subject To") {
    }
    while (std::getline(text, line) && line != "Bounds") {
        found.push_back(line.substr(1));
    }
    return found;
}

lines knockouts() {
    lines described;
    for (const auto& [cause, effects] : sources) {
        std::string text = boost::get(names_map, cause) + ":";
        for (const vertex_descriptor effect : effects) {
            text += " " + boost::get(names_map, effect);
        }
        described.push_back(text);
    }
    return described;
}
