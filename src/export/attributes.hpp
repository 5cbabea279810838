// What is said of each protein and each interaction in the formats that have attributes.
#pragma once

#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "export/subnetwork.hpp"
#include "results/results.hpp"

using attribute_value = std::variant<std::string, long, double, bool, std::vector<std::string>>;

struct attribute {
    const char* name;
    attribute_value value;
};

// Everything of the table's row, and besides: name ("A (decided) B"), interaction (the
// status, under the name that Cytoscape looks for), is_directed, is_test. What the row
// leaves empty is left out.
std::vector<attribute> interaction_attributes(const results::answer& answer,
                                              const results::interaction_row& interaction);

// By protein of the whole answer: name, alias where it is another, how many pairs have
// it as cause or effect, how many of these are explained, and the effects by name.
std::vector<std::vector<attribute>> protein_attributes(const results::answer& answer);

// Ends of the interaction as drawn: along its arc, or as the file has them.
results::named_pair drawn_ends(const results::interaction_row& interaction);

// The text in UTF-8, with U+FFFD for what is not.
std::string utf8_text(const std::string& text);
