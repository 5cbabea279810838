#include "answer/check_tables.hpp"

#include <algorithm>
#include <fstream>
#include <limits>
#include <map>
#include <set>

#include <nlohmann/json.hpp>

#include "tables/name_lists.hpp"
#include "tables/read_table.hpp"

namespace {

constexpr long without_limit = std::numeric_limits<long>::max();

struct drawn_arc {
    int end = 0;  // the other one
    bool open = false;
    long strength = without_limit;  // regret_min of the direction chosen
    std::size_t row = 0;
};

using arc_lists = std::vector<std::vector<drawn_arc>>;  // by vertex
using distances = std::vector<int>;                     // by vertex, -1 = out of reach

class checker {
 public:
    explicit checker(const std::string& folder)
        : interactions_(read_table(folder + "/interactions.tsv")),
          pairs_(read_table(folder + "/pairs.tsv")),
          run_(nlohmann::json::parse(std::ifstream(folder + "/run.json"))) {}

    checked_tables check() {
        made_.interactions = static_cast<long>(interactions_.rows.size());
        made_.pairs = static_cast<long>(pairs_.rows.size());
        gap_ = run_["bound"].get<long>() - run_["value"].get<long>();
        expect(gap_ >= 0 && (run_["status"] == "Feasible" || gap_ == 0), "the bound is not beside the value");
        read_arcs();
        used_.assign(interactions_.rows.size(), 0);
        for (std::size_t row = 0; row < pairs_.rows.size(); ++row) {
            check_pair(row);
        }
        for (std::size_t row = 0; row < interactions_.rows.size(); ++row) {
            check_interaction(row);
        }
        expect(made_.explained == run_["value"].get<long>(), "explained pairs are not the value");
        check_counts(interactions_, "interactions");
        check_counts(pairs_, "pairs");
        return std::move(made_);
    }

 private:
    void expect(bool holds, const std::string& fault) {
        if (!holds) {
            made_.faults.push_back(fault);
        }
    }

    static std::string cell(const table& from, std::size_t row, const char* column) {
        return from.rows[row][from.column(column)];
    }

    int vertex(const std::string& name) {
        const int number = vertices_.emplace(name, static_cast<int>(vertices_.size())).first->second;
        out_.resize(vertices_.size());
        in_.resize(vertices_.size());
        return number;
    }

    void add_arc(int tail, int head, bool open, long strength, std::size_t row) {
        out_[static_cast<std::size_t>(tail)].push_back({head, open, strength, row});
        in_[static_cast<std::size_t>(head)].push_back({tail, open, strength, row});
    }

    void read_arcs() {
        for (std::size_t row = 0; row < interactions_.rows.size(); ++row) {
            const int first = vertex(cell(interactions_, row, "first"));
            const int second = vertex(cell(interactions_, row, "second"));
            const std::string direction = cell(interactions_, row, "direction");
            const std::string regret = cell(interactions_, row, "regret_min");
            const bool known = direction == "known";
            const long strength = known ? without_limit : regret.empty() ? 0 : std::stol(regret);
            add_arc(first, second, known || direction == "first_to_second", strength, row);
            if (!known) {
                add_arc(second, first, direction == "second_to_first", strength, row);
            }
        }
    }

    template <typename condition>
    static distances search(const arc_lists& lists, int start, const condition& usable) {
        distances found(lists.size(), -1);
        found[static_cast<std::size_t>(start)] = 0;
        std::vector<int> queue = {start};
        for (std::size_t next = 0; next < queue.size(); ++next) {
            for (const drawn_arc& arc : lists[static_cast<std::size_t>(queue[next])]) {
                int& distance = found[static_cast<std::size_t>(arc.end)];
                if (usable(arc) && distance < 0) {
                    distance = found[static_cast<std::size_t>(queue[next])] + 1;
                    queue.push_back(arc.end);
                }
            }
        }
        return found;
    }

