#include "answer/run_record.hpp"

#include <algorithm>

#include "tables/sha256.hpp"

namespace {

using nlohmann::ordered_json;

// How many rows have each status, in the order of the names.
template <typename row, std::size_t size>
ordered_json counts_json(const std::vector<row>& rows, const std::array<const char*, size>& names) {
    ordered_json counts;
    counts["all"] = rows.size();
    for (std::size_t status = 0; status < size; ++status) {
        counts[names[status]] = std::count_if(
            rows.begin(), rows.end(), [&](const row& item) { return static_cast<std::size_t>(item.status) == status; });
    }
    return counts;
}

ordered_json gap_json(const run_outcome& outcome) {
    if (outcome.bound <= outcome.value) {
        return 0.0;
    }
    return outcome.value == 0
               ? ordered_json()
               : ordered_json(static_cast<double>(outcome.bound - outcome.value) / static_cast<double>(outcome.value));
}

// Each file with its digest and the number of its lines, a last one without line feed too;
// both null for one that is not there.
ordered_json inputs_json(const input_files& input) {
    ordered_json inputs = ordered_json::array();
    for (std::size_t i = 0; i < input.files.size(); ++i) {
        const text_file& file = input.files[i];
        ordered_json entry;
        entry["file"] = input_file_names[i];
        entry["sha256"] = file.opened ? ordered_json(sha256(file.text)) : ordered_json();
        const auto line_feeds = std::count(file.text.begin(), file.text.end(), '\n');
        const bool has_rest = !file.text.empty() && file.text.back() != '\n';
        entry["lines"] = file.opened ? ordered_json(line_feeds + (has_rest ? 1 : 0)) : ordered_json();
        inputs.push_back(entry);
    }
    return inputs;
}

}  // namespace

ordered_json origin_json(const provenance& origin, const input_files& input) {
    ordered_json json;
    json["program"] = "netorient-tools";
    json["version"] = origin.version;
    json["arguments"] = origin.arguments;
    json["started"] = origin.started;
    json["duration_seconds"] = origin.duration;
    json["input"] = input.folder;
    json["inputs"] = inputs_json(input);
    return json;
}

ordered_json run_json(const provenance& origin, const run_outcome& outcome, const input_files& input,
                      const answer_rows& rows) {
    ordered_json json = origin_json(origin, input);
    json["solver"] = outcome.solver;
    // Fixed in the program: searches count their seeds up from here, HiGHS and CPLEX begin with 0.
    json["seeds"] = {{"search", 1}, {"solver", 0}};
    json["status"] = outcome.status;
    json["value"] = outcome.value;
    json["bound"] = outcome.bound;
    json["gap"] = gap_json(outcome);
    json["regrets"] = outcome.has_regrets;
    json["interactions"] = counts_json(rows.interactions, interaction_status_names);
    json["pairs"] = counts_json(rows.pairs, pair_status_names);
    return json;
}

std::string json_text(const ordered_json& json) {
    return json.dump(2, ' ', false, ordered_json::error_handler_t::replace) + "\n";
}
