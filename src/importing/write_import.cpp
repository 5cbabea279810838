#include <charconv>
#include <filesystem>

#include "importing/import_network.hpp"
#include "tables/table_text.hpp"
#include "tables/unusable_input.hpp"
#include "tables/whole_file.hpp"

namespace {

// The shortest text that reads back as the same number.
std::string shortest(double number) {
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, number).ptr};
}

std::vector<whole_file> files_of(const import_plan& plan, const import_result& result, const std::string& version) {
    const imported_network& network = result.network;
    std::vector<std::string> written;
    std::string names;
    std::string aliases;
    append_row(aliases, {"alias", "name"});
    for (const std::string& name : network.names) {
        const auto alias = result.aliases.find(name);
        written.push_back(alias == result.aliases.end() ? name : alias->second);
        names += written.back() + "\n";
        if (alias != result.aliases.end()) {
            append_row(aliases, {alias->second, name});
        }
    }
    const auto append = [&](std::string& text, int first, int second, const std::string& rest) {
        text.append(written[static_cast<std::size_t>(first)]).append(" ");
        text.append(written[static_cast<std::size_t>(second)]).append(" ").append(rest).append("\n");
    };
    std::string by_kind[3];
    for (const imported_network::interaction& found : network.interactions) {
        append(by_kind[static_cast<int>(found.what)], found.first, found.second, shortest(found.confidence));
    }
    std::string knockouts;
    for (const imported_network::pair& pair : network.pairs) {
        append(knockouts, pair.cause, pair.effect, "1");
    }
    return {{"names.txt", names},
            {"test", by_kind[0]},
            {"directed", by_kind[1]},
            {"undirected", by_kind[2]},
            {"ko", knockouts},
            {"aliases.tsv", aliases},
            {"import.json", import_json(plan, result, version)}};
}

}  // namespace

void write_import(const std::string& folder, const import_plan& plan, const import_result& result,
                  const std::string& version) {
    namespace fs = std::filesystem;
    const fs::path place(folder);
    if (!fs::exists(place / "import.json")) {
        for (const char* name : {"names.txt", "test", "directed", "undirected", "ko"}) {
            if (fs::exists(place / name)) {
                throw unusable_input(folder + ": holds " + name +
                                     ", which no import wrote; choose another folder, or remove it");
            }
        }
    }
    write_whole_files(folder, files_of(plan, result, version));
}
