// What is known of a part while it is searched: the best directions so far, and a bound
// on all. Weights are whole, so bounds are rounded down, and the two can meet.
#pragma once

#include "solver/prove/contested_search.hpp"

namespace solver {

class known_answer {
 public:
    // Nothing yet: no directions, and the weight of all pairs as the bound. Goal: only answers
    // of at least this are of interest. The watch must outlive this.
    known_answer(long total_weight, long goal, const known_outside& outside, const solve_watch& watch);

    // The best is proven, nothing of interest is left, or a stop was requested.
    bool done() const;
    long weight() const { return answer_.weight; }
    long gap() const { return answer_.bound - answer_.weight; }
    const directions& chosen() const { return answer_.chosen; }
    const contested_answer& answer() const { return answer_; }

    // Takes directions that reach this weight, if they are better.
    void offer(const directions& chosen, long weight);
    // No directions reach more than this.
    void lower_bound_to(double proven);
    // No directions that reach more than the weight reach more than this: what a proof gives
    // that asks for something better.
    void lower_bound_on_better_to(double proven);

    void report(const char* stage) const { report(stage, static_cast<double>(answer_.bound)); }
    // While a bound of the part is being improved that does not count yet.
    void report(const char* stage, double bound) const;

 private:
    const long goal_;
    const known_outside outside_;
    const solve_watch& watch_;
    contested_answer answer_;
};

}  // namespace solver
