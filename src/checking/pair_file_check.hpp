// test, directed, undirected and ko, line by line as a run takes them.
#pragma once

#include <cstdint>

#include "checking/name_check.hpp"

// Names that lines mention and a run does not find, in the order of their first mention.
struct unknown_mentions {
    std::vector<unknown_name> names;
    std::unordered_map<std::string, std::size_t> positions;

    void add(const std::string& name, const std::string& file, long line);
};

// The four files in the order of a run; each adds to the network what it takes.
class pair_file_checker {
 public:
    pair_file_checker(checked_names& names, read_network& network, unknown_mentions& unknown)
        : names_(names), network_(network), unknown_(unknown) {}

    void check_interactions(text_file file, interaction_kind kind, file_check& check);
    void check_knockouts(text_file file, file_check& check);

 private:
    struct record {
        int first;
        int second;
        std::string rest;
        long line;
    };
    // Whole records with two known names; says what became of all others.
    template <typename taker>
    void for_each_record(text_file& file, bool needs_line_feed, file_check& check, const taker& take);
    void add_arc(int tail, int head, interaction_kind kind);
    const interaction_kind* find_arc(int tail, int head) const;
    drop_reason reason_to_drop(const record& line, interaction_kind kind, bool& drops) const;

    checked_names& names_;
    read_network& network_;
    unknown_mentions& unknown_;
    std::unordered_map<std::uint64_t, interaction_kind> arcs_;  // by both ends
};
