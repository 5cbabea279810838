#include <algorithm>

#include "formats/delimited_text.hpp"
#include "formats/interaction_taker.hpp"
#include "tables/sha256.hpp"
#include "tables/unusable_input.hpp"

namespace {

struct format {
    const char* name;
    void (*read)(text_source& source, interaction_taker& taker);
};

constexpr format formats[] = {
    {"sif", read_sif},           {"delimited", read_delimited}, {"psi-mitab", read_psi_mitab},
    {"omnipath", read_omnipath}, {"biogrid", read_biogrid},     {"string", read_string_links},
};

std::string list_formats() {
    std::string text;
    for (const format& known : formats) {
        text += (text.empty() ? "" : ", ") + std::string(known.name);
    }
    return text;
}

bool holds(const std::string& line, const char* text) {
    return line.find(text) != std::string::npos;
}

// PSI-MITAB may come without a header: identifiers with their databases and many columns.
bool is_mitab_row(const std::string& line) {
    const long tabs = std::count(line.begin(), line.end(), '\t');
    return tabs >= 14 && holds(line.substr(0, line.find('\t')), ":");
}

// The most telling first; a name ending in ".sif" tells more than a table without a header.
std::string detect(text_source& source) {
    const std::vector<std::string> lines = source.peek(1);
    const std::string line = lines.empty() ? "" : lines[0];
    if (holds(line, "Official Symbol Interactor A")) {
        return "biogrid";
    }
    if (holds(line, "ID(s) interactor A") || holds(line, "ID(s) Interactor A") || is_mitab_row(line)) {
        return "psi-mitab";
    }
    if (line.starts_with("protein1 protein2 ")) {
        return "string";
    }
    if (holds(line, "source") && holds(line, "target") && holds(line, "is_directed")) {
        return "omnipath";
    }
    return without_gz(source.path()).ends_with(".sif") ? "sif" : "delimited";
}

}  // namespace

source_account read_interactions(const std::string& path, const interaction_options& options,
                                 const interaction_sink& take) {
    text_source source(path, options.watch);
    source_account account;
    account.path = path;
    account.format = options.format.empty() ? detect(source) : options.format;
    const auto chosen = std::find_if(std::begin(formats), std::end(formats),
                                     [&](const format& known) { return account.format == known.name; });
    if (chosen == std::end(formats)) {
        throw unusable_input("there is no format '" + account.format + "'; there are " + list_formats());
    }
    interaction_taker taker(options, take, account);
    chosen->read(source, taker);
    account.sha256 = sha256_of_file(path);
    return account;
}
