// names.txt, and what the other files find in it.
#pragma once

#include <string>
#include <unordered_map>

#include "checking/findings.hpp"
#include "input/text_file.hpp"
#include "model/network_graph.hpp"

// The table of names as a run makes it, without the run's own state.
class checked_names {
 public:
    // Reads the file, adds the proteins to the network, and says what became of its lines.
    checked_names(const text_file& file, file_check& check, read_network& network);

    // Position of a name's protein in the network, -1 when a run does not find it.
    int find(const std::string& name);
    // The line of a name whether it is found or not, 0 when there is none.
    long line_of(const std::string& name) const;
    // False: there are more than a run takes, so that it reads nothing else.
    bool fits() const { return fits_; }

 private:
    void make_table(const read_network& network);

    bool fits_ = true;
    std::vector<protein_name_data> table_;  // sorted as a run sorts it
    std::vector<int> protein_at_;           // by position in the table
    int num_searched_ = -1;
    std::unordered_map<std::string, int> found_;
    std::unordered_map<std::string, long> lines_;  // the first of each name
};
