#include "network_fixture.hpp"

#include <boost/range/iterator_range.hpp>

#include "driver/run.hpp"
#include "input/name_table.hpp"
#include "input/orientation_arcs.hpp"
#include "orientation/prepare_ilp.hpp"
#include "solver/lp_file.hpp"

namespace {

std::string joined(const std::vector<std::string>& words) {
    std::string text;
    for (const std::string& word : words) {
        text += (text.empty() ? "" : " ") + word;
    }
    return text;
}

}  // namespace

void network_test::start(int num_proteins) {
    reset_run_state();
    model = IloModel(env);
    proteins.clear();
    for (int i = 0; i < num_proteins; ++i) {
        proteins.push_back(add_protein(i < 26 ? std::string(1, static_cast<char>('a' + i)) : "n" + std::to_string(i)));
    }
}

void network_test::arc(char tail, char head) {
    add_directed_arc(model, protein(tail), protein(head), 1.0);
}

void network_test::interaction(char one, char two) {
    add_orientable_pair(model, protein(one), protein(two), 1.0, {}, {}, nullptr);
}

void network_test::knockout(char cause, const std::string& effects) {
    for (const char effect : effects) {
        sources[protein(cause)].push_back(protein(effect));
    }
}

void network_test::draw(unsigned seed, int num_proteins, int num_interactions, double directed_share,
                        bool parallel_arcs) {
    start(num_proteins);
    std::mt19937 engine(seed);
    const auto any_protein = [&] { return proteins[engine() % proteins.size()]; };
    for (int i = 0; i < num_interactions; ++i) {
        const vertex_descriptor one = any_protein();
        const vertex_descriptor two = any_protein();
        if (one == two) {
            continue;
        }
        if (engine() % 100 < 100 * directed_share) {
            if (parallel_arcs || !find_arc(one, two).second) {
                add_directed_arc(model, one, two, 1.0);
            }
        } else if (!find_arc(one, two).second && !find_arc(two, one).second) {
            add_orientable_pair(model, one, two, 1.0, {}, {}, nullptr);
        }
    }
    for (int i = 0; i < 4; ++i) {
        const vertex_descriptor cause = any_protein();
        for (int left = 1 + static_cast<int>(engine() % 5); left > 0; --left) {
            sources[cause].push_back(any_protein());
        }
    }
}

void network_test::prepare(bool allow_one_edge_path) {
    number_network();
    isoMap = copy_network(iso_vec);
    network_rows = static_cast<std::size_t>(IloCplex(model).record().num_rows());
    EXPECT_TRUE(prepare_ilp(model, allow_one_edge_path, isoMap));
}

std::string network_test::name_of(edge_descriptor arc) const {
    return boost::get(names_map, boost::source(arc, bi_graph)) + boost::get(names_map, boost::target(arc, bi_graph));
}

std::string network_test::marked() const {
    std::vector<std::string> words;
    for (const auto& arc : boost::make_iterator_range(boost::edges(in_shortest_filtered))) {
        words.push_back(name_of(arc));
    }
    return joined(words);
}

std::string network_test::counted() const {
    std::vector<std::string> words;
    for (const auto& arc : boost::make_iterator_range(boost::edges(bi_graph))) {
        if (const int count = boost::get(shortest_paths_counter_map, arc); count != 0) {
            words.push_back(name_of(arc) + ":" + std::to_string(count));
        }
    }
    return joined(words);
}

std::string network_test::comp_arcs() const {
    std::vector<std::string> words;
    for (const auto& arc : boost::make_iterator_range(boost::edges(comp_graph))) {
        words.push_back(name_of(arc));
    }
    return joined(words);
}

std::vector<std::string> network_test::flow_rows() const {
    const solver::model_record record = IloCplex(model).record();
    const std::vector<std::string> names = solver::lp_names(record.column_names, 'x');
    std::vector<std::string> rows;
    for (std::size_t row = network_rows; row < record.row_upper.size(); ++row) {
        std::string text;
        for (std::size_t term = record.row_start[row]; term < record.row_start[row + 1]; ++term) {
            EXPECT_EQ(std::abs(record.row_value[term]), 1.0);
            const char* sign = record.row_value[term] < 0 ? "- " : text.empty() ? "" : "+ ";
            text += sign + names[record.row_column[term]] + " ";
        }
        EXPECT_EQ(record.row_upper[row], 0.0);
        rows.push_back(text + "<= 0");
    }
    return rows;
}
