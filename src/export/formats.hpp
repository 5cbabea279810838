// The network of an answer as text, one writer per format.
#pragma once

#include <optional>
#include <string>

#include "export/subnetwork.hpp"
#include "results/results.hpp"

enum class network_format { cx2, graphml, sif, tsv, dot };

// By the format's name, or by the end of a file's name; nothing when it is none of them.
std::optional<network_format> format_named(const std::string& name);
std::optional<network_format> format_of_file(const std::string& path);

std::string network_text(const results::answer& answer, const subnetwork& network, network_format format);

// Cytoscape Exchange Format, version 2, with a visual style: an arrow for a direction,
// colour by status, width by pairs, dashed for test interactions.
std::string cx2_text(const results::answer& answer, const subnetwork& network);
// Every edge is directed from source to target; is_directed says whether that means
// anything. A number that the table leaves empty is -1.
std::string graphml_text(const results::answer& answer, const subnetwork& network);
// Source, status, target; a protein without interactions is a line of its own.
std::string sif_text(const results::answer& answer, const subnetwork& network);
// The rows of interactions.tsv behind source and target.
std::string tsv_text(const results::answer& answer, const subnetwork& network);
// Two drawings beside each other for Graphviz: as read, and as decided.
std::string dot_text(const results::answer& answer, const subnetwork& network);
