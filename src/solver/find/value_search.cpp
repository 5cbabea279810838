#include "solver/find/value_search.hpp"

#include <chrono>
#include <utility>

#include "process/start_thread.hpp"
#include "solver/find/local_search.hpp"
#include "solver/find/random_source.hpp"
#include "solver/find/recombine.hpp"

namespace solver {
namespace {

constexpr double last_temperature = 0.2;
constexpr annealing_plan afresh{.moves = 120, .first_temperature = 0.7, .last_temperature = last_temperature};
constexpr long moves_of_reheating = 40;  // per choice, as those of afresh
constexpr double coolest_reheating = 0.3;
constexpr double hottest_reheating = 0.6;
constexpr int patience = 8;  // reheatings that may gain nothing before a line ends
constexpr int leader_patience = 15;
constexpr int mergers = 4;
constexpr int stages_between_notes = 10;                // of an annealing
constexpr auto glance = std::chrono::milliseconds(50);  // between two looks at the watch
constexpr long moves_worth_settling = 10;               // per choice: what a recombination costs besides its moves

}  // namespace

// The thread's side.
class value_search::searcher {
 public:
    searcher(value_search& owner, long target)
        : owner_(owner),
          problem_(owner.problem_),
          target_(target),
          state_(problem_),
          every_choice_(problem_.choices.size(), 1),
          best_(owner.best_) {}

    void run() {
        found_directions leader = best_;
        while (!done()) {
            found_directions line = begin_line();
            improve(line, patience);
            for (int merger = 0; merger < mergers && !done(); ++merger) {
                merge(leader, line);
            }
            if (line.weight > leader.weight) {
                leader = line;
            }
            improve(leader, leader_patience);
        }
    }

 private:
    bool done() const { return best_.weight >= target_ || watch_.stop_requested(); }

    void note(const directions& chosen, long weight, long more_moves) {
        if (weight > best_.weight) {
            best_ = {chosen, weight};
        }
        owner_.publish(best_, more_moves);
    }

    found_directions in_state() const { return {state_.chosen(), state_.weight()}; }

    // From where the state stands.
    void anneal_all(annealing_plan plan) {
        plan.moves *= problem_.num_choices();
        plan.seed = next_seed();
        int stages = 0;
        anneal(state_, every_choice_, plan, target_, watch_, [&](const directions& chosen, long weight) {
            if (++stages % stages_between_notes == 0) {
                note(chosen, weight, stages_between_notes * plan.moves / annealing_stages);
            }
        });
    }

    found_directions begin_line() {
        directions start(problem_.choices.size());
        for (signed char& side : start) {
            side = random_.coin() ? 1 : 0;
        }
        state_.set(start);
        anneal_all(afresh);
        return in_state();
    }

    void improve(found_directions& line, int patience_left) {
        for (int idle = 0; idle < patience_left && !done();) {
            const long before = line.weight;
            reheat(line);
            idle = line.weight > before ? 0 : idle + 1;
        }
    }

    void reheat(found_directions& line) {
        state_.set(line.chosen);
        const double temperature = coolest_reheating + (hottest_reheating - coolest_reheating) * random_.share();
        anneal_all({.moves = moves_of_reheating,
                    .first_temperature = temperature,
                    .last_temperature = last_temperature,
                    .gives_best = false});
        found_directions other = in_state();
        merge(line, other);
        if (other.weight >= line.weight) {
            line = std::move(other);
        }
    }

    // What is made of the two takes the place of the worse.
    void merge(found_directions& one, found_directions& other) {
        const bool one_is_better = one.weight >= other.weight;
        found_directions& worse = one_is_better ? other : one;
        const long moves =
            recombine(problem_, (one_is_better ? one : other).chosen, worse.chosen, next_seed(), state_, watch_);
        worse = in_state();
        note(worse.chosen, worse.weight, moves + moves_worth_settling * problem_.num_choices());
    }

    std::uint64_t next_seed() { return random_.below(std::size_t{1} << 32); }

    value_search& owner_;
    const contested_problem& problem_;
    const solve_watch watch_{.stop_requested = [this] { return owner_.is_over_.load(); }};
    const long target_;
    shared_state state_;
    const std::vector<char> every_choice_;
    random_source random_{1};
    found_directions best_;
};

value_search::value_search(const contested_problem& problem, found_directions start, long target,
                           const solve_watch& watch)
    : problem_(problem), watch_(watch), best_(std::move(start)) {
    thread_ = start_thread([this, target] { run(target); });
}

value_search::~value_search() {
    is_over_ = true;
    thread_.join();
}

void value_search::run(long target) {
    std::exception_ptr failure;
    try {
        searcher(*this, target).run();
    } catch (...) {
        failure = std::current_exception();
    }
    const std::lock_guard lock(mutex_);
    failure_ = failure;
    has_ended_ = true;
    wake_.notify_one();
}

void value_search::publish(const found_directions& best, long more_moves) {
    const std::lock_guard lock(mutex_);
    moves_made_ += more_moves;
    if (best.weight > (ahead_.empty() ? best_.weight : ahead_.back().found.weight)) {
        ahead_.push_back({moves_made_, best});
    }
    wake_.notify_one();
}

const found_directions& value_search::best_of(long moves) {
    const auto has_enough = [&] { return moves_made_ >= moves || has_ended_; };
    std::unique_lock lock(mutex_);
    while (!has_enough()) {
        lock.unlock();
        if (watch_.stop_requested()) {
            is_over_ = true;
        }
        lock.lock();
        wake_.wait_for(lock, glance, has_enough);
    }
    if (failure_) {
        std::rethrow_exception(failure_);
    }
    while (!ahead_.empty() && ahead_.front().moves <= moves) {
        best_ = std::move(ahead_.front().found);
        ahead_.erase(ahead_.begin());
    }
    return best_;
}

}  // namespace solver
