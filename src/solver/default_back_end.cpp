#include "solver/back_end.hpp"

namespace solver {

back_end_function default_back_end() {
#ifdef NETORIENT_SOLVER_CPLEX
    return solve_with_cplex;
#else
    return search_with_highs;
#endif
}

}  // namespace solver
