// Looks for better directions in a thread of its own, beside the proof of a bound.
//
// In turns: a crowd of short annealings (local_search.hpp), each from directions drawn
// at random; pairs of them recombined until all are alike (recombine.hpp); what came
// out recombined with the best so far; and from the best, searches of one region after
// another (region_search.hpp).
//
// Never ends by itself before it reaches its target. It goes by steps: ten stages of an
// annealing, one recombination, one region. Steps are bounded by what they do, never by
// a clock, and who asks says for how many: the answer is the same however the two
// threads run.
#pragma once

#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

#include "solver/back_end.hpp"
#include "solver/structure/shared_state.hpp"

namespace solver {

struct found_directions {
    directions chosen;
    long weight = 0;
};

class value_search {
 public:
    // Begins at once, and ends once target is reached. Problem and watch must outlive this;
    // the watch is asked from both threads.
    value_search(const contested_problem& problem, long target, const solve_watch& watch);
    ~value_search();
    value_search(const value_search&) = delete;
    value_search& operator=(const value_search&) = delete;

    // The best of the first so many steps, waited for. Numbers must not fall from call to
    // call; no number is too large once a stop was requested.
    const found_directions& best_of(long steps);

 private:
    class searcher;
    void run(long target);
    void publish(const found_directions& best);

    const contested_problem& problem_;
    solve_watch watch_;
    std::atomic<bool> is_over_ = false;

    std::mutex mutex_;  // for all below
    std::condition_variable wake_;
    struct improvement {
        long step;
        found_directions found;
    };
    std::vector<improvement> ahead_;  // of what was asked for, in the order of steps
    long steps_done_ = 0;
    bool has_ended_ = false;
    std::exception_ptr failure_;
    found_directions best_;

    std::thread thread_;
};

}  // namespace solver
