#include "answer/answer_rows.hpp"

#include <algorithm>
#include <cmath>
#include <map>
#include <stdexcept>

#include "answer/shortest_paths.hpp"

namespace {

using solver::regret_report;

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

class row_maker {
 public:
    row_maker(const network_record& network, const IloCplex& cplex, const std::optional<regret_report>& regrets)
        : network_(network), cplex_(cplex), regrets_(regrets) {
        bound_ = proven_bound(cplex);
        gap_ = bound_ - std::lround(cplex.getObjValue());
    }

    answer_rows make() {
        add_interactions();
        add_pairs();
        return std::move(rows_);
    }

 private:
    bool is_chosen(const IloNumVar& variable) const { return !variable.empty() && cplex_.getValue(variable) > 0.5; }

    void add_interactions() {
        for (const interaction& item : network_.interactions) {
            interaction_row row;
            row.first = network_.names[at(item.first)];
            row.second = network_.names[at(item.second)];
            row.file = item.file;
            row.line = item.line;
            row.confidence = item.confidence;
            const bool forward = is_chosen(item.forward);
            if (item.file == interaction_file::directed) {
                row.direction = found_direction::known;
                row.status = interaction_status::known;
            } else if (forward || is_chosen(item.backward)) {
                row.direction = forward ? found_direction::first_to_second : found_direction::second_to_first;
                row.status = interaction_status::open;
                if (regrets_) {
                    row.regret = regrets_->regret[at(cplex_.column_of(forward ? item.forward : item.backward))];
                }
            }
            chosen_.push_back(row.direction == found_direction::first_to_second   ? 0
                              : row.direction == found_direction::second_to_first ? 1
                                                                                  : -1);
            strength_.push_back(row.regret ? row.regret->lower : 0);
            rows_.interactions.push_back(std::move(row));
        }
    }

    void add_pairs() {
        compact_ = make_compact_network(network_, chosen_);
        component_ = components(compact_);
        shortest_paths paths(compact_, strength_);
        std::map<int, std::vector<int>> lines_of_cause;
        rows_.pairs.resize(network_.knockouts.size());
        for (std::size_t i = 0; i < network_.knockouts.size(); ++i) {
            const knockout_line& line = network_.knockouts[i];
            rows_.pairs[i].cause = line.cause;
            rows_.pairs[i].effect = line.effect;
            rows_.pairs[i].line = line.line;
            if (line.cause_vertex >= 0 && line.effect_vertex >= 0) {
                lines_of_cause[line.cause_vertex].push_back(static_cast<int>(i));
            }
        }
        std::vector<long> counts(network_.interactions.size(), 0);
        for (const auto& [cause, lines] : lines_of_cause) {
            std::map<int, long> explained;  // effects, with the number of their lines
            std::vector<int> effects;
            for (const int line : lines) {
                effects.push_back(network_.knockouts[at(line)].effect_vertex);
            }
            paths.search(cause, effects);
            for (const int line : lines) {
                fill_pair(network_.knockouts[at(line)], paths, rows_.pairs[at(line)]);
                if (rows_.pairs[at(line)].status == pair_status::explained) {
                    ++explained[network_.knockouts[at(line)].effect_vertex];
                }
            }
            for (const auto& [effect, multiplicity] : explained) {
                paths.count_open_interactions(effect, multiplicity, counts);
            }
        }
        for (std::size_t i = 0; i < counts.size(); ++i) {
            rows_.interactions[i].pairs = counts[i];
            settle_status(rows_.interactions[i]);
        }
    }

    // What closing it can cost at most: the pairs that use it, and what the value may lack.
    void settle_status(interaction_row& row) const {
        if (!row.regret) {
            return;
        }
        row.regret->upper = std::max(row.regret->lower, std::min(row.regret->upper, row.pairs + gap_));
        if (row.regret->lower >= 1) {
            row.status = interaction_status::decided;
        } else if (row.regret->upper == 0) {
            row.status = interaction_status::tied;
        }
    }

    void fill_pair(const knockout_line& line, const shortest_paths& paths, pair_row& row) {
        if (line.cause_vertex == line.effect_vertex) {
            row.status = pair_status::same_protein;
            return;
        }
        row.distance = paths.distance(line.effect_vertex);
        if ((row.distance < 0) != (line.pair < 0)) {
            throw std::logic_error("the model and the network differ on the path of " + row.cause + " " + row.effect);
        }
        if (line.pair < 0) {
            row.status = pair_status::unreachable;
            row.why = why_unreachable(line);
            return;
        }
        row.paths = paths.paths(line.effect_vertex);
        row.open_paths = paths.open_paths(line.effect_vertex);
        const IloNumVar& variable = pairs[at(line.pair)].pair_var;
        const bool explained = cplex_.getValue(variable) > 0.5;
        if (explained != (row.open_paths > 0)) {
            throw std::logic_error("a recount of open paths differs from the answer on " + row.cause + " " +
                                   row.effect);
        }
        row.status = explained ? pair_status::explained : pair_status::lost;
        if (explained) {
            for (const int vertex : paths.widest_path(line.effect_vertex)) {
                row.path.push_back(network_.names[at(vertex)]);
            }
        } else if (regrets_) {
            fill_price(at(cplex_.column_of(variable)), row);
        }
    }

    // At least this pair can always be had.
    void fill_price(std::size_t column, pair_row& row) {
        row.price = regrets_->price[column];
        row.price->upper = std::max(row.price->lower, std::min(row.price->upper, bound_ - 1));
        for (const int given_up : regrets_->against[column]) {
            if (row.against.pairs.size() == most_pairs_against) {
                ++row.against.more;
            } else {
                row.against.pairs.push_back(names_of_pair(given_up));
            }
        }
    }

    std::pair<std::string, std::string> names_of_pair(int column) {
        if (pair_of_column_.empty()) {
            for (std::size_t i = 0; i < pairs.size(); ++i) {
                pair_of_column_[cplex_.column_of(pairs[i].pair_var)] = &pairs[i];
            }
        }
        const pair_data& pair = *pair_of_column_.at(column);
        return {boost::get(names_map, pair.pair_source), boost::get(names_map, pair.pair_target)};
    }

    std::string why_unreachable(const knockout_line& line) const {
        const std::size_t cause = at(line.cause_vertex);
        const std::size_t effect = at(line.effect_vertex);
        return compact_.out_start[cause] == compact_.out_start[cause + 1]   ? "no_outgoing"
               : compact_.in_start[effect] == compact_.in_start[effect + 1] ? "no_entering"
               : component_[cause] != component_[effect]                    ? "different_components"
                                                                            : "no_directed_path";
    }

    const network_record& network_;
    const IloCplex& cplex_;
    const std::optional<regret_report>& regrets_;
    long bound_ = 0;
    long gap_ = 0;  // by which the value may fall short of the optimum
    std::vector<signed char> chosen_;
    std::vector<long> strength_;
    compact_network compact_;
    std::vector<int> component_;
    std::map<int, const pair_data*> pair_of_column_;
    answer_rows rows_;
};

}  // namespace

answer_rows make_rows(const network_record& network, const IloCplex& cplex,
                      const std::optional<regret_report>& regrets) {
    return row_maker(network, cplex, regrets).make();
}

long proven_bound(const IloCplex& cplex) {
    return std::lround(std::floor(std::min(cplex.answer().bound, static_cast<double>(pairs.size())) + 1e-6));
}
