#include "solver/prove/known_answer.hpp"

#include <algorithm>
#include <cmath>

namespace solver {
namespace {

constexpr double tolerance = 1e-6;  // of sums that should be whole

}  // namespace

known_answer::known_answer(long total_weight, long goal, const known_outside& outside, const solve_watch& watch)
    : goal_(goal), outside_(outside), watch_(watch), answer_{{}, -1, total_weight} {}

bool known_answer::done() const {
    return answer_.weight >= answer_.bound || answer_.bound < goal_ || watch_.stop_requested();
}

void known_answer::offer(const directions& chosen, long weight) {
    if (weight > answer_.weight) {
        answer_.weight = weight;
        answer_.chosen = chosen;
    }
}

void known_answer::lower_bound_to(double proven) {
    if (proven < static_cast<double>(answer_.bound)) {
        answer_.bound = std::min(answer_.bound, static_cast<long>(std::floor(proven + tolerance)));
    }
}

void known_answer::lower_bound_on_better_to(double proven) {
    lower_bound_to(std::max(proven, static_cast<double>(answer_.weight)));
}

void known_answer::report(const char* stage, double bound) const {
    watch_.report({stage, static_cast<double>(outside_.weight + answer_.weight),
                   static_cast<double>(outside_.bound) + std::min(static_cast<double>(answer_.bound), bound)});
}

}  // namespace solver
