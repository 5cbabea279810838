#include "export/attributes.hpp"

#include <charconv>

#include <nlohmann/json.hpp>

namespace {

struct protein_tally {
    long as_cause = 0;
    long as_effect = 0;
    long explained_as_cause = 0;
    long explained_as_effect = 0;
    std::vector<std::string> explained_effects;
    std::vector<std::string> lost_effects;
};

std::vector<protein_tally> count_pairs(const results::answer& answer) {
    std::vector<protein_tally> tallies(answer.proteins.size());
    for (const results::pair_row& pair : answer.pairs) {
        protein_tally& cause = tallies[pair.cause];
        protein_tally& effect = tallies[pair.effect];
        ++cause.as_cause;
        ++effect.as_effect;
        const std::string name = utf8_text(answer.proteins[pair.effect].name);
        if (pair.status == results::pair_status::explained) {
            ++cause.explained_as_cause;
            ++effect.explained_as_effect;
            cause.explained_effects.push_back(name);
        } else if (pair.status == results::pair_status::lost) {
            cause.lost_effects.push_back(name);
        }
    }
    return tallies;
}

}  // namespace

std::string utf8_text(const std::string& text) {
    const nlohmann::json any_bytes = text;
    const std::string clean = any_bytes.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    return nlohmann::json::parse(clean).get<std::string>();
}

results::named_pair drawn_ends(const results::interaction_row& interaction) {
    return results::open_arc(interaction).value_or(results::named_pair(interaction.first, interaction.second));
}

std::vector<attribute> interaction_attributes(const results::answer& answer,
                                              const results::interaction_row& interaction) {
    const auto [source, target] = drawn_ends(interaction);
    const auto name = [&](std::size_t protein) { return utf8_text(answer.proteins[protein].name); };
    const std::string status = results::word(interaction.status);
    std::vector<attribute> attributes = {
        {"name", name(source) + " (" + status + ") " + name(target)},
        {"interaction", status},
        {"first", name(interaction.first)},
        {"second", name(interaction.second)},
        {"file", std::string(results::word(interaction.file))},
        {"line", interaction.line},
        {"direction", std::string(results::word(interaction.chosen))},
        {"status", status},
        {"is_directed", interaction.chosen != results::direction::none},
        {"is_test", interaction.file == results::interaction_file::test},
        {"pairs", interaction.num_pairs},
    };
    double confidence = 0;
    const std::string& text = interaction.confidence;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), confidence);
    if (error == std::errc() && end == text.data() + text.size()) {
        attributes.push_back({"confidence", confidence});
    }
    if (interaction.regret.min) {
        attributes.push_back({"regret_min", *interaction.regret.min});
    }
    if (interaction.regret.max) {
        attributes.push_back({"regret_max", *interaction.regret.max});
    }
    return attributes;
}

std::vector<std::vector<attribute>> protein_attributes(const results::answer& answer) {
    std::vector<std::vector<attribute>> all;
    const std::vector<protein_tally> tallies = count_pairs(answer);
    for (std::size_t protein = 0; protein < tallies.size(); ++protein) {
        const protein_tally& tally = tallies[protein];
        const results::protein_record& record = answer.proteins[protein];
        std::vector<attribute>& attributes = all.emplace_back();
        attributes = {
            {"name", utf8_text(record.name)},
            {"pairs_as_cause", tally.as_cause},
            {"explained_as_cause", tally.explained_as_cause},
            {"pairs_as_effect", tally.as_effect},
            {"explained_as_effect", tally.explained_as_effect},
            {"explained_effects", tally.explained_effects},
            {"lost_effects", tally.lost_effects},
        };
        if (record.alias != record.name) {
            attributes.push_back({"alias", utf8_text(record.alias)});
        }
    }
    return all;
}
