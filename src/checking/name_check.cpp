#include "checking/name_check.hpp"

#include <algorithm>
#include <cstring>
#include <numeric>

#include "checking/line_hazards.hpp"
#include "input/name_table.hpp"

checked_names::checked_names(const text_file& file, file_check& check, read_network& network) {
    check.opened = file.opened;
    if (!file.opened) {
        check.hazards[hazard::not_opened];
        network.num_searched = -1;
        table_.resize(1);
        return;
    }
    const source_lines lines(file.text);
    check.lines = lines.count();
    find_name_hazards(lines, check);
    for (long number = 1; number <= lines.count(); ++number) {
        const std::string name(as_c_string(lines.line(number)));
        const bool is_ended = lines.is_ended(number);
        if (lines.line(number).size() > max_name_length) {
            check.dropped[drop_reason::name_too_long].push_back(number);
            if (!is_ended) {
                network.proteins.emplace_back();
            }
            continue;
        }
        network.proteins.push_back(name);
        if (!is_ended) {
            check.dropped[drop_reason::no_line_feed].push_back(number);
        }
        if (!lines_.emplace(name, number).second) {
            check.hazards[hazard::repeated_name].push_back(number);
        }
    }
    // A last line that is ended has one more read behind it, of an empty name.
    if (lines.count() == 0 || lines.is_ended(lines.count())) {
        network.proteins.emplace_back();
    }
    fits_ = network.proteins.size() <= MAX_PROTEIN_ID;
    if (!fits_) {
        check.hazards[hazard::too_many_proteins];
        check.dropped.clear();
        check.dropped[drop_reason::not_read].resize(static_cast<std::size_t>(check.lines));
        std::iota(check.dropped[drop_reason::not_read].begin(), check.dropped[drop_reason::not_read].end(), 1);
        return;
    }
    make_table(network);
    network.num_searched = num_searched_;
    check.taken = num_searched_;
    if (num_searched_ == 2 || num_searched_ == 3) {
        check.hazards[hazard::first_name_missed];
    }
}

void checked_names::make_table(const read_network& network) {
    num_searched_ = static_cast<int>(network.proteins.size()) - 1;
    protein_at_.resize(network.proteins.size());
    std::iota(protein_at_.begin(), protein_at_.end(), 0);
    std::stable_sort(protein_at_.begin(), protein_at_.end() - 1, [&](int left, int right) {
        return network.proteins[static_cast<std::size_t>(left)] < network.proteins[static_cast<std::size_t>(right)];
    });
    table_.resize(network.proteins.size());
    for (std::size_t i = 0; i < table_.size(); ++i) {
        const std::string& name = network.proteins[static_cast<std::size_t>(protein_at_[i])];
        table_[i].name = std::make_unique<char[]>(max_name_length + 1);
        name.copy(table_[i].name.get(), max_name_length);
    }
}

int checked_names::find(const std::string& name) {
    const auto [place, is_new] = found_.emplace(name, -1);
    if (is_new) {
        int position = 0;
        if (find_name(table_.data(), name.c_str(), num_searched_, &position)) {
            place->second = protein_at_[static_cast<std::size_t>(position)];
        }
    }
    return place->second;
}

long checked_names::line_of(const std::string& name) const {
    const auto found = lines_.find(name);
    return found == lines_.end() ? 0 : found->second;
}
