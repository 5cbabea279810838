#include "fuzz/plain_lp.hpp"

#include <map>
#include <set>
#include <sstream>
#include <vector>

namespace {

using sum = std::map<std::string, double>;

struct labelled_sum {
    std::string label;
    sum terms;
    double limit = solver::infinity;  // what stands behind "<="
};

// The words of each section, by its title. What stands before the first is left out.
std::map<std::string, std::vector<std::string>> sections_of(const std::string& text) {
    const std::set<std::string> titles = {"Maximize", "Subject To", "Bounds", "Binaries", "End"};
    std::map<std::string, std::vector<std::string>> sections;
    std::string title;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        if (titles.contains(line)) {
            title = line;
            sections[title];
            continue;
        }
        std::istringstream words(line);
        for (std::string word; words >> word;) {
            sections[title].push_back(word);
        }
    }
    return sections;
}

bool is_number(const std::string& word) {
    return word.find_first_not_of("0123456789.") == std::string::npos;
}

bool is_name(const std::string& word) {
    return std::string(".0123456789eE").find(word.front()) == std::string::npos &&
           word.find_first_of("\\*+-/:<=>[]^|") == std::string::npos;
}

std::vector<labelled_sum> sums_in(const std::vector<std::string>& words) {
    std::vector<labelled_sum> sums;
    double sign = 1.0;
    double size = 1.0;
    for (std::size_t w = 0; w < words.size(); ++w) {
        const std::string& word = words[w];
        if (word.back() == ':') {
            sums.push_back({.label = word, .terms = {}});
        } else if (word == "<=") {
            sums.back().limit = std::stod(words.at(++w));
        } else if (word == "+" || word == "-") {
            sign = word == "-" ? -1.0 : 1.0;
        } else if (is_number(word)) {
            size = std::stod(word);
        } else {
            sums.back().terms[word] += sign * size;
            sign = size = 1.0;
        }
    }
    return sums;
}

}  // namespace

std::string difference(const solver::model_record& record, const std::string& text) {
    auto sections = sections_of(text);
    if (!text.ends_with("\nEnd\n") || !sections["End"].empty()) {
        return "the end";
    }
    // Columns by their bounds, which stand in order: 0 <= NAME <= 1.
    const std::vector<std::string>& bounds = sections["Bounds"];
    std::vector<std::string> names;
    for (std::size_t w = 0; w + 4 < bounds.size(); w += 5) {
        if (bounds[w] != "0" || bounds[w + 1] != "<=" || bounds[w + 3] != "<=" || bounds[w + 4] != "1" ||
            !is_name(bounds[w + 2])) {
            return "the bounds of " + bounds[w + 2];
        }
        names.push_back(bounds[w + 2]);
    }
    const auto num_columns = static_cast<std::size_t>(record.num_columns());
    if (bounds.size() != 5 * num_columns || std::set<std::string>(names.begin(), names.end()).size() != num_columns) {
        return "the columns";
    }

    const std::vector<labelled_sum> rows = sums_in(sections["Subject To"]);
    if (rows.size() != static_cast<std::size_t>(record.num_rows())) {
        return "the number of rows";
    }
    std::set<std::string> labels;
    std::set<std::string> in_rows;
    for (std::size_t r = 0; r < rows.size(); ++r) {
        sum expected;
        for (std::size_t t = record.row_start[r]; t < record.row_start[r + 1]; ++t) {
            expected[names[static_cast<std::size_t>(record.row_column[t])]] += record.row_value[t];
            in_rows.insert(names[static_cast<std::size_t>(record.row_column[t])]);
        }
        if (rows[r].terms != expected || rows[r].limit != record.row_upper[r] ||
            record.row_lower[r] != -solver::infinity || !labels.insert(rows[r].label).second) {
            return "row " + rows[r].label;
        }
    }

    sum objective;
    std::vector<std::string> binaries;
    for (std::size_t c = 0; c < num_columns; ++c) {
        if (record.column_objective[c] != 0.0 || !in_rows.contains(names[c])) {
            objective[names[c]] = record.column_objective[c];
        }
        if (record.column_integral[c] != 0) {
            binaries.push_back(names[c]);
        }
    }
    const std::vector<labelled_sum> objectives = sums_in(sections["Maximize"]);
    if (objectives.size() != 1 || objectives[0].label != "obj:" || objectives[0].terms != objective) {
        return "the objective";
    }
    return sections["Binaries"] == binaries ? "" : "the binary columns";
}
