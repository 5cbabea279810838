// Which names of different files mean the same protein.
#pragma once

#include "importing/import_plan.hpp"
#include "importing/interaction_pool.hpp"

// Names that differ in case, separators or version from a name that another file has, and
// that no file has beside it. Where they are to be taken for one, `pool` gets them under the
// one that the first file has.
std::vector<alike_name> match_interactors(interaction_pool& pool, bool take);

// Knockout pairs as they were read: each once, with what it takes to tell of them.
struct named_pair {
    std::string cause;
    std::string effect;
    bool operator==(const named_pair&) const = default;
    auto operator<=>(const named_pair&) const = default;
};

// What the names of knockouts are called in the network.
struct knockout_names {
    std::map<std::string, std::string> in_network;  // by the knockouts' name; absent: unknown
    std::vector<alike_name> unlike;                 // names that the network has not as they stand
    long named_by_alias = 0;
};
// Names that stand in the network as they are; then those that STRING's aliases give to one
// protein alone; then, if asked for, those that one name alone is like.
knockout_names match_knockouts(const std::vector<named_pair>& pairs, const std::vector<std::string>& network,
                               const import_plan& plan);
