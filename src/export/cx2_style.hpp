// The looks of a network in Cytoscape.
#pragma once

#include <nlohmann/json.hpp>

// The aspect visualProperties. The width of a line grows up to max_pairs.
nlohmann::ordered_json cx2_style(long max_pairs);
