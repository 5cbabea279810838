#include "export/attributes.hpp"
#include "export/formats.hpp"
#include "export/palette.hpp"

namespace {

std::string quoted(const std::string& name) {
    std::string text = "\"";
    for (const char c : utf8_text(name)) {
        if (c == '"' || c == '\\') {
            text += '\\';
        }
        text += c;
    }
    return text + "\"";
}

// Before anything is chosen, every orientable interaction is a line without arrow.
std::string line_as_read(const results::interaction_row& interaction) {
    if (interaction.file == results::interaction_file::directed) {
        return std::string("color=\"") + status_colours[0] + '"';
    }
    const bool is_test = interaction.file == results::interaction_file::test;
    return std::string("dir=none, color=\"") +
           status_colours[static_cast<std::size_t>(results::interaction_status::unused)] +
           (is_test ? "\", style=dashed" : "\"");
}

std::string line_as_decided(const results::interaction_row& interaction) {
    std::string looks = std::string("color=\"") + status_colours[static_cast<std::size_t>(interaction.status)] + '"';
    if (interaction.chosen == results::direction::none) {
        looks += ", dir=none";
    } else if (interaction.chosen != results::direction::known) {
        looks += ", penwidth=1.6";
    }
    return interaction.file == results::interaction_file::test ? looks + ", style=dashed" : looks;
}

// Ranks follow the answer in both drawings, so that a protein stands at about the same
// height in each.
void draw(std::string& text, const results::answer& answer, const subnetwork& network, const std::string& title,
          const std::string& prefix, std::string (*looks)(const results::interaction_row&)) {
    text += "  subgraph cluster_" + prefix + " { label=\"" + title + "\";\n";
    const auto node = [&](std::size_t protein) { return prefix + std::to_string(protein); };
    for (const std::size_t protein : network.proteins) {
        text.append("    ").append(node(protein)).append(" [label=");
        text.append(quoted(answer.proteins[protein].name)).append("];\n");
    }
    for (const std::size_t i : network.interactions) {
        const results::interaction_row& interaction = answer.interactions[i];
        const auto [source, target] = drawn_ends(interaction);
        text.append("    ").append(node(source)).append(" -> ").append(node(target));
        text.append(" [").append(looks(interaction)).append("];\n");
    }
    text += "  }\n";
}

}  // namespace

std::string dot_text(const results::answer& answer, const subnetwork& network) {
    std::string text =
        "digraph network {\n"
        "  graph [fontname=\"Helvetica\", fontsize=13, nodesep=0.15, ranksep=0.3, style=dotted];\n"
        "  node [shape=box, style=rounded, fontname=\"Helvetica\", fontsize=10, height=0.25, width=0.5, "
        "margin=\"0.06,0.02\"];\n"
        "  edge [arrowsize=0.6];\n";
    draw(text, answer, network, "as read", "before", line_as_read);
    draw(text, answer, network, "as decided", "after", line_as_decided);
    return text + "}\n";
}
