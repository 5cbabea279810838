#include "support/run_state.hpp"

#include <iostream>

#include "input/read_data.hpp"

int run_state_test::load(const std::map<std::string, std::string>& files) {
    return read_data(
        [&](const char* name) {
            const auto file = files.find(name);
            return file == files.end() ? text_file{.path = name, .text = {}, .opened = false}
                                       : in_memory(name, file->second);
        },
        model);
}

void run_state_test::load_letters(std::map<std::string, std::string> files) {
    files.insert({{"names.txt", "A\nB\nC\nD\nE\nF\n"}, {"directed", ""}, {"undirected", ""}, {"ko", ""}});
    load(files);
}

std::string run_state_test::printed() {
    const std::string text = captured.str();
    captured.str({});
    return text;
}

text_file in_memory(const std::string& path, const std::string& text) {
    return {.path = path, .text = text};
}

lines proteins() {
    lines names;
    for (const vertex_descriptor protein : boost::make_iterator_range(boost::vertices(bi_graph))) {
        names.push_back(boost::get(names_map, protein));
    }
    return names;
}

lines arcs() {
    lines described;
    for (const edge_descriptor& arc : boost::make_iterator_range(boost::edges(bi_graph))) {
        std::ostringstream text;
        text << boost::get(names_map, boost::source(arc, bi_graph)) << "->"
             << boost::get(names_map, boost::target(arc, bi_graph)) << ' ' << boost::get(directions_map, arc) << ' '
             << boost::get(hidden_map, arc) << ' ' << boost::get(test_map, arc) << ' '
             << boost::get(parallel_confidence_map, arc);
        described.push_back(text.str());
    }
    return described;
}

lines rows(IloModel model) {
    const solver::model_record record = IloCplex(model).record();
    lines described;
    for (std::size_t row = 0; row < record.row_upper.size(); ++row) {
        std::ostringstream text;
        text << record.row_names[row] << ':';
        for (std::size_t term = record.row_start[row]; term < record.row_start[row + 1]; ++term) {
            const auto column = static_cast<std::size_t>(record.row_column[term]);
            text << (term > record.row_start[row] ? " + " : " ") << record.column_names[column];
            EXPECT_EQ(record.row_value[term], 1.0);
            EXPECT_TRUE(record.column_integral[column]);
        }
        text << " <= " << record.row_upper[row];
        described.push_back(text.str());
    }
    return described;
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
