// STRING's files of names: "aliases", with every name of a protein and where it comes from,
// and "info", with the preferred one.
#pragma once

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "formats/reading_watch.hpp"

// One name for each protein: from an info file the preferred one, from an aliases file the
// one of the best source, or of `alias_source` alone. Of several from one source the first
// by the alphabet. Throws unusable_input for what cannot be read.
using string_names = std::unordered_map<std::string, std::string>;
string_names read_string_names(const std::vector<std::string>& paths, const std::string& alias_source,
                               const reading_watch& watch = {});

// For each of the wanted names that an aliases file knows: the proteins that bear it, by
// their identifiers, sorted.
std::unordered_map<std::string, std::vector<std::string>> find_string_proteins(
    const std::vector<std::string>& paths, const std::unordered_set<std::string>& wanted,
    const reading_watch& watch = {});

// "9606.ENSP00000000233" without its organism.
std::string without_taxon(const std::string& id);
