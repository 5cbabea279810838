#include "solver/regret/find_regrets.hpp"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cmath>
#include <future>
#include <mutex>
#include <utility>

#include "solver/reduce/reduce.hpp"
#include "solver/regret/condition_prover.hpp"
#include "solver/regret/fewest_turns.hpp"
#include "solver/structure/index.hpp"

namespace solver {
namespace {

constexpr double tolerance = 1e-6;  // of sums that should be whole

// Every pair has its whole network: nothing is decided but what has no opposite.
constexpr settle_steps nothing_decided = {.force_choices = false, .take_majorities = false, .drop_worthless = false};

long whole(double bound) {
    return std::lround(std::floor(bound + tolerance));
}

class regret_finder {
 public:
    regret_finder(const reach_structure& structure, settled_problem undecided, const solve_answer& answer,
                  const regret_options& options, const solve_watch& watch)
        : structure_(structure),
          values_(answer.values),
          options_(options),
          watch_{watch.stop_requested, [](const auto&) {}},
          undecided_(std::move(undecided)),
          problem_(undecided_.contested),
          state_(problem_),
          bound_(whole(answer.bound - structure.objective_constant) - undecided_.satisfied_weight),
          turned_(problem_.choices.size()) {}

    regret_report run() {
        read_answer();
        find_first_weights();
        root_ = find_root_prices(problem_, answer_, watch_);
        if (root_.bound != infinity) {
            use_root_bounds();
            ask_all();
        }
        return tell();
    }

 private:
    // Choices of no use get a direction too: open arcs that nothing needs do no harm.
    void read_answer() {
        const directions chosen = directions_of(structure_, values_);
        for (const int choice : problem_.choices) {
            answer_.push_back(std::max<signed char>(chosen[at(choice)], 0));
        }
        state_.set(answer_);
        value_ = state_.weight();
        for (int choice = 0; choice < problem_.num_choices(); ++choice) {
            if (chosen[at(problem_.choices[at(choice)])] >= 0) {
                chosen_.push_back(choice);
            }
        }
        node_of_pair_.assign(problem_.pairs.size(), -1);
        for (int node = 0; node < problem_.shared.num_nodes(); ++node) {
            const int pair = problem_.shared.nodes[at(node)].pair;
            if (pair >= 0) {
                node_of_pair_[at(pair)] = node;
            }
        }
        is_lost_.assign(problem_.pairs.size(), 0);
        for (int demand = 0; demand < structure_.num_demands(); ++demand) {
            const int pair = undecided_.pair_of[at(demand)];
            if (pair >= 0 && is_lost_[at(pair)] == 0 && is_lost(demand)) {
                is_lost_[at(pair)] = 1;
                lost_.push_back(pair);
            }
        }
    }

    bool is_lost(int demand) const { return values_[at(structure_.demand_column[at(demand)])] < 0.5; }

    // What each choice turned by itself leaves, and for each lost pair a chain opened.
    void find_first_weights() {
        for (int choice = 0; choice < problem_.num_choices(); ++choice) {
            state_.turn({choice}, 0);
            turned_[at(choice)] = state_.weight();
            state_.turn({choice}, 0);
        }
        turned_bound_.assign(problem_.choices.size(), bound_);
        satisfied_.resize(problem_.pairs.size());
        for (const int pair : lost_) {
            best_under_condition& best = satisfied_[at(pair)];
            best.bound = bound_;
            const std::vector<int> turned = fewest_turns(problem_.pairs[at(pair)], state_);
            state_.turn(turned, 0);
            if (state_.reached(node_of_pair_[at(pair)])) {
                best.weight = state_.weight();
                best.turned = turned;
            }
            state_.turn(turned, 0);
        }
    }

    // What the program of all pairs proves by itself.
    void use_root_bounds() {
        bound_ = std::min(bound_, whole(root_.bound));
        for (int choice = 0; choice < problem_.num_choices(); ++choice) {
            const double reduced = root_.reduced[at(choice)];
            const bool prefers_answer = reduced != 0.0 && (reduced > 0.0) == (answer_[at(choice)] == 0);
            turned_bound_[at(choice)] =
                std::min(bound_, whole(root_.bound - (prefers_answer ? std::abs(reduced) : 0.0)));
        }
    }

    void ask_all() {
        std::vector<std::future<void>> others;
        for (int job = 1; job < options_.jobs; ++job) {
            others.push_back(std::async(std::launch::async, [this] { ask_some(); }));
        }
        ask_some();
        for (std::future<void>& other : others) {
            other.get();
        }
    }

    // Takes one question after another, until none is left.
    void ask_some() {
        const bool is_proven = value_ >= bound_;
        condition_prover prover({problem_, root_, answer_, node_of_pair_, is_proven}, turned_, watch_);
        const std::size_t all = chosen_.size() + lost_.size();
        for (std::size_t next = next_++; next < all && !watch_.stop_requested(); next = next_++) {
            if (next < chosen_.size()) {
                ask_turned(prover, chosen_[next]);
            } else {
                best_under_condition& best = satisfied_[at(lost_[next - chosen_.size()])];
                best = prover.satisfy(lost_[next - chosen_.size()], best);
            }
            const std::lock_guard lock(mutex_);
            options_.report(++num_settled_, static_cast<int>(all));
        }
    }

    void ask_turned(condition_prover& prover, int choice) {
        if (turned_[at(choice)] < turned_bound_[at(choice)]) {
            turned_bound_[at(choice)] = std::min(turned_bound_[at(choice)], prover.turn(choice).bound);
        }
    }

