// The best weight under a condition: that a choice is turned away from the answer, or that a
// lost pair is satisfied.
//
// The program of a region (region_program.hpp) gives a bound, and its solution, rounded,
// directions; what they weigh is counted anew (find/shared_state.hpp). Rows and cuts are
// added until the two meet. Where none is broken any more, the region branches over its
// fractional choices, those of the whole program's optimum taken in last. What that does not
// settle in most_nodes programs goes to the search (search_again.hpp).
//
// Directions met on the way may be the best known for other choices that they turn, so
// threads share those weights. Nothing else is shared, and what a question is answered with
// does not depend on them.
#pragma once

#include <atomic>
#include <vector>

#include "solver/find/shared_state.hpp"
#include "solver/regret/region_program.hpp"

namespace solver {

// By choice: the best weight known with it turned away from the answer.
using turned_weights = std::vector<std::atomic<long>>;

struct best_under_condition {
    long weight = -1;           // of the best directions found that meet it; -1 = none
    long bound = 0;             // none that meet it weigh more
    std::vector<int> turned{};  // choices that the best directions turn, where it is about a pair
};

class condition_prover {
 public:
    // What is known and never changes. All must outlive the prover.
    struct setting {
        const contested_problem& problem;
        const root_prices& root;
        const directions& answer;  // a direction for every choice
        const std::vector<int>& node_of_pair;
        bool to_the_end;  // else a bound from one small region is all that is asked for
    };
    condition_prover(const setting& known, turned_weights& turned, const solve_watch& watch);

    // When stopped, what is known so far. First: directions to begin with.
    best_under_condition turn(int choice);
    best_under_condition satisfy(int pair, const best_under_condition& first);

 private:
    enum class outcome { settled, branches, given_up };

    void begin(int choice, int pair);
    best_under_condition prove();
    void prove_branches();
    outcome solve_until_nothing_is_broken();
    bool take_in_fractions();
    int most_fractional() const;
    void try_rounding();
    void keep_best(const std::vector<int>& turned);
    void turn_back_what_need_not();
    bool is_enough() const;
    void search();

    const setting known_;
    turned_weights& turned_;
    const solve_watch& watch_;
    shared_state state_;  // at the answer, between questions
    region_program region_;

    // Of the question.
    int choice_ = -1;  // -1 = it is about a pair
    int pair_ = -1;
    int node_ = -1;  // of the pair
    best_under_condition best_;
    int num_programs_ = 0;
    bool given_up_ = false;
    bool has_fractions_ = false;
};

}  // namespace solver
