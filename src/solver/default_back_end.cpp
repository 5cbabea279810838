#include "solver/back_end.hpp"

namespace solver {

solve_answer default_back_end(const model_record& record, const solve_watch& watch) {
    return solve_with_highs(record, watch);
}

}  // namespace solver
