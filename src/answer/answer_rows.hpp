// What an answer says of every interaction and of every knockout pair: plain rows, as the
// tables show them.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "answer/network_record.hpp"
#include "solver/regret/find_regrets.hpp"
#include "tables/name_lists.hpp"

enum class found_direction { known, first_to_second, second_to_first, none };

enum class interaction_status {
    known,
    decided,  // every optimum has this direction open: regret at least 1
    tied,     // regret 0
    unused,   // no direction, because no explained pair can use it
    open      // has a direction; not proven whether decided or tied
};

struct interaction_row {
    std::string first;
    std::string second;
    interaction_file file = interaction_file::test;
    int line = 0;
    double confidence = 0.0;
    found_direction direction = found_direction::none;
    long pairs = 0;                              // explained pairs with an open shortest path over it
    std::optional<solver::proven_range> regret;  // of the direction that was chosen
    interaction_status status = interaction_status::unused;
};

enum class pair_status { explained, lost, unreachable, same_protein, unknown_name };

struct pair_row {
    std::string cause;
    std::string effect;
    int line = 0;
    pair_status status = pair_status::unknown_name;
    std::string why;               // of an unreachable pair, in a word
    int distance = -1;             // arcs; -1 = no path, or not in the model
    std::uint64_t paths = 0;       // shortest paths; above most_paths_counted = more than that
    std::uint64_t open_paths = 0;  // those whose arcs are all open
    std::vector<std::string> path;
    std::optional<solver::proven_range> price;
    pair_list against;
};

inline constexpr std::array<const char*, 4> direction_names = {"known", "first_to_second", "second_to_first", "none"};
inline constexpr std::array<const char*, 5> interaction_status_names = {"known", "decided", "tied", "unused", "open"};
inline constexpr std::array<const char*, 5> pair_status_names = {"explained", "lost", "unreachable", "same_protein",
                                                                 "unknown_name"};
inline constexpr std::size_t most_pairs_against = 10;  // shown by name

struct answer_rows {
    std::vector<interaction_row> interactions;
    std::vector<pair_row> pairs;
};

// The answer of a session, with what is proven of regrets and prices, if that was asked
// for. Throws std::logic_error when a pair counts as explained without an open path in the
// rows, or the other way round: the answer is recounted from the network alone.
answer_rows make_rows(const network_record& network, const IloCplex& cplex,
                      const std::optional<solver::regret_report>& regrets);

// The best value that is not proven to be out of reach: the solver's bound, and no more
// than all pairs of the model.
long proven_bound(const IloCplex& cplex);
