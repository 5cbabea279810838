// What `orient` left behind: the rows of interactions.tsv and pairs.tsv, typed, with
// proteins by number.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace results {

enum class interaction_file { test, directed, undirected };
enum class direction { known, first_to_second, second_to_first, none };
enum class interaction_status { known, decided, tied, unused, open };
enum class pair_status { explained, lost, unreachable, same_protein, unknown_name };

// A number that may be known as a range only; empty where the table has none.
struct value_range {
    std::optional<long> min;
    std::optional<long> max;
};

struct interaction_row {
    std::size_t first = 0;  // as the line of the file names them; positions in answer::proteins
    std::size_t second = 0;
    interaction_file file = interaction_file::undirected;
    long line = 0;
    std::string confidence;  // as the file writes it
    direction chosen = direction::none;
    long num_pairs = 0;  // explained pairs with an open shortest path over it
    value_range regret;
    interaction_status status = interaction_status::unused;
};

using named_pair = std::pair<std::size_t, std::size_t>;  // cause and effect

struct pair_row {
    std::size_t cause = 0;
    std::size_t effect = 0;
    long line = 0;
    pair_status status = pair_status::lost;
    std::string why;              // for an unreachable pair, in a word
    std::optional<int> distance;  // length of its shortest paths, in the network as read
    std::string num_paths;        // decimal, or ">1e15"
    std::string num_open_paths;
    std::vector<std::size_t> path;  // one open path, cause first; empty unless explained
    value_range price;
    std::vector<named_pair> against;  // pairs that an optimum with this one gives up
    long more_against = 0;            // those that the table only counts
};

struct protein_record {
    std::string name;            // as the user's own files have it
    std::string alias;           // as the tables have it; the same but for names that `import` replaced
    bool is_in_network = false;  // an interaction or a pair of known names has it
};

struct answer {
    std::vector<protein_record> proteins;  // in the order in which the tables name them
    std::vector<interaction_row> interactions;
    std::vector<pair_row> pairs;
};

// The words of the tables.
const char* word(interaction_file file);
const char* word(direction chosen);
const char* word(interaction_status status);
const char* word(pair_status status);

// Tail and head of the arc that is open in the answer; nothing where none is chosen.
std::optional<std::pair<std::size_t, std::size_t>> open_arc(const interaction_row& interaction);

}  // namespace results
