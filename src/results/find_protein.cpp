#include <algorithm>
#include <cctype>
#include <numeric>

#include "results/read_results.hpp"
#include "tables/unusable_input.hpp"

namespace results {

namespace {

char lower(char c) {
    return static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
}

// Letters to insert, drop or replace to turn one name into the other, case apart.
std::size_t edit_distance(const std::string& left, const std::string& right) {
    std::vector<std::size_t> row(right.size() + 1);
    std::iota(row.begin(), row.end(), 0);
    for (std::size_t i = 0; i < left.size(); ++i) {
        std::size_t diagonal = row[0]++;
        for (std::size_t j = 0; j < right.size(); ++j) {
            const std::size_t replaced = diagonal + (lower(left[i]) == lower(right[j]) ? 0 : 1);
            diagonal = row[j + 1];
            row[j + 1] = std::min({replaced, row[j] + 1, diagonal + 1});
        }
    }
    return row.back();
}

}  // namespace

std::size_t find_protein(const answer& from, const std::string& name) {
    const std::vector<protein_record>& proteins = from.proteins;
    for (const auto member : {&protein_record::name, &protein_record::alias}) {
        const auto found = std::find_if(proteins.begin(), proteins.end(), [&](const protein_record& protein) {
            return protein.*member == name && protein.is_in_network;
        });
        if (found != proteins.end()) {
            return static_cast<std::size_t>(found - proteins.begin());
        }
    }
    const protein_record* nearest = nullptr;
    std::size_t nearest_distance = 3;  // a name further away is another name
    for (const protein_record& protein : proteins) {
        if (protein.is_in_network) {
            const std::size_t distance = edit_distance(name, protein.name);
            if (distance < std::min(nearest_distance, name.size())) {
                nearest = &protein;
                nearest_distance = distance;
            }
        }
    }
    throw unusable_input("there is no protein \"" + name + "\" in the network" +
                         (nearest ? "; the nearest name is \"" + nearest->name + "\"" : std::string()));
}

}  // namespace results
