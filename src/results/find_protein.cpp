#include <algorithm>

#include "naming/likeness.hpp"
#include "results/read_results.hpp"
#include "tables/unusable_input.hpp"

namespace results {

namespace {

// "; is meant "A" or "B"?", or nothing where no name is alike.
std::string meant_names(const answer& from, const std::string& name) {
    std::vector<std::string> names;
    for (const protein_record& protein : from.proteins) {
        if (protein.is_in_network) {
            names.push_back(protein.name);
        }
    }
    std::string question;
    for (const std::string& meant : name_matcher(names).closest(name, likeness::one_edit).names) {
        question += (question.empty() ? "; is meant \"" : " or \"") + meant + "\"";
    }
    return question.empty() ? question : question + "?";
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
    throw unusable_input("there is no protein \"" + name + "\" in the network" + meant_names(from, name));
}

}  // namespace results
