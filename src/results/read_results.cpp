#include "results/read_results.hpp"

#include <algorithm>
#include <charconv>
#include <filesystem>
#include <fstream>
#include <unordered_map>

#include "results/words.hpp"
#include "tables/name_lists.hpp"
#include "tables/read_table.hpp"
#include "tables/unusable_input.hpp"

namespace results {

namespace {

// The cells of one row, asked for by column name and turned into values.
class row_reader {
 public:
    explicit row_reader(const table& rows) : from(rows) {}

    bool next() { return ++row < static_cast<long>(from.rows.size()); }

    const std::string& text(const std::string& column) {
        // Rows ask for the same columns in the same order, so the next one is a guess.
        if (position + 1 < from.header.size() && from.header[position + 1] == column) {
            ++position;
        } else {
            position = from.column(column);
        }
        return from.rows[static_cast<std::size_t>(row)][position];
    }

    std::optional<long> number(const std::string& column) {
        const std::string& cell = text(column);
        return cell.empty() ? std::nullopt : std::optional(to_number(cell, column));
    }

    long count(const std::string& column) { return to_number(text(column), column); }

    value_range range(const std::string& name) {
        const std::optional<long> min = number(name + "_min");
        return {.min = min, .max = number(name + "_max")};
    }

    template <class value, std::size_t size>
    value choice(const std::string& column, const std::array<const char*, size>& words) {
        const std::string& cell = text(column);
        const auto found = std::find(words.begin(), words.end(), cell);
        if (found == words.end()) {
            fail("\"" + cell + "\" is no " + column);
        }
        return static_cast<value>(found - words.begin());
    }

    long to_number(const std::string& cell, const std::string& column) const {
        long value = 0;
        const char* end = cell.data() + cell.size();
        const auto [stopped, error] = std::from_chars(cell.data(), end, value);
        if (error != std::errc() || stopped != end || value < 0) {
            fail("\"" + cell + "\" is no number of column " + column);
        }
        return value;
    }

    [[noreturn]] void fail(const std::string& reason) const {
        throw unusable_input(from.path + ":" + std::to_string(row + 2) + ": " + reason);
    }

 private:
    const table& from;
    long row = -1;
    std::size_t position = 0;
};

// Gives proteins their numbers, and the names that the user's own files have.
class protein_numbers {
 public:
    protein_numbers(const std::string& folder, answer& numbered) : whole(numbered) {
        const std::string path = path_in(folder, "aliases.tsv");
        if (std::filesystem::exists(path)) {
            const table aliases = read_table(path);
            const std::size_t alias = aliases.column("alias");
            const std::size_t name = aliases.column("name");
            for (const std::vector<std::string>& row : aliases.rows) {
                shown[row[alias]] = row[name];
            }
        }
    }

    std::size_t operator()(const std::string& name) {
        const auto [found, is_new] = numbers.try_emplace(name, whole.proteins.size());
        if (is_new) {
            const auto original = shown.find(name);
            whole.proteins.push_back({.name = original == shown.end() ? name : original->second, .alias = name});
        }
        return found->second;
    }

 private:
    answer& whole;
    std::unordered_map<std::string, std::size_t> numbers;
    std::unordered_map<std::string, std::string> shown;
};

void read_interactions(const std::string& path, protein_numbers& number, answer& whole) {
    const table rows = read_table(path);
    for (row_reader row(rows); row.next();) {
        interaction_row& interaction = whole.interactions.emplace_back();
        interaction.first = number(row.text("first"));
        interaction.second = number(row.text("second"));
        interaction.file = row.choice<interaction_file>("file", file_words);
        interaction.line = row.count("line");
        interaction.confidence = row.text("confidence");
        interaction.chosen = row.choice<direction>("direction", direction_words);
        interaction.num_pairs = row.count("pairs");
        interaction.regret = row.range("regret");
        interaction.status = row.choice<interaction_status>("status", interaction_status_words);
    }
}

void read_pairs(const std::string& path, protein_numbers& number, answer& whole) {
    const table rows = read_table(path);
    for (row_reader row(rows); row.next();) {
        pair_row& pair = whole.pairs.emplace_back();
        pair.cause = number(row.text("cause"));
        pair.effect = number(row.text("effect"));
        pair.line = row.count("line");
        pair.status = row.choice<pair_status>("status", pair_status_words);
        pair.why = row.text("why");
        pair.distance = row.number("distance");
        pair.num_paths = row.text("paths");
        pair.num_open_paths = row.text("open_paths");
        for (const std::string& name : read_path_cell(row.text("path"))) {
            pair.path.push_back(number(name));
        }
        pair.price = row.range("price");
        const pair_list against = read_pair_list_cell(row.text("against"));
        for (const auto& [cause, effect] : against.pairs) {
            const std::size_t cause_number = number(cause);
            pair.against.emplace_back(cause_number, number(effect));
        }
        pair.more_against = against.more;
    }
}

void mark_network(answer& whole) {
    for (const interaction_row& interaction : whole.interactions) {
        whole.proteins[interaction.first].is_in_network = true;
        whole.proteins[interaction.second].is_in_network = true;
    }
    for (const pair_row& pair : whole.pairs) {
        if (pair.status != pair_status::unknown_name) {
            whole.proteins[pair.cause].is_in_network = true;
            whole.proteins[pair.effect].is_in_network = true;
        }
    }
}

}  // namespace

std::string path_in(const std::string& folder, const std::string& file) {
    return folder.ends_with('/') || folder.empty() ? folder + file : folder + "/" + file;
}

nlohmann::ordered_json read_json(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    if (!file.good()) {
        return nullptr;
    }
    try {
        return nlohmann::ordered_json::parse(file);
    } catch (const nlohmann::json::parse_error& error) {
        throw unusable_input(path + ": is no JSON: " + error.what());
    }
}

answer read_answer(const std::string& folder) {
    answer whole;
    protein_numbers number(folder, whole);
    read_interactions(path_in(folder, "interactions.tsv"), number, whole);
    read_pairs(path_in(folder, "pairs.tsv"), number, whole);
    mark_network(whole);
    return whole;
}

}  // namespace results
