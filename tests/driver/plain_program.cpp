// The program over HiGHS alone, which sees the whole model and none of its structure.
#include "driver/run.hpp"
#include "solver/highs/highs_back_end.hpp"

int main(int argc, char** argv) {
    return run(argc, argv, solver::solve_with_highs);
}