    // By column, 1 for the demands that need no choice at all.
    std::vector<double> without_choices() const {
        directions lone(at(structure_.num_choices()), -1);
        for (int gate = 0; gate < 2 * structure_.num_choices(); ++gate) {
            if (structure_.gate_column[at(gate)] >= 0 && structure_.gate_column[at(gate ^ 1)] < 0) {
                lone[at(gate / 2)] = static_cast<signed char>(gate % 2);
            }
        }
        return values_of(structure_, lone, static_cast<int>(values_.size()));
    }

    regret_report tell() {
        regret_report made;
        made.regret.resize(values_.size());
        made.price.resize(values_.size());
        made.against.resize(values_.size());
        long best = value_;
        for (const std::atomic<long>& weight : turned_) {
            best = std::max(best, weight.load());
        }
        const std::vector<long> users = weight_of_users();
        for (const int choice : chosen_) {
            const int gate = 2 * choice + answer_[at(choice)];
            const long lower = std::max(0L, best - turned_bound_[at(choice)]);
            const long upper = std::min(bound_ - turned_[at(choice)], users[at(gate)]);
            made.regret[column_of(gate)] = {lower, upper};
        }
        const std::vector<double> sure = without_choices();
        for (int demand = 0; demand < structure_.num_demands(); ++demand) {
            const std::size_t column = at(structure_.demand_column[at(demand)]);
            if (is_lost(demand) && sure[column] == 0.0) {
                tell_price(undecided_.pair_of[at(demand)], best, made.price[column], made.against[column]);
            }
        }
        return made;
    }

    std::size_t column_of(int gate) const {
        return at(structure_.gate_column[at(2 * problem_.choices[at(gate / 2)] + gate % 2)]);
    }

    // By gate: of the pairs that can use it, which is more than it can be worth.
    std::vector<long> weight_of_users() const {
        std::vector<long> weight(2 * problem_.choices.size(), 0);
        std::vector<const pair_net*> last(weight.size(), nullptr);
        for (const pair_net& net : problem_.pairs) {
            for (const net_arc& arc : net.arcs) {
                if (arc.gate != open_gate && std::exchange(last[at(arc.gate)], &net) != &net) {
                    weight[at(arc.gate)] += net.weight;
                }
            }
        }
        return weight;
    }

    void tell_price(int pair, long best, proven_range& price, std::vector<int>& against) {
        if (pair < 0 || satisfied_[at(pair)].bound < 0) {
            price = {unattainable, unattainable};
            return;
        }
        const best_under_condition& found = satisfied_[at(pair)];
        price = {std::max(0L, best - found.bound), unattainable};
        if (found.weight < 0) {
            return;
        }
        price.upper = bound_ - found.weight;
        state_.turn(found.turned, 0);
        for (int demand = 0; demand < structure_.num_demands(); ++demand) {
            const int other = undecided_.pair_of[at(demand)];
            if (other >= 0 && !is_lost(demand) && !state_.reached(node_of_pair_[at(other)])) {
                against.push_back(structure_.demand_column[at(demand)]);
            }
        }
        state_.turn(found.turned, 0);
        std::sort(against.begin(), against.end());
    }

    const reach_structure& structure_;
    const std::vector<double>& values_;
    const regret_options& options_;
    const solve_watch watch_;
    const settled_problem undecided_;
    const contested_problem& problem_;
    shared_state state_;  // at the answer
    directions answer_;
    long value_ = 0;                 // of the answer
    long bound_;                     // on all directions
    std::vector<int> node_of_pair_;  // one of them
    std::vector<char> is_lost_;      // by pair

    // What is asked about, and what is known of it.
    std::vector<int> chosen_;  // choices that have a direction in the answer
    std::vector<int> lost_;    // pairs
    turned_weights turned_;
    std::vector<long> turned_bound_;               // by choice: on directions with it turned
    std::vector<best_under_condition> satisfied_;  // by pair

    root_prices root_;
    std::atomic<std::size_t> next_ = 0;
    std::mutex mutex_;  // for the count
    int num_settled_ = 0;
};

// Of a problem that was too large even for the first weights.
regret_report nothing_known(const reach_structure& structure, const solve_answer& answer) {
    regret_report made;
    made.regret.resize(answer.values.size());
    made.price.resize(answer.values.size());
    made.against.resize(answer.values.size());
    for (std::size_t gate = 0; gate < structure.gate_column.size(); ++gate) {
        const int column = structure.gate_column[gate];
        if (column >= 0 && structure.gate_column[gate ^ 1] >= 0 && answer.values[at(column)] > 0.5) {
            made.regret[at(column)].upper = whole(answer.bound - structure.objective_constant);
        }
    }
    for (const int column : structure.demand_column) {
        if (answer.values[at(column)] < 0.5) {
            made.price[at(column)].upper = unattainable;
        }
    }
    return made;
}

// What is cheap is worth a moment, also to whom has no time.
solve_watch patient(const solve_watch& watch) {
    static constexpr auto moment = std::chrono::milliseconds(250);
    const auto start = std::chrono::steady_clock::now();
    return {[start, &watch] { return watch.stop_requested() && std::chrono::steady_clock::now() - start > moment; },
            [](const auto&) {}};
}

}  // namespace

std::optional<regret_report> find_regrets(const model_record& record, const solve_answer& answer,
                                          const regret_options& options, const solve_watch& watch) {
    const std::optional<reach_structure> structure = find_reach_structure(record);
    if (!structure || answer.values.empty()) {
        return std::nullopt;
    }
    std::optional<settled_problem> undecided = reduce(*structure, nothing_decided, patient(watch));
    if (!undecided) {
        return nothing_known(*structure, answer);
    }
    return regret_finder(*structure, *std::move(undecided), answer, options, watch).run();
}

}  // namespace solver
