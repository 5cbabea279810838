#include "answer/network_record.hpp"

#include <algorithm>
#include <deque>
#include <map>
#include <stdexcept>

#include "input/name_table.hpp"
#include "input/pair_record.hpp"

namespace {

int index_of(vertex_descriptor vertex) {
    return boost::get(vertex_myindex_map, vertex);
}

// Lines by position in the text, for positions that never go back.
class line_counter {
 public:
    explicit line_counter(const std::string& text) : text_(text) {}

    int line_at(std::size_t position) {
        line_ += static_cast<int>(std::count(text_.begin() + static_cast<std::ptrdiff_t>(counted_),
                                             text_.begin() + static_cast<std::ptrdiff_t>(position), '\n'));
        counted_ = position;
        return line_;
    }

 private:
    const std::string& text_;
    std::size_t counted_ = 0;
    int line_ = 1;
};

// Arcs in their order, which is that of the lines that made them; the two arcs of an
// interaction that may be oriented follow each other.
std::vector<interaction> interactions_of_graph() {
    std::vector<interaction> found;
    for (auto [arc, end] = boost::edges(bi_graph); arc != end; ++arc) {
        interaction made;
        made.first = index_of(boost::source(*arc, bi_graph));
        made.second = index_of(boost::target(*arc, bi_graph));
        made.confidence = boost::get(parallel_confidence_map, *arc);
        made.forward = boost::get(vars_map, *arc);
        made.file = boost::get(directions_map, *arc) == 1 ? interaction_file::directed
                    : boost::get(hidden_map, *arc) != 0   ? interaction_file::test
                                                          : interaction_file::undirected;
        if (made.file != interaction_file::directed) {
            made.backward = boost::get(vars_map, *++arc);
        }
        found.push_back(made);
    }
    return found;
}

// A record that made no arc never names the ends of the next interaction of its file in
// their order: it would have made it. So the first record that does is the one.
void find_lines(network_record& network, const input_files& input, interaction_file file) {
    text_file text = input.file(name_of(file));
    text.quiet = true;
    line_counter lines(text.text);
    auto next = std::find_if(network.interactions.begin(), network.interactions.end(),
                             [&](const interaction& item) { return item.file == file; });
    const auto is_next = [&] { return next != network.interactions.end() && next->file == file; };
    pair_record record;
    while (is_next() && read_pair_record(text, record)) {
        if (network.names[static_cast<std::size_t>(next->first)] == record.first &&
            network.names[static_cast<std::size_t>(next->second)] == record.second) {
            next->line = lines.line_at(record.start);
            ++next;
        }
    }
    if (is_next()) {
        throw std::logic_error(std::string("an interaction has no line in ") + name_of(file));
    }
}

// Lines that the reader refused for a name that is too long: they lie between the
// records that it took.
void add_refused_lines(std::vector<knockout_line>& knockouts, const std::string& text, std::size_t position,
                       std::size_t end, line_counter& lines) {
    while (position < end) {
        const std::size_t line_end = std::min(text.find('\n', position), end);
        const std::string line = text.substr(position, line_end - position);
        const std::size_t blank = std::min(line.find(' '), line.size());
        knockout_line refused;
        refused.line = lines.line_at(position);
        refused.cause = line.substr(0, blank);
        if (blank < line.size()) {
            refused.effect = line.substr(blank + 1, line.find(' ', blank + 1) - blank - 1);
        }
        knockouts.push_back(refused);
        position = line_end + 1;
    }
}

std::vector<knockout_line> read_knockout_lines(const input_files& input) {
    std::vector<knockout_line> knockouts;
    text_file text = input.file("ko");
    text.quiet = true;
    line_counter lines(text.text);
    protein_finder proteins(num_of_proteins);
    pair_record record;
    std::size_t taken = 0;
    while (read_pair_record(text, record)) {
        add_refused_lines(knockouts, text.text, taken, record.start, lines);
        taken = text.position;
        const vertex_descriptor cause = proteins.find(record.first);
        const vertex_descriptor effect = proteins.find(record.second);
        knockout_line line;
        line.cause = record.first;
        line.effect = record.second;
        line.line = lines.line_at(record.start);
        line.cause_vertex = cause == nullptr ? -1 : index_of(cause);
        line.effect_vertex = effect == nullptr ? -1 : index_of(effect);
        knockouts.push_back(line);
    }
    add_refused_lines(knockouts, text.text, taken, record.start, lines);
    return knockouts;
}

// A pair that stands k times in the file has k pair variables, in the order of its lines.
void find_pairs(std::vector<knockout_line>& knockouts) {
    std::map<std::pair<int, int>, std::deque<int>> positions;
    for (std::size_t i = 0; i < pairs.size(); ++i) {
        positions[{index_of(pairs[i].pair_source), index_of(pairs[i].pair_target)}].push_back(static_cast<int>(i));
    }
    for (knockout_line& line : knockouts) {
        const auto found = positions.find({line.cause_vertex, line.effect_vertex});
        if (found != positions.end() && !found->second.empty()) {
            line.pair = found->second.front();
            found->second.pop_front();
        }
    }
}

}  // namespace

const char* name_of(interaction_file file) {
    return file == interaction_file::test ? "test" : file == interaction_file::directed ? "directed" : "undirected";
}

network_record record_network(const input_files& input) {
    network_record network;
    for (const vertex_descriptor vertex : boost::make_iterator_range(boost::vertices(bi_graph))) {
        network.names.push_back(boost::get(names_map, vertex));
    }
    network.interactions = interactions_of_graph();
    for (const interaction_file file :
         {interaction_file::test, interaction_file::directed, interaction_file::undirected}) {
        find_lines(network, input, file);
    }
    network.knockouts = read_knockout_lines(input);
    find_pairs(network.knockouts);
    return network;
}
