// Looks for better directions in a thread of its own, beside the proof of a bound.
//
// In lines: a line begins with an annealing (local_search.hpp) from directions drawn at
// random. Then it is reheated: annealed from a moderate temperature, and recombined
// (recombine.hpp) with what it was before. An annealing of the whole changes many parts
// that have nothing to do with one another, some for the better and some for the worse;
// to recombine keeps the former and undoes the latter. A line that gains nothing more
// is recombined with the leading one, which is reheated in turn.
//
// Never ends by itself before it reaches its target. Its work is counted in moves of
// annealing, never by a clock, and who asks says how many it takes into account: the
// answer is the same however the two threads run.
#pragma once

#include <atomic>
#include <condition_variable>
#include <exception>
#include <mutex>
#include <thread>
#include <vector>

#include "solver/find/shared_state.hpp"
#include "solver/record/back_end.hpp"

namespace solver {

struct found_directions {
    directions chosen;
    long weight = 0;
};

class value_search {
 public:
    // Begins at once, and ends once target is reached. The first line to lead is the start,
    // with a direction for every choice. Problem and watch must outlive this; the watch is
    // asked in best_of alone, by the thread that calls it.
    value_search(const contested_problem& problem, found_directions start, long target, const solve_watch& watch);
    ~value_search();
    value_search(const value_search&) = delete;
    value_search& operator=(const value_search&) = delete;

    // The best of the first so many moves, waited for. Numbers must not fall from call to
    // call; no number is too large once a stop was requested, which ends the search.
    const found_directions& best_of(long moves);

 private:
    class searcher;
    void run(long target);
    void publish(const found_directions& best, long more_moves);

    const contested_problem& problem_;
    const solve_watch& watch_;
    std::atomic<bool> is_over_ = false;

    std::mutex mutex_;  // for all below
    std::condition_variable wake_;
    struct improvement {
        long moves;  // made until then
        found_directions found;
    };
    std::vector<improvement> ahead_;  // of what was asked for, in order
    long moves_made_ = 0;
    bool has_ended_ = false;
    std::exception_ptr failure_;
    found_directions best_;

    std::thread thread_;
};

}  // namespace solver
