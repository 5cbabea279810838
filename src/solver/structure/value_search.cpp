#include "solver/structure/value_search.hpp"

#include <algorithm>
#include <utility>

#include "solver/structure/index.hpp"
#include "solver/structure/local_search.hpp"
#include "solver/structure/random_source.hpp"
#include "solver/structure/recombine.hpp"
#include "solver/structure/region_search.hpp"

namespace solver {
namespace {

constexpr int crowd_size = 8;
constexpr long moves_per_choice = 120;
constexpr double first_temperature = 0.7;
constexpr double last_temperature = 0.15;
constexpr int stages_per_step = 10;  // of an annealing
constexpr int alike = 20;            // two that differ in fewer choices give nothing new
constexpr int tries_with_best = 4;
constexpr int regions_per_turn = 100;  // about as long as the crowd takes

}  // namespace

// The thread's side.
class value_search::searcher {
 public:
    searcher(value_search& owner, long target)
        : owner_(owner),
          problem_(owner.problem_),
          watch_(owner.watch_),
          target_(target),
          state_(problem_),
          regions_(problem_, 1),
          every_choice_(problem_.choices.size(), 1) {}

    void run() {
        while (!done()) {
            gather_crowd();
            merge_crowd();
            for (int tries = 0; tries < tries_with_best && !done(); ++tries) {
                merge(best_, crowd_.front());
            }
            state_.set(best_.chosen);
            for (int step = 0; step < regions_per_turn && !done(); ++step) {
                regions_.step(state_, watch_);
                note();
            }
        }
    }

 private:
    bool done() const { return best_.weight >= target_ || watch_.stop_requested(); }

    void note() { note(state_.chosen(), state_.weight()); }

    void note(const directions& chosen, long weight) {
        if (weight >= best_.weight) {
            best_ = {chosen, weight};
        }
        owner_.publish(best_);
    }

    void gather_crowd() {
        crowd_.clear();
        for (int i = 0; i < crowd_size && (i == 0 || !done()); ++i) {
            directions start(problem_.choices.size());
            for (signed char& side : start) {
                side = random_.coin() ? 1 : 0;
            }
            state_.set(start);
            int stages = 0;
            anneal(state_, every_choice_,
                   {moves_per_choice * problem_.num_choices(), first_temperature, last_temperature, next_seed()},
                   target_, watch_, [&](const directions& chosen, long weight) {
                       if (++stages % stages_per_step == 0) {
                           note(chosen, weight);
                       }
                   });
            note();
            crowd_.push_back({state_.chosen(), state_.weight()});
        }
    }

    // Pairs of the crowd give way to what is made of them, until all are alike.
    void merge_crowd() {
        std::size_t idle = 0;
        while (idle < crowd_.size() && crowd_.size() > 1 && !done()) {
            const std::size_t one = random_.below(crowd_.size());
            const std::size_t step = 1 + random_.below(crowd_.size() - 1);
            const int annealed = merge(crowd_[one], crowd_[(one + step) % crowd_.size()]);
            idle = annealed < alike ? idle + 1 : 0;
        }
        const auto lighter = [](const found_directions& a, const found_directions& b) { return a.weight < b.weight; };
        std::swap(crowd_.front(), *std::max_element(crowd_.begin(), crowd_.end(), lighter));
    }

    // The result takes the place of the worse.
    int merge(found_directions& one, found_directions& other) {
        const bool one_is_better = one.weight >= other.weight;
        found_directions& worse = one_is_better ? other : one;
        const int annealed =
            recombine(problem_, (one_is_better ? one : other).chosen, worse.chosen, next_seed(), state_, watch_);
        worse = {state_.chosen(), state_.weight()};
        note();
        return annealed;
    }

    std::uint64_t next_seed() { return random_.below(std::size_t{1} << 32); }

    value_search& owner_;
    const contested_problem& problem_;
    const solve_watch& watch_;
    const long target_;
    shared_state state_;
    region_search regions_;
    const std::vector<char> every_choice_;
    random_source random_{1};
    std::vector<found_directions> crowd_;
    found_directions best_;
};

value_search::value_search(const contested_problem& problem, long target, const solve_watch& watch)
    : problem_(problem) {
    watch_.stop_requested = [this, &watch] { return is_over_ || watch.stop_requested(); };
    thread_ = std::thread([this, target] { run(target); });
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

void value_search::publish(const found_directions& best) {
    const std::lock_guard lock(mutex_);
    ++steps_done_;
    if (best.weight > (ahead_.empty() ? best_.weight : ahead_.back().found.weight)) {
        ahead_.push_back({steps_done_, best});
    }
    wake_.notify_one();
}

const found_directions& value_search::best_of(long steps) {
    std::unique_lock lock(mutex_);
    wake_.wait(lock, [&] { return steps_done_ >= steps || has_ended_; });
    if (failure_) {
        std::rethrow_exception(failure_);
    }
    while (!ahead_.empty() && ahead_.front().step <= steps) {
        best_ = std::move(ahead_.front().found);
        ahead_.erase(ahead_.begin());
    }
    return best_;
}

}  // namespace solver
