// The program over a back end that never finds a solution.
#include "driver/run.hpp"

namespace {

solver::solve_answer find_nothing(const solver::model_record&, const solver::solve_watch&) {
    solver::solve_answer answer;
    answer.reason = "nothing found, as meant";
    return answer;
}

}  // namespace

int main(int argc, char** argv) {
    return run(argc, argv, find_nothing);
}
