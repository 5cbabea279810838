#include "solver/regret/condition_prover.hpp"

#include <algorithm>
#include <cmath>

#include "solver/regret/search_again.hpp"
#include "solver/structure/index.hpp"

namespace solver {
namespace {

constexpr double tolerance = 1e-6;   // of a value, and of a bound that should be whole
constexpr int most_programs = 1000;  // of a question
constexpr int small_region = 300;    // rows
constexpr double persuasion = 1000;  // what a pair that is to be satisfied is worth besides

bool is_fractional(double value) {
    return value > tolerance && value < 1.0 - tolerance;
}

}  // namespace

condition_prover::condition_prover(const setting& known, turned_weights& turned, const solve_watch& watch)
    : known_(known), turned_(turned), watch_(watch), state_(known.problem), region_(known.problem, known.root, watch) {
    state_.set(known.answer);
}

best_under_condition condition_prover::turn(int choice) {
    begin(choice, -1);
    best_.weight = turned_[at(choice)];
    region_.fix(choice, known_.answer[at(choice)] == 0 ? 0.0 : 1.0);
    return prove();
}

best_under_condition condition_prover::satisfy(int pair, const best_under_condition& first) {
    begin(-1, pair);
    node_ = known_.node_of_pair[at(pair)];
    best_.weight = first.weight;
    best_.turned = first.turned;
    const int column = known_.root.pair_columns[at(pair)];
    if (column >= 0) {
        region_.favour(column, persuasion);
    } else {
        const int gate = known_.problem.pairs[at(pair)].arcs.front().gate;
        region_.fix(gate / 2, gate % 2 == 0 ? 1.0 : 0.0);
    }
    best_under_condition found = prove();
    if (found.weight >= 0) {
        turn_back_what_need_not();
        found.turned = best_.turned;
    }
    return found;
}

void condition_prover::begin(int choice, int pair) {
    choice_ = choice;
    pair_ = pair;
    best_ = {-1, known_.problem.total_weight(), {}};
    num_programs_ = 0;
    given_up_ = has_fractions_ = false;
    region_.begin();
}

best_under_condition condition_prover::prove() {
    prove_branches();
    if (given_up_ && known_.to_the_end && !watch_.stop_requested()) {
        search();
    } else if (!given_up_) {
        best_.bound = best_.weight;
    }
    return best_;
}

void condition_prover::prove_branches() {
    const outcome came_to = solve_until_nothing_is_broken();
    if (came_to == outcome::settled) {
        return;
    }
    const int choice = most_fractional();
    if (came_to == outcome::given_up || choice < 0 || !known_.to_the_end) {
        given_up_ = true;
        return;
    }
    const double nearer = region_.value(choice) >= 0.5 ? 1.0 : 0.0;
    for (const double value : {nearer, 1.0 - nearer}) {
        if (!given_up_) {
            region_.fix(choice, value);
            prove_branches();
        }
    }
    region_.release(choice);
}

condition_prover::outcome condition_prover::solve_until_nothing_is_broken() {
    const bool is_first = num_programs_ == 0;
    const bool is_bounded = !known_.to_the_end;
    do {
        if (watch_.stop_requested() || num_programs_ >= most_programs ||
            (is_bounded && region_.num_rows() > small_region) || !region_.solve()) {
            return outcome::given_up;
        }
        ++num_programs_;
        if (is_first) {
            const double bound = std::floor(region_.bound() + tolerance);
            best_.bound = std::min(best_.bound, std::max(best_.weight, std::lround(bound)));
        }
        if (!is_enough()) {
            try_rounding();
        }
        if (is_enough()) {
            return outcome::settled;
        }
    } while (region_.grow() || region_.cut_fractions() || (most_fractional() < 0 && take_in_fractions()));
    return outcome::branches;
}

bool condition_prover::is_enough() const {
    return best_.weight >= 0 && std::floor(region_.bound() + tolerance) <= static_cast<double>(best_.weight);
}

// What of the gap is the whole program's own lies around its fractional choices.
bool condition_prover::take_in_fractions() {
    const int before = region_.num_rows();
    for (int choice = 0; !has_fractions_ && choice < known_.problem.num_choices(); ++choice) {
        if (is_fractional(known_.root.values[at(choice)])) {
            region_.take_in(choice);
        }
    }
    has_fractions_ = true;
    return region_.num_rows() > before;
}

int condition_prover::most_fractional() const {
    int found = -1;
    double farthest = tolerance;
    for (const int column : region_.columns()) {
        const double value = region_.value(column);
        const double from_end = std::min(value, 1.0 - value);
        if (column < known_.problem.num_choices() && from_end > farthest) {
            farthest = from_end;
            found = column;
        }
    }
    return found;
}

// Counts what the region's directions weigh, unless they are of no use to any question.
void condition_prover::try_rounding() {
    std::vector<int> turned;
    long least = best_.weight;
    for (const int column : region_.columns()) {
        if (column < known_.problem.num_choices()) {
            const double of_answer = known_.answer[at(column)] == 0 ? 1.0 : 0.0;
            if (std::abs(region_.value(column) - of_answer) > 0.5) {
                turned.push_back(column);
                least = std::min(least, turned_[at(column)].load());
            }
        }
    }
    if (state_.turn(turned, least + 1)) {
        keep_best(turned);
        state_.turn(turned, 0);
    }
    if (choice_ >= 0) {
        best_.weight = std::max(best_.weight, turned_[at(choice_)].load());
    }
}

// The state stands where these are turned.
void condition_prover::keep_best(const std::vector<int>& turned) {
    const long weight = state_.weight();
    for (const int choice : turned) {
        long known = turned_[at(choice)];
        while (known < weight && !turned_[at(choice)].compare_exchange_weak(known, weight)) {
        }
    }
    if (weight > best_.weight && pair_ >= 0 && state_.reached(node_)) {
        best_.weight = weight;
        best_.turned = turned;
    }
}

// Of directions of equal weight, those nearer to the answer give up fewer pairs.
void condition_prover::turn_back_what_need_not() {
    state_.turn(best_.turned, 0);
    std::vector<int> kept;
    for (const int choice : best_.turned) {
        if (!state_.turn({choice}, best_.weight)) {
            kept.push_back(choice);
        } else if (!state_.reached(node_)) {
            state_.turn({choice}, 0);
            kept.push_back(choice);
        }
    }
    best_.turned = kept;
    state_.turn(kept, 0);
}

void condition_prover::search() {
    const contested_answer found =
        choice_ >= 0 ? search_with_turned(known_.problem, known_.answer, choice_, best_.weight + 1, watch_)
                     : search_with_satisfied(known_.problem, known_.answer, pair_, best_.weight + 1, watch_);
    best_.bound = std::min(best_.bound, std::max(best_.weight, found.bound));
    if (found.chosen.empty()) {
        return;
    }
    std::vector<int> turned;
    for (int choice = 0; choice < known_.problem.num_choices(); ++choice) {
        if (found.chosen[at(choice)] != known_.answer[at(choice)]) {
            turned.push_back(choice);
        }
    }
    state_.turn(turned, 0);
    keep_best(turned);
    state_.turn(turned, 0);
    if (choice_ >= 0) {
        best_.weight = std::max(best_.weight, turned_[at(choice_)].load());
    }
}

}  // namespace solver
