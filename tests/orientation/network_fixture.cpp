#include "network_fixture.hpp"

#include <cmath>
#include <random>
#include <set>
#include <sstream>

#include <boost/range/iterator_range.hpp>

#include "driver/run.hpp"
#include "input/name_table.hpp"
#include "input/orientation_arcs.hpp"
#include "orientation/prepare_ilp.hpp"
#include "solver/lp_names.hpp"

namespace {

template <typename graph, typename text_function>
std::string arcs_as_text(const graph& network, const text_function& text_after) {
    std::string text;
    for (const auto& arc : boost::make_iterator_range(boost::edges(network))) {
        if (const std::string after = text_after(arc); after != "-") {
            text += (text.empty() ? "" : " ") + boost::get(names_map, boost::source(arc, network)) +
                    boost::get(names_map, boost::target(arc, network)) + after;
        }
    }
    return text;
}

}  // namespace

void network_test::make(const std::string& words) {
    reset_run_state();
    model = IloModel(env);
    proteins.clear();
    const auto protein = [&](char name) {
        while (proteins.size() <= static_cast<std::size_t>(name - 'a')) {
            proteins.push_back(add_protein(std::string(1, static_cast<char>('a' + proteins.size()))));
        }
        return proteins[name - 'a'];
    };
    std::istringstream stream(words);
    for (std::string word; stream >> word;) {
        if (word[1] == '-') {
            add_orientable_pair(model, protein(word[0]), protein(word[2]), 1.0, {}, {}, nullptr);
        } else if (word[1] == ':') {
            for (const char effect : word.substr(2)) {
                sources[protein(word[0])].push_back(protein(effect));
            }
        } else {
            add_directed_arc(model, protein(word[0]), protein(word[1]), 1.0);
        }
    }
}

void network_test::prepare(bool allow_one_edge_path) {
    number_network();
    isoMap = copy_network(iso_vec);
    network_rows = static_cast<std::size_t>(IloCplex(model).record().num_rows());
    EXPECT_TRUE(prepare_ilp(model, allow_one_edge_path, isoMap));
}

std::string network_test::draw(unsigned seed, int num_proteins, int num_interactions, double directed_share,
                               bool parallel_arcs) {
    std::mt19937 engine(seed);
    const auto below = [&](int limit) { return static_cast<int>(engine() % limit); };
    const auto any_protein = [&] { return std::string(1, static_cast<char>('a' + below(num_proteins))); };
    std::string words;
    std::set<std::string> arcs;
    while (num_interactions-- > 0) {
        const std::string one = any_protein();
        const std::string other = any_protein();
        const bool directed = below(100) < 100 * directed_share;
        if (one == other || (arcs.contains(one + other) && !(directed && parallel_arcs)) ||
            (arcs.contains(other + one) && !directed)) {
            continue;
        }
        words += directed ? one + other + " " : one + "-" + other + " ";
        arcs.insert(one + other);
        if (!directed) {
            arcs.insert(other + one);
        }
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

std::string network_test::marked() {
    return arcs_as_text(in_shortest_filtered, [](const auto&) { return std::string(); });
}

std::string network_test::counted() {
    return arcs_as_text(bi_graph, [](const auto& arc) {
        const int count = boost::get(shortest_paths_counter_map, arc);
        return count == 0 ? "-" : std::string(":").append(std::to_string(count));
    });
}

std::string network_test::comp_arcs() {
    return arcs_as_text(comp_graph, [](const auto&) { return std::string(); });
}

std::vector<std::string> network_test::flow_rows() const {
    const solver::model_record record = IloCplex(model).record();
    const solver::name_list names = solver::lp_names(record.column_names, 'x');
    std::vector<std::string> rows;
    for (std::size_t row = network_rows; row < record.row_upper.size(); ++row) {
        std::string text;
        for (std::size_t term = record.row_start[row]; term < record.row_start[row + 1]; ++term) {
            EXPECT_EQ(std::abs(record.row_value[term]), 1.0);
            const char* sign = record.row_value[term] < 0 ? "- " : text.empty() ? "" : "+ ";
            text.append(sign).append(names[record.row_column[term]]).append(" ");
        }
        EXPECT_EQ(record.row_upper[row], 0.0);
        rows.push_back(text + "<= 0");
    }
    return rows;
}
