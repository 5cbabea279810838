#include "checking/check_input.hpp"

#include <unordered_set>

#include "checking/pair_file_check.hpp"

namespace {

void find_what_is_meant(const checked_names& names, input_check& check) {
    const name_matcher matcher(check.network.proteins);
    for (unknown_name& unknown : check.unknown_names) {
        unknown.meant = names.line_of(unknown.name) > 0
                            ? name_matcher::match{.how = likeness::same, .names = {unknown.name}}
                            : matcher.closest(unknown.name, likeness::one_edit);
    }
}

std::vector<unmentioned_protein> find_unmentioned(const checked_names& names, const read_network& network) {
    std::unordered_set<std::string> mentioned;
    const auto mention_protein = [&](int protein) {
        mentioned.insert(network.proteins[static_cast<std::size_t>(protein)]);
    };
    for (const read_network::interaction& interaction : network.interactions) {
        mention_protein(interaction.first);
        mention_protein(interaction.second);
    }
    for (const read_network::pair& pair : network.pairs) {
        mention_protein(pair.cause);
        mention_protein(pair.effect);
    }
    std::vector<unmentioned_protein> unmentioned;
    for (int protein = 0; protein < network.num_searched; ++protein) {
        const std::string& name = network.proteins[static_cast<std::size_t>(protein)];
        if (mentioned.insert(name).second) {
            unmentioned.push_back({.name = name, .line = names.line_of(name)});
        }
    }
    return unmentioned;
}

}  // namespace

input_check check_input(const input_opener& open_input, const search_watch& watch) {
    input_check check;
    for (const char* name : {"names.txt", "test", "directed", "undirected", "ko"}) {
        check.files.emplace_back();
        check.files.back().name = name;
    }
    checked_names names(open_input("names.txt"), check.files[0], check.network);
    unknown_mentions unknown;
    pair_file_checker checker(names, check.network, unknown);
    checker.check_interactions(open_input("test"), interaction_kind::test, check.files[1]);
    checker.check_interactions(open_input("directed"), interaction_kind::directed, check.files[2]);
    checker.check_interactions(open_input("undirected"), interaction_kind::undirected, check.files[3]);
    checker.check_knockouts(open_input("ko"), check.files[4]);

    check.unknown_names = std::move(unknown.names);
    find_what_is_meant(names, check);
    if (names.fits()) {
        check.unmentioned = find_unmentioned(names, check.network);
        check.pathless_pairs = find_pathless_pairs(check.network, watch);
        check.repeated_pairs = find_repeated_pairs(check.network);
        check.shared_variables = find_shared_variables(check.network);
    }
    return check;
}
