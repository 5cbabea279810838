#include "solver/structure/contested_search.hpp"

#include <algorithm>
#include <cmath>

#include "solver/structure/branch_and_bound.hpp"
#include "solver/structure/cut_master.hpp"
#include "solver/structure/local_search.hpp"
#include "solver/structure/settle.hpp"

namespace solver {
namespace {

constexpr double whole_tolerance = 1e-6;  // of a value of the linear program
constexpr double cut_tolerance = 1e-4;
constexpr long no_node_limit = 1L << 30;

std::size_t at(int index) {
    return static_cast<std::size_t>(index);
}

class part_search {
 public:
    part_search(const contested_problem& problem, long goal, const known_outside& outside, const solve_watch& watch)
        : problem_(problem),
          goal_(goal),
          outside_(outside),
          watch_(watch),
          state_(problem),
          master_(problem, watch),
          movable_(problem.choices.size(), 1) {}

    contested_answer run() {
        answer_.bound = problem_.total_weight();
        answer_.chosen = state_.chosen();
        answer_.weight = state_.weight();
        cut_rounds();
        if (!done()) {
            anneal_fractional();
        }
        if (!done()) {
            close_on_smaller_problem();
        }
        if (!done()) {
            branch_and_bound(problem_, master_, state_, goal_, no_node_limit, outside_, watch_, answer_);
        }
        return answer_;
    }

 private:
    bool done() const { return answer_.weight >= answer_.bound || answer_.bound < goal_ || watch_.stop_requested(); }

    void keep_if_better() {
        if (state_.weight() > answer_.weight) {
            answer_.weight = state_.weight();
            answer_.chosen = state_.chosen();
        }
    }

    void report(const char* stage) const {
        watch_.report({stage, static_cast<double>(outside_.weight + answer_.weight),
                       static_cast<double>(outside_.bound + answer_.bound)});
    }

    // Solves, rounds and cuts until no cut is broken.
    void cut_rounds() {
        do {
            if (!master_.solve()) {
                return;
            }
            answer_.bound =
                std::min(answer_.bound, static_cast<long>(std::floor(master_.program().bound() + whole_tolerance)));
            round();
            report("cuts");
        } while (!done() && master_.add_broken_cuts(cut_tolerance) > 0);
    }

    void round() {
        directions chosen(problem_.choices.size());
        for (int c = 0; c < problem_.num_choices(); ++c) {
            chosen[at(c)] = master_.choice_value(c) >= 0.5 ? 0 : 1;
        }
        state_.set(chosen);
        keep_if_better();
    }

    void anneal_fractional() {
        long fractional = 0;
        std::vector<char> movable(problem_.choices.size());
        for (int c = 0; c < problem_.num_choices(); ++c) {
            const double value = master_.choice_value(c);
            movable[at(c)] = value > whole_tolerance && value < 1.0 - whole_tolerance ? 1 : 0;
            fractional += movable[at(c)];
        }
        round();
        for (std::uint64_t seed = 1; seed <= 4 && !done(); ++seed) {
            anneal(state_, movable, {500 * fractional, 0.5, 0.1, seed}, answer_.bound, watch_);
            keep_if_better();
            report("local search");
        }
        state_.set(answer_.chosen);
        if (!done()) {
            anneal(state_, movable_, {20L * problem_.num_choices(), 0.2, 0.1, 1}, answer_.bound, watch_);
            keep_if_better();
            report("local search");
        }
    }

    // Fixes what every better answer has in common, and searches the rest.
    void close_on_smaller_problem() {
        std::vector<gate_state> gates(2 * problem_.choices.size(), gate_state::contested);
        int fixed = 0;
        for (int c = 0; c < problem_.num_choices(); ++c) {
            const double preference = master_.program().preference(c);
            if (master_.program().bound() - std::abs(preference) + whole_tolerance <
                static_cast<double>(answer_.weight + 1)) {
                open_and_close(gates, preference > 0.0 ? 2 * c : 2 * c + 1);
                ++fixed;
            }
        }
        if (2 * fixed < problem_.num_choices()) {
            return;
        }
        const settled_problem rest = settle(problem_, gates);
        const long wanted = std::max(goal_, answer_.weight + 1) - rest.satisfied_weight;
        const contested_answer best =
            search_contested(rest.contested, wanted,
                             {outside_.weight + rest.satisfied_weight, outside_.bound + rest.satisfied_weight}, watch_);
        directions chosen = rest.decided;
        for (int c = 0; c < rest.contested.num_choices(); ++c) {
            chosen[at(rest.contested.choices[at(c)])] = best.chosen[at(c)];
        }
        for (int c = 0; c < problem_.num_choices(); ++c) {
            // What nothing uses any more keeps a direction all the same.
            if (chosen[at(c)] < 0) {
                chosen[at(c)] = gates[at(2 * c + 1)] == gate_state::open ? 1 : 0;
            }
        }
        state_.set(chosen);
        keep_if_better();
        answer_.bound = std::min(answer_.bound, std::max(answer_.weight, rest.satisfied_weight + best.bound));
    }

    const contested_problem& problem_;
    const long goal_;
    const known_outside outside_;
    const solve_watch& watch_;
    shared_state state_;
    cut_master master_;
    const std::vector<char> movable_;  // every choice
    contested_answer answer_;
};

}  // namespace

contested_answer search_contested(const contested_problem& problem, long goal, const known_outside& outside,
                                  const solve_watch& watch) {
    contested_answer answer;
    answer.chosen.assign(problem.choices.size(), 0);
    if (problem.choices.empty()) {
        return answer;
    }
    const std::vector<contested_problem> parts = split(problem);
    if (parts.size() == 1) {
        return part_search(parts.front(), goal, outside, watch).run();
    }
    // Parts that are not searched yet count with all their weight in the bound.
    long weight_ahead = problem.total_weight();
    for (const contested_problem& part : parts) {
        weight_ahead -= part.total_weight();
        const contested_answer best =
            part_search(part, 0, {outside.weight + answer.weight, outside.bound + answer.bound + weight_ahead}, watch)
                .run();
        for (int c = 0; c < part.num_choices(); ++c) {
            answer.chosen[at(part.choices[at(c)])] = best.chosen[at(c)];
        }
        answer.weight += best.weight;
        answer.bound += best.bound;
    }
    return answer;
}

}  // namespace solver
