#include "solver/prove/part_search.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <limits>
#include <optional>

#include "solver/bound/chain_bound.hpp"
#include "solver/bound/chain_layout.hpp"
#include "solver/bound/cut_master.hpp"
#include "solver/find/local_search.hpp"
#include "solver/find/value_search.hpp"
#include "solver/prove/branch_and_bound.hpp"
#include "solver/prove/fix_choices.hpp"
#include "solver/prove/known_answer.hpp"
#include "solver/structure/index.hpp"

namespace solver {
namespace {

constexpr double cut_tolerance = 1e-4;
constexpr double loose_cut_tolerance = 0.01;  // of a program solved by a first-order method
constexpr double loose_solve_tolerance = 1e-4;
constexpr long small_gap = 5;  // that branch and bound may close on a problem of any size

// Of the annealing that the program leans on, per choice: fewer where a move may walk a
// long way, through so many arcs of a pair's network.
constexpr double moves_at_first = 5.0;
constexpr double arcs_at_first = 200.0;
constexpr double times_as_many_in_wide = 12.0;

// The tighter bound has come to rest when it moves by less than this share, so often.
constexpr double resting_share = 5e-5;
constexpr int resting_rounds = 3;

// What linear programs cost, in iterations times rows or entries, before the other thread begins.
constexpr double patient_work = 1e8;
// Moves of the search for values that are waited for, if need be: fewer than it makes meanwhile.
constexpr double moves_per_work = 0.01;
constexpr double moves_per_work_in_wide = 0.001;  // there a move takes longer, and an iteration less
constexpr long moves_per_tightening = 200;        // and those below: per choice
constexpr long moves_per_branching = 200;
constexpr long moves_without_cuts = 400;  // when plain cuts have come to their end

class part_search {
 public:
    part_search(const contested_problem& problem, const directions& start, const search_plan& plan,
                const known_outside& outside, const solve_watch& watch)
        : problem_(problem),
          plan_(plan),
          outside_(outside),
          watch_(watch),
          state_(problem),
          master_(problem, watch),
          known_(problem.total_weight(), plan.goal, outside, watch),
          every_choice_(problem.choices.size(), 1),
          is_wide_(static_cast<int>(problem.pairs.size()) >= plan.many_pairs) {
        state_.set(start);
        offer_state();
    }

    contested_answer run() {
        if (known_.done()) {
            return known_.answer();
        }
        anneal_at_first();
        lean();
        known_.report("cuts");
        const bool is_hard = cut_rounds();
        if (!is_hard) {
            anneal_fractional();
            close_on_smaller_problem(master_.program());
        }
        if (!is_hard && (problem_.num_choices() < plan_.hard_choices || known_.gap() <= small_gap)) {
            branch(plan_.first_nodes);
        }
        search_long(is_hard);
        take_last_values();
        return known_.answer();
    }

 private:
    // Solves, rounds and cuts until no cut is broken, or until it shows that this program
    // will not come near: then true.
    bool cut_rounds() {
        double work = 0.0;
        double tolerance = cut_tolerance;
        int rests = 0;
        for (int round = 0;; ++round) {
            if (known_.done() || !master_.solve()) {
                return false;
            }
            const long bound_before = known_.answer().bound;
            known_.lower_bound_to(master_.program().bound());
            try_rounding(master_.program());
            known_.report("cuts");
            work += master_.program().work();
            if (work > patient_work) {
                take_values(
                    std::lround((is_wide_ ? moves_per_work_in_wide : moves_per_work) * master_.program().work()));
            }
            lean();
            if (is_wide_ && tolerance == cut_tolerance && master_.program().work() > plan_.simplex_work) {
                master_.solve_loosely(loose_solve_tolerance);
                tolerance = loose_cut_tolerance;
            }
            const bool is_loose = tolerance != cut_tolerance;
            if (!is_loose && (master_.program().ran_into_limit() || (round > 0 && is_mostly_fractional()))) {
                return !known_.done();
            }
            const double gained = static_cast<double>(bound_before - known_.answer().bound);
            rests = gained < resting_share * static_cast<double>(bound_before) ? rests + 1 : 0;
            if (known_.done() || master_.add_broken_cuts(tolerance) == 0 || (is_loose && rests == resting_rounds)) {
                return is_loose && !known_.done();
            }
        }
    }

    bool is_mostly_fractional() const {
        return problem_.num_choices() >= plan_.hard_choices &&
               static_cast<double>(master_.num_fractional()) > plan_.hard_share * problem_.num_choices();
    }

    void lean() {
        if (known_.weight() > leaning_weight_ && (!is_wide_ || leaning_weight_ < 0)) {
            leaning_weight_ = known_.weight();
            master_.lean_towards(known_.chosen());
        }
    }

    void try_rounding(const row_program& program) {
        state_.set(nearest_directions(program.values(), problem_.num_choices()));
        offer_state();
    }

    void offer_state() { known_.offer(state_.chosen(), state_.weight()); }

    // From where the state stands; every run has a seed of its own.
    void anneal_choices(const std::vector<char>& movable, long moves, double first_temperature) {
        anneal(state_, movable, {moves, first_temperature, 0.1, ++seed_}, known_.answer().bound, watch_,
               [this](const directions& best, long weight) {
                   if (weight > known_.weight()) {
                       known_.offer(best, weight);
                       known_.report("local search");
                   }
               });
        offer_state();
        known_.report("local search");
    }

