// Reads back the folder that `orient` has written.
#pragma once

#include <string>

#include <nlohmann/json.hpp>

#include "results/results.hpp"

namespace results {

// The folder with or without "/" at its end; it must hold interactions.tsv and pairs.tsv.
// aliases.tsv is taken where it is. Throws unusable_input with file,
// line and reason.
answer read_answer(const std::string& folder);

// Position of the protein of this name, or of this alias. Throws unusable_input that
// asks for those that are alike where there is none.
std::size_t find_protein(const answer& from, const std::string& name);

// A JSON file of the folder; null where there is none. Throws unusable_input.
nlohmann::ordered_json read_json(const std::string& path);

// The path of a file in the folder.
std::string path_in(const std::string& folder, const std::string& file);

}  // namespace results
