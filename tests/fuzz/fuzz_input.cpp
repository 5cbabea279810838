// Five input files out of any bytes, through every phase. The byte 0x1e (record separator)
// stands between the files, in the order in which they are read; those behind the last one
// do not open.
//
//   build/fuzz/tests/fuzz/fuzz_input -max_total_time=60 FOLDER tests/fuzz/seeds
//
// keeps in FOLDER what it finds new.
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <iostream>
#include <sstream>

#include "driver/run.hpp"
#include "fuzz/plain_drawing.hpp"
#include "fuzz/plain_lp.hpp"
#include "orientation/prepare_ilp.hpp"
#include "report/compare.hpp"
#include "report/graph_writer.hpp"
#include "solver/lp_file/lp_file.hpp"
#include "support/every_orientation.hpp"

namespace {

// Steps of an enumeration that is worth its time: orientations times causes times arcs.
constexpr double patience = 1e6;

void require(bool holds, const std::string& what) {
    if (!holds) {
        std::fprintf(stderr, "fuzz_input: %s\n", what.c_str());
        std::abort();
    }
}

text_file next_file(std::string_view& rest, bool& open) {
    const std::size_t end = rest.find('\x1e');
    const text_file file{.path = "file", .text = std::string(rest.substr(0, end)), .opened = open};
    open = open && end != std::string_view::npos;
    rest = open ? rest.substr(end + 1) : std::string_view();
    return file;
}

void check_network() {
    int index = 0;
    for (const edge_descriptor& arc : boost::make_iterator_range(boost::edges(bi_graph))) {
        const vertex_descriptor tail = boost::source(arc, bi_graph);
        const vertex_descriptor head = boost::target(arc, bi_graph);
        require(boost::get(myindex_map, arc) == index++, "an arc out of order");
        require(tail != head, "a loop");
        require(find_arc(tail, head).first == arc, "parallel arcs");
        require(boost::get(directions_map, arc) == 1 || find_arc(head, tail).second, "an arc without its reverse");
        require(boost::get(vars_map, arc).getName() ==
                    "o_" + boost::get(names_map, tail) + "_" + boost::get(names_map, head),
                "an arc's variable");
    }
    std::size_t recorded_pairs = 0;
    for (const auto& [source, source_targets] : sources) {
        recorded_pairs += source_targets.size();
    }
    require(num_of_pairs == static_cast<int>(recorded_pairs), "the number of pairs");
}

// A name in a message may hold line feeds, so only the first line is known to be a message.
void check_messages(const std::string& said) {
    require(said.empty() || said.ends_with('\n'), "a message without an end");
    for (const char* beginning : {"ERROR: ", "ERROR : ", "Notice: ", "current id exceeded MAX_PROTEIN_ID. "}) {
        if (said.starts_with(beginning)) {
            return;
        }
    }
    require(said.empty(), "no message: " + said);
}

void check_drawing() {
    std::ostringstream drawing;
    write_network(drawing);
    const std::string fault = difference_of_drawing(drawing.str());
    require(fault.empty(), "the drawing, " + fault);
}

bool is_worth_enumerating(const plain_network& network) {
    double steps = 0.0;
    for (const std::vector<int>& effects : network.effects) {
        steps += effects.empty() ? 0.0 : static_cast<double>(network.arcs.size() + network.effects.size());
    }
    return network.contested.size() <= 10 && steps * static_cast<double>(1 << network.contested.size()) <= patience;
}

// Solved, with its value and what is left of the drawing as they should be.
void check_solution(const IloModel& model, const IloCplex& cplex, std::ostringstream& said) {
    const plain_network network = read_plain_network();
    if (!is_worth_enumerating(network)) {
        return;
    }
    const std::size_t arcs_before = boost::num_edges(bi_graph);
    said.str({});
    compare(cplex, model, 0);
    const std::string expected =
        "Solution status = Optimal\nSolution value  = " + std::to_string(best_by_enumeration(network)) +
        "\ncplex solver finished\n";
    require(said.str() == expected, "the value: " + said.str() + "instead of\n" + expected);
    check_drawing();
    std::size_t decided = 0;
    for (const edge_descriptor& arc : boost::make_iterator_range(boost::edges(bi_graph))) {
        const bool is_alone = !find_arc(boost::target(arc, bi_graph), boost::source(arc, bi_graph)).second;
        decided += boost::get(hidden_map, arc) != 0 && is_alone ? 1 : 0;
    }
    require(boost::num_edges(bi_graph) + decided == arcs_before, "arcs that went");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::ostringstream said;
    std::cout.rdbuf(said.rdbuf());
    reset_run_state();
    IloModel model(env);
    name_objective();
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    bool open = true;
    read_data([&](const char*) { return next_file(rest, open); }, model);
    check_messages(said.str());
    check_network();
    check_drawing();

    std::vector<vertex_descriptor> iso_vec;
    prepare_ilp(model, true, copy_network(iso_vec));
    require(num_of_pairs == static_cast<int>(pairs.size()), "pairs without a variable");
    const IloCplex cplex(model);
    std::ostringstream text;
    write_lp(cplex.record(), text);
    const std::string fault = difference(cplex.record(), text.str());
    require(fault.empty(), "the LP file, " + fault);
    check_solution(model, cplex, said);
    std::cout.rdbuf(nullptr);
    return 0;
}
