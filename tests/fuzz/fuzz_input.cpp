// Five input files out of any bytes, through every phase but solving. The byte
// 0x1e (record separator) stands between the files, in the order in which they are
// read; those behind the last one do not open.
//
//   build/fuzz/tests/fuzz/fuzz_input -max_total_time=60 FOLDER tests/fuzz/seeds
//
// keeps in FOLDER what it finds new.
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <sstream>

#include "driver/run.hpp"
#include "input/read_data.hpp"
#include "orientation/prepare_ilp.hpp"
#include "report/graph_writer.hpp"

namespace {

void require(bool holds) {
    if (!holds) {
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
        require(boost::get(myindex_map, arc) == index++);
        require(tail != head);
        require(find_arc(tail, head).first == arc);  // no parallel arcs
        require(boost::get(directions_map, arc) == 1 || find_arc(head, tail).second);
        require(boost::get(vars_map, arc).getName() ==
                "o_" + boost::get(names_map, tail) + "_" + boost::get(names_map, head));
    }
    std::size_t recorded_pairs = 0;
    for (const auto& [source, source_targets] : sources) {
        recorded_pairs += source_targets.size();
    }
    require(num_of_pairs == static_cast<int>(recorded_pairs));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::cout.rdbuf(nullptr);  // what is printed goes nowhere
    reset_run_state();
    IloModel model(env);
    name_objective();
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    bool open = true;
    read_data([&](const char*) { return next_file(rest, open); }, model);
    check_network();

    std::ostringstream drawing;
    write_network(drawing);
    std::vector<vertex_descriptor> iso_vec;
    prepare_ilp(model, true, copy_network(iso_vec));
    require(num_of_pairs == static_cast<int>(pairs.size()));
    IloCplex(model).exportModel("/dev/null");
    return 0;
}
