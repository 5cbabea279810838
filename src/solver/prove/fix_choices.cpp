#include "solver/prove/fix_choices.hpp"

#include <cmath>
#include <utility>

namespace solver {
namespace {

constexpr double tolerance = 1e-6;  // of sums that should be whole

}  // namespace

std::optional<settled_problem> fix_choices(const contested_problem& problem, const row_program& program, long weight) {
    std::vector<gate_state> gates(2 * problem.choices.size(), gate_state::contested);
    int fixed = 0;
    for (int c = 0; c < problem.num_choices(); ++c) {
        const double preference = program.preference(c);
        if (program.bound() - std::abs(preference) + tolerance < static_cast<double>(weight + 1)) {
            open_and_close(gates, preference > 0.0 ? 2 * c : 2 * c + 1);
            ++fixed;
        }
    }
    if (2 * fixed < problem.num_choices()) {
        return std::nullopt;
    }
    return settle(problem, std::move(gates));
}

}  // namespace solver
