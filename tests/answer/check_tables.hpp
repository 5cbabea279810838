// Tables of a run held to one another: recounted from interactions.tsv alone, by other
// ways than those of the program.
#pragma once

#include <string>
#include <vector>

struct checked_tables {
    std::vector<std::string> faults;  // one line each
    long interactions = 0;
    long pairs = 0;
    long explained = 0;
    long unproven = 0;  // ranges whose ends differ
};

// What does not hold of the tables in the folder: explained pairs are the value; distances
// and numbers of paths; every explained pair's path is open, shortest, and no other has a
// stronger weakest regret; lost pairs have no open path; the pairs of every interaction; no
// regret above them, but for what the value may lack; ranges in order; statuses as defined;
// counts of run.json. Throws what reading throws.
checked_tables check_tables(const std::string& folder);
