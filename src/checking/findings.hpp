// What there is to say of an input folder, as plain records.
#pragma once

#include <map>
#include <string>
#include <vector>

#include "naming/likeness.hpp"

// Why nothing was taken from a line. Those up to `unknown_name` are losses: what the line
// says is not in the network. The others are the format's rules.
enum class drop_reason {
    not_read,       // too many proteins: no file behind names.txt is read, and that one for nothing
    no_line_feed,   // the file's last line, not ended
    name_too_long,  // more than 19 bytes
    runs_on,        // no blank ends a name on its line, so that it goes on in the next
    unknown_name,
    self_loop,
    repeated,
    test_interaction,      // the two proteins are a test interaction already
    directed_interaction,  // an undirected line for what has a known direction
};
bool is_loss(drop_reason reason);
const char* name_of(drop_reason reason);
const char* describe(drop_reason reason);

// What the readers pass over in silence.
enum class hazard {
    not_opened,
    utf16,
    byte_order_mark,
    too_many_proteins,
    empty_line,
    carriage_return,
    tab,
    null_byte,
    blank_in_name,
    leading_blank,
    doubled_blank,
    ends_at_name,
    no_number,
    repeated_name,
    not_drawable,
    first_name_missed,
};
const char* name_of(hazard what);
const char* describe(hazard what);

using line_numbers = std::vector<long>;  // from 1, ascending

struct file_check {
    std::string name;
    bool opened = false;
    long lines = 0;  // those that hold something, or are ended
    long taken = 0;  // that became proteins, interactions or pairs
    std::map<drop_reason, line_numbers> dropped;
    std::map<hazard, line_numbers> hazards;  // no lines: it is about the whole file
};

struct mention {
    std::string file;
    long line;
};

struct unmentioned_protein {
    std::string name;
    long line;
};

struct unknown_name {
    std::string name;
    std::vector<mention> mentions;
    name_matcher::match meant;  // `same`: it stands in names.txt, and is not found all the same
};

enum class interaction_kind { test, directed, undirected };

// The network that the files make. Proteins are numbered as in the run: in file order,
// together with the nameless one that a run makes at the end of names.txt.
struct read_network {
    struct interaction {
        int first;
        int second;
        interaction_kind kind;
        double confidence;
        long line;
    };
    struct pair {
        int cause;
        int effect;
        long line;
    };
    std::vector<std::string> proteins;
    int num_searched = 0;  // proteins that other files can name; -1 without a names.txt
    std::vector<interaction> interactions;
    std::vector<pair> pairs;
};

// Why a pair has no path; `none` where it has one. The first that holds.
enum class no_path { none, same_protein, no_outgoing, no_entering, different_components, no_directed_path };
const char* name_of(no_path why);
const char* describe(no_path why);

struct pathless_pair {
    std::string cause;
    std::string effect;
    long line;
    no_path why;
};

struct repeated_pair {
    std::string cause;
    std::string effect;
    line_numbers lines;
};

// Arcs of different interactions whose direction variables have one name, as A -> A_B
// and A_A -> B have: "o_A_A_B".
struct shared_variable {
    std::string variable;
    std::vector<std::string> arcs;  // "A -> A_B"
};

struct input_check {
    std::vector<file_check> files;  // in the order in which a run reads them
    read_network network;
    std::vector<unknown_name> unknown_names;  // in the order of their first mention
    std::vector<unmentioned_protein> unmentioned;
    std::vector<pathless_pair> pathless_pairs;
    std::vector<repeated_pair> repeated_pairs;
    std::vector<shared_variable> shared_variables;

    long lines_lost() const;
    bool is_clean() const { return lines_lost() == 0 && unknown_names.empty(); }
};
