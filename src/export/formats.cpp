#include "export/formats.hpp"

#include <array>

namespace {

using text_writer = std::string (*)(const results::answer&, const subnetwork&);

struct format_entry {
    const char* name;
    text_writer write;
};

// In the order of network_format.
constexpr std::array<format_entry, 5> formats = {
    {{"cx2", cx2_text}, {"graphml", graphml_text}, {"sif", sif_text}, {"tsv", tsv_text}, {"dot", dot_text}}};

}  // namespace

std::optional<network_format> format_named(const std::string& name) {
    for (std::size_t i = 0; i < formats.size(); ++i) {
        if (name == formats[i].name) {
            return static_cast<network_format>(i);
        }
    }
    return std::nullopt;
}

std::optional<network_format> format_of_file(const std::string& path) {
    const std::size_t dot = path.rfind('.');
    return dot == std::string::npos ? std::nullopt : format_named(path.substr(dot + 1));
}

std::string network_text(const results::answer& answer, const subnetwork& network, network_format format) {
    return formats[static_cast<std::size_t>(format)].write(answer, network);
}
