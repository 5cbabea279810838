#include "solver/back_ends/back_ends.hpp"

#include "solver/cplex/cplex_back_end.hpp"
#include "solver/highs/highs_back_end.hpp"
#include "solver/prove/structured_back_end.hpp"

namespace solver {

constexpr back_end search_with_highs(solve_with_highs, search_structure);

const back_end& default_back_end() {
#ifdef NETORIENT_SOLVER_CPLEX
    static constexpr back_end cplex(solve_with_cplex);
    return cplex;
#else
    return search_with_highs;
#endif
}

std::string default_solver() {
#ifdef NETORIENT_SOLVER_CPLEX
    return "CPLEX " + cplex_version();
#else
    return "HiGHS " + highs_version();
#endif
}

}  // namespace solver
