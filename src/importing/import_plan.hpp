// What an import is asked for, and the account that it gives.
#pragma once

#include <cstdint>

#include "formats/foreign_rows.hpp"
#include "naming/likeness.hpp"

struct import_plan {
    std::vector<std::string> interaction_files;
    std::vector<std::string> knockout_files;
    interaction_options interactions;
    knockout_options knockouts;
    bool match_loosely = false;  // take names that differ in case, separators or version for the same
    bool prune = false;          // leave out what lies on no shortest path, however many proteins there are
    std::string hide;            // known directions to hide: a number of them, or a share as 0.1 or 10%; empty: none
    std::uint64_t seed = 1;
};

// The network as it is to be written. Names are those that the files gave.
struct imported_network {
    enum class kind { test, directed, undirected };
    struct interaction {
        int first;
        int second;
        kind what;
        double confidence;
    };
    struct pair {
        int cause;
        int effect;
    };
    std::vector<std::string> names;         // sorted
    std::vector<interaction> interactions;  // sorted by names; the first of an undirected one is the smaller
    std::vector<pair> pairs;                // sorted by names, each once
};

// A name and those that differ from it in spelling alone.
struct alike_name {
    std::string name;
    name_matcher::match meant;
    bool is_taken = false;  // as the one that is meant
};

struct import_counts {
    // Interactions: rows taken from all files, and what became of them.
    long rows = 0;
    long repeated = 0;          // say what another row says
    long overruled = 0;         // without direction, of two proteins with a known one
    long both_ways = 0;         // pairs of proteins with both directions known: two interactions each
    long known_directions = 0;  // before any is hidden
    // Knockouts.
    long pair_rows = 0;
    long pairs_repeated = 0;
    long pairs_unknown = 0;   // distinct, with a name that the network has not
    long pairs_same = 0;      // distinct, whose names mean one protein
    long named_by_alias = 0;  // names that STRING's aliases explain
    // Before and after what lies on no shortest path is left out.
    bool is_pruned = false;
    long proteins_before = 0;
    long interactions_before = 0;
    long tests_before = 0;
    long pairs_without_path = 0;
};

struct import_account {
    std::vector<source_account> interaction_sources;
    std::vector<source_account> knockout_sources;
    std::vector<std::pair<std::string, std::string>> name_sources;  // STRING's files of names: path, SHA-256
    std::vector<alike_name> alike_interactors;  // names of one interactions file that another one spells otherwise
    std::vector<alike_name> unknown_names;      // of knockouts; sorted
    import_counts counts;
};

struct import_result {
    imported_network network;
    std::map<std::string, std::string> aliases;  // by name
    import_account account;
};
