// The program over a back end that never finds a solution.
#include "driver/run.hpp"

int main(int argc, char** argv) {
    return run(
        argc, argv, +[](const solver::model_record&, const solver::solve_watch&) {
            return solver::solve_answer{solver::solve_status::unknown, {}, 0.0, 0.0, "nothing found, as meant"};
        });
}