    void anneal_at_first() {
        double arcs = 0.0;
        for (const pair_net& pair : problem_.pairs) {
            arcs += static_cast<double>(pair.arcs.size());
        }
        const double moves =
            std::min(moves_at_first, arcs_at_first * static_cast<double>(problem_.pairs.size()) / arcs) *
            problem_.num_choices();
        anneal_choices(every_choice_, std::lround(moves), 0.5);
        if (is_wide_ && !known_.done()) {
            anneal_choices(every_choice_, std::lround(times_as_many_in_wide * moves), 0.5);
        }
    }

    void anneal_fractional() {
        if (known_.done()) {
            return;
        }
        std::vector<char> movable(problem_.choices.size());
        for (int c = 0; c < problem_.num_choices(); ++c) {
            movable[at(c)] = master_.is_fractional(c) ? 1 : 0;
        }
        try_rounding(master_.program());
        for (int run = 0; run < 4 && !known_.done(); ++run) {
            anneal_choices(movable, 500 * master_.num_fractional(), 0.5);
        }
        if (!known_.done()) {
            state_.set(known_.chosen());
            anneal_choices(every_choice_, 20L * problem_.num_choices(), 0.2);
        }
    }

    bool branch(long max_nodes) { return branch_and_bound(problem_, master_, state_, max_nodes, watch_, known_); }

    void search_long(bool is_hard) {
        if (!is_hard) {
            take_values(moves_without_cuts * problem_.num_choices());  // which may find all that was missing
        }
        if (count_steps(problem_) > plan_.most_steps) {
            close_on_smaller_problem(master_.program());
            while (!known_.done()) {
                take_values(moves_without_cuts * problem_.num_choices());
            }
            return;
        }
        tighten();
        bool goes_on = true;
        for (long nodes = plan_.first_nodes; goes_on && !known_.done(); nodes *= 2) {
            goes_on = branch(nodes);
            take_values(moves_per_branching * problem_.num_choices());
        }
    }

    // The best of so many more moves of the other thread, which begins when first asked.
    void take_values(long more_moves) {
        if (known_.done()) {
            return;
        }
        if (!values_) {
            values_.emplace(problem_, found_directions{known_.chosen(), known_.weight()}, known_.answer().bound,
                            watch_);
        }
        moves_taken_ += more_moves;
        const found_directions& found = values_->best_of(moves_taken_);
        known_.offer(found.chosen, found.weight);
        known_.report("local search");
    }

    // All that the other thread has found when a stop was requested.
    void take_last_values() {
        if (values_ && watch_.stop_requested()) {
            const found_directions& found = values_->best_of(std::numeric_limits<long>::max());
            known_.offer(found.chosen, found.weight);
        }
    }

    // Bounds by the tighter program, until the bound rests.
    void tighten() {
        if (known_.done()) {
            return;
        }
        chain_bound chains(problem_, watch_);
        int rests = 0;
        while (rests < resting_rounds && !known_.done()) {
            const double before = chains.bound();
            const bool has_more = chains.improve();
            if (chains.bound() == infinity) {
                return;
            }
            known_.lower_bound_to(chains.bound());
            try_rounding(chains.program());
            known_.report("tighter cuts");
            if (!has_more) {
                break;
            }
            rests = before - chains.bound() < resting_share * chains.bound() ? rests + 1 : 0;
            take_values(std::lround(moves_per_work * chains.program().work()) +
                        moves_per_tightening * problem_.num_choices());
        }
        close_on_smaller_problem(chains.program());
    }

    // Searches what is left when what every better answer has in common is fixed.
    void close_on_smaller_problem(const row_program& program) {
        if (known_.done() || !plan_.fixes) {
            return;
        }
        const std::optional<settled_problem> rest = fix_choices(problem_, program, known_.weight());
        if (!rest) {
            return;
        }
        search_plan plan = plan_;
        plan.goal = std::max(plan_.goal, known_.weight() + 1) - rest->satisfied_weight;
        const known_outside outside = {outside_.weight + rest->satisfied_weight,
                                       outside_.bound + rest->satisfied_weight};
        const directions start = picked(known_.chosen(), rest->contested.choices);
        const contested_answer best = search_contested(rest->contested, start, plan, outside, watch_);
        state_.set(complete(*rest, best.chosen, known_.chosen()));
        offer_state();
        known_.lower_bound_on_better_to(static_cast<double>(rest->satisfied_weight + best.bound));
    }

    const contested_problem& problem_;
    const search_plan plan_;
    const known_outside outside_;
    const solve_watch& watch_;
    shared_state state_;
    cut_master master_;
    known_answer known_;
    const std::vector<char> every_choice_;
    const bool is_wide_;
    std::uint64_t seed_ = 0;
    long leaning_weight_ = -1;  // of the directions that the program leans towards
    long moves_taken_ = 0;      // of the search for values
    std::optional<value_search> values_;
};

}  // namespace

contested_answer search_part(const contested_problem& problem, const directions& start, const search_plan& plan,
                             const known_outside& outside, const solve_watch& watch) {
    return part_search(problem, start, plan, outside, watch).run();
}

}  // namespace solver