    // Counted back from the effect, as a number that may lose precision but not size.
    double count_paths(int to, bool open_only, std::map<int, double>& known) const {
        const int distance = far_[static_cast<std::size_t>(to)];
        if (distance == 0) {
            return 1.0;
        }
        const auto found = known.find(to);
        if (found != known.end()) {
            return found->second;
        }
        double count = 0.0;
        for (const drawn_arc& arc : in_[static_cast<std::size_t>(to)]) {
            if ((arc.open || !open_only) && far_[static_cast<std::size_t>(arc.end)] == distance - 1) {
                count += count_paths(arc.end, open_only, known);
            }
        }
        return known[to] = count;
    }

    static bool is_count(const std::string& shown, double counted) {
        return shown == ">1e15" ? counted > 1e15 : counted <= 1e15 && std::stod(shown) == counted;
    }

    void check_pair(std::size_t row) {
        const std::string cause_name = cell(pairs_, row, "cause");
        const std::string effect_name = cell(pairs_, row, "effect");
        const std::string status = cell(pairs_, row, "status");
        const std::string name = cause_name + " " + effect_name + ": ";
        const bool in_model = status == "explained" || status == "lost";
        for (const char* column : {"distance", "paths", "open_paths"}) {
            expect(cell(pairs_, row, column).empty() != in_model, name + column);
        }
        expect(cell(pairs_, row, "path").empty() == (status != "explained"), name + "path of a pair not explained");
        expect(cell(pairs_, row, "why").empty() == (status != "unreachable"), name + "why");
        expect((cause_name == effect_name) == (status == "same_protein") || status == "unknown_name",
               name + "same protein");
        if (status == "unknown_name") {
            return;
        }
        const int cause = vertex(cause_name);
        const int effect = vertex(effect_name);
        far_ = search(out_, cause, [](const drawn_arc&) { return true; });
        const int distance = far_[static_cast<std::size_t>(effect)];
        expect((distance >= 0) == (in_model || status == "same_protein"), name + "reach");
        if (!in_model) {
            return;
        }
        std::map<int, double> all_counts;
        std::map<int, double> open_counts;
        const double open_paths = count_paths(effect, true, open_counts);
        expect(cell(pairs_, row, "distance") == std::to_string(distance), name + "distance");
        expect(is_count(cell(pairs_, row, "paths"), count_paths(effect, false, all_counts)), name + "paths");
        expect(is_count(cell(pairs_, row, "open_paths"), open_paths), name + "open paths");
        expect((open_paths > 0) == (status == "explained"), name + "explained without an open path, or lost with one");
        if (status == "explained") {
            ++made_.explained;
            check_path(name, cause, effect, read_path_cell(cell(pairs_, row, "path")));
            count_uses(cause, effect, distance);
        } else {
            check_price(name, row);
        }
    }

    void check_path(const std::string& name, int cause, int effect, const std::vector<std::string>& path) {
        const int distance = far_[static_cast<std::size_t>(effect)];
        expect(!path.empty() && vertex(path.front()) == cause && vertex(path.back()) == effect, name + "its ends");
        expect(static_cast<int>(path.size()) == distance + 1, name + "the path is not shortest");
        long weakest = without_limit;
        for (std::size_t i = 0; i + 1 < path.size(); ++i) {
            const int next = vertex(path[i + 1]);
            const auto& arcs = out_[static_cast<std::size_t>(vertex(path[i]))];
            const auto arc = std::find_if(arcs.begin(), arcs.end(),
                                          [&](const drawn_arc& other) { return other.open && other.end == next; });
            expect(arc != arcs.end(), name + path[i] + " " + path[i + 1] + " is not open");
            weakest = std::min(weakest, arc == arcs.end() ? 0 : arc->strength);
        }
        if (weakest < without_limit) {
            const distances stronger =
                search(out_, cause, [&](const drawn_arc& arc) { return arc.open && arc.strength > weakest; });
            expect(stronger[static_cast<std::size_t>(effect)] != distance, name + "another path is stronger");
        }
    }

