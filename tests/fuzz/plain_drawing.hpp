// A drawing read back line by line, and held to bi_graph.
#pragma once

#include <string>

// What the text says otherwise than bi_graph: proteins with their names, arcs with their
// colours, in order. Empty = nothing.
std::string difference_of_drawing(const std::string& text);
