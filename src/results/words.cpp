#include "results/words.hpp"

namespace results {

const char* word(interaction_file file) {
    return file_words[static_cast<std::size_t>(file)];
}

const char* word(direction chosen) {
    return direction_words[static_cast<std::size_t>(chosen)];
}

const char* word(interaction_status status) {
    return interaction_status_words[static_cast<std::size_t>(status)];
}

const char* word(pair_status status) {
    return pair_status_words[static_cast<std::size_t>(status)];
}

std::optional<std::pair<std::size_t, std::size_t>> open_arc(const interaction_row& interaction) {
    switch (interaction.chosen) {
        case direction::known:
        case direction::first_to_second:
            return std::pair(interaction.first, interaction.second);
        case direction::second_to_first:
            return std::pair(interaction.second, interaction.first);
        case direction::none:
            break;
    }
    return std::nullopt;
}

}  // namespace results