    void count_uses(int cause, int effect, int distance) {
        const auto is_open = [](const drawn_arc& arc) { return arc.open; };
        const distances from = search(out_, cause, is_open);
        const distances back = search(in_, effect, is_open);
        for (std::size_t v = 0; v < out_.size(); ++v) {
            for (const drawn_arc& arc : out_[v]) {
                const int rest = back[static_cast<std::size_t>(arc.end)];
                used_[arc.row] += arc.open && from[v] >= 0 && rest >= 0 && from[v] + 1 + rest == distance ? 1 : 0;
            }
        }
    }

    void check_range(const std::string& name, const std::string& lower, const std::string& upper, long most) {
        const bool in_order = std::stol(lower) >= 0 && std::stol(lower) <= std::stol(upper) && std::stol(upper) <= most;
        expect(in_order, name + "range " + lower + " to " + upper + ", at most " + std::to_string(most));
        made_.unproven += lower != upper ? 1 : 0;
    }

    void check_price(const std::string& name, std::size_t row) {
        const pair_list against = read_pair_list_cell(cell(pairs_, row, "against"));
        for (const auto& given_up : against.pairs) {
            expect(explained_pairs().contains(given_up), name + "gives up a pair that is not explained");
        }
        const std::string lower = cell(pairs_, row, "price_min");
        const std::string upper = cell(pairs_, row, "price_max");
        expect(lower.empty() != run_["regrets"].get<bool>(), name + "price");
        if (!lower.empty()) {
            check_range(name, lower, upper, run_["bound"].get<long>() - 1);
            const long given_up = static_cast<long>(against.pairs.size()) + against.more;
            expect(gap_ > 0 || lower != upper || given_up > std::stol(lower), name + "gives up less than it costs");
        }
    }

    void check_interaction(std::size_t row) {
        const std::string name = cell(interactions_, row, "first") + " " + cell(interactions_, row, "second") + ": ";
        const std::string status = cell(interactions_, row, "status");
        const std::string direction = cell(interactions_, row, "direction");
        const long uses = std::stol(cell(interactions_, row, "pairs"));
        expect(uses == used_[row], name + "pairs");
        expect((direction == "known") == (status == "known"), name + "known");
        expect((direction == "none") == (status == "unused"), name + "unused");
        expect(direction == "known" || (uses > 0) == (direction != "none"), name + "directed, but of no use");
        const std::string lower = cell(interactions_, row, "regret_min");
        const std::string upper = cell(interactions_, row, "regret_max");
        const bool has_direction = status != "known" && status != "unused";
        expect(lower.empty() != (run_["regrets"].get<bool>() && has_direction), name + "regret");
        if (lower.empty()) {
            expect(!has_direction || status == "open", name + "status");
            return;
        }
        check_range(name, lower, upper, uses + gap_);
        expect(std::stol(lower) <= uses, name + "regret above the pairs");
        expect(status == (lower != "0" ? "decided" : upper == "0" ? "tied" : "open"), name + "status by regret");
    }

    void check_counts(const table& from, const char* what) {
        std::map<std::string, long> counts = {{"all", static_cast<long>(from.rows.size())}};
        for (std::size_t row = 0; row < from.rows.size(); ++row) {
            ++counts[cell(from, row, "status")];
        }
        for (const auto& [status, count] : run_[what].items()) {
            expect(counts[status] == count.get<long>(), std::string(what) + " " + status);
        }
    }

    const std::set<std::pair<std::string, std::string>>& explained_pairs() {
        for (std::size_t row = 0; row < pairs_.rows.size() && !explained_are_read_; ++row) {
            if (cell(pairs_, row, "status") == "explained") {
                explained_.emplace(cell(pairs_, row, "cause"), cell(pairs_, row, "effect"));
            }
        }
        explained_are_read_ = true;
        return explained_;
    }

    const table interactions_;
    const table pairs_;
    const nlohmann::json run_;
    long gap_ = 0;
    std::map<std::string, int> vertices_;
    arc_lists out_;
    arc_lists in_;
    distances far_;           // from the cause in hand, over all arcs
    std::vector<long> used_;  // by row of interactions
    std::set<std::pair<std::string, std::string>> explained_;
    bool explained_are_read_ = false;
    checked_tables made_;
};

}  // namespace

checked_tables check_tables(const std::string& folder) {
    return checker(folder).check();
}
