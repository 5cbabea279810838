// The whole record through CPLEX, with all of its settings and priorities.
#include "solver/cplex/cplex_back_end.hpp"

#include <chrono>
#include <cmath>
#include <condition_variable>
#include <mutex>
#include <stdexcept>
#include <string>
#include <thread>

#include "process/start_thread.hpp"
#include "solver/cplex/cplex_problem.hpp"

namespace solver {
namespace {

using namespace cplex;

// Talks to the watch of a running solve, from a thread of its own: CPLEX calls
// back at its own times, but looks at the stop flag often, also inside a long LP.
class watcher {
 public:
    watcher(const library& calls, const solve_watch& watch, bool maximizes, volatile int& stop)
        : calls_(calls), watch_(watch), stop_(stop) {
        progress_ = {"solve", maximizes ? -infinity : infinity, maximizes ? infinity : -infinity};
        thread_ = start_thread([this] { run(); });
    }
    ~watcher() {
        {
            const std::lock_guard lock(mutex_);
            solved_ = true;
        }
        wake_.notify_one();
        thread_.join();
    }
    watcher(const watcher&) = delete;
    watcher& operator=(const watcher&) = delete;

    // Notes the state of the search; to be registered with the watcher as user.
    static int on_progress(callback_context* context, long long, void* user) {
        auto& self = *static_cast<watcher*>(user);
        double value = 0.0;
        double bound = 0.0;
        if (self.calls_.CPXcallbackgetinfodbl(context, info_best_solution, &value) == 0 &&
            self.calls_.CPXcallbackgetinfodbl(context, info_best_bound, &bound) == 0) {
            const std::lock_guard lock(self.mutex_);
            if (std::abs(value) < infinite) {
                self.progress_.value = value;
            }
            if (std::abs(bound) < infinite) {
                self.progress_.bound = bound;
            }
        }
        return 0;
    }

 private:
    void run() {
        std::unique_lock lock(mutex_);
        while (!wake_.wait_for(lock, std::chrono::milliseconds(50), [this] { return solved_; })) {
            const solve_progress seen = progress_;
            lock.unlock();
            watch_.report(seen);
            if (watch_.stop_requested()) {
                stop_ = 1;
            }
            lock.lock();
        }
    }

    const library& calls_;
    const solve_watch& watch_;
    volatile int& stop_;
    solve_progress progress_;
    bool solved_ = false;
    std::mutex mutex_;
    std::condition_variable wake_;
    std::thread thread_;
};

// By the solution status codes of the Callable Library: 1.. of an LP, 101.. of a MIP.
solve_status status_of(int code) {
    switch (code) {
        case 1:    // CPX_STAT_OPTIMAL
        case 5:    // CPX_STAT_OPTIMAL_INFEAS: optimal but for scaling; the check decides
        case 101:  // CPXMIP_OPTIMAL
        case 102:  // CPXMIP_OPTIMAL_TOL: within the gap
        case 115:  // CPXMIP_OPTIMAL_INFEAS
            return solve_status::optimal;
        case 2:    // CPX_STAT_UNBOUNDED
        case 118:  // CPXMIP_UNBOUNDED
            return solve_status::unbounded;
        case 3:    // CPX_STAT_INFEASIBLE
        case 103:  // CPXMIP_INFEASIBLE
            return solve_status::infeasible;
        case 4:    // CPX_STAT_INForUNBD
        case 119:  // CPXMIP_INForUNBD
            return solve_status::infeasible_or_unbounded;
        case 104:  // CPXMIP_SOL_LIM
        case 105:  // CPXMIP_NODE_LIM_FEAS
        case 107:  // CPXMIP_TIME_LIM_FEAS
        case 109:  // CPXMIP_FAIL_FEAS
        case 111:  // CPXMIP_MEM_LIM_FEAS
        case 113:  // CPXMIP_ABORT_FEAS
        case 116:  // CPXMIP_FAIL_FEAS_NO_TREE
        case 131:  // CPXMIP_DETTIME_LIM_FEAS
            return solve_status::feasible;
        default:
            return solve_status::unknown;
    }
}

solve_answer solve_loaded(loaded_problem& problem, const model_record& record, const solve_watch& watch,
                          volatile int& stop) {
    const library& calls = problem.calls;
    const bool is_mip = record.has_integral_column();
    problem.require(calls.CPXsetterminate(problem.env, &stop));
    watcher watching(calls, watch, record.maximize, stop);
    if (is_mip) {
        problem.require(calls.CPXcallbacksetfunc(problem.env, problem.lp, context_global_progress,
                                                 &watcher::on_progress, &watching));
    }
    problem.require((is_mip ? calls.CPXmipopt : calls.CPXlpopt)(problem.env, problem.lp));

    solve_answer answer;
    const int code = calls.CPXgetstat(problem.env, problem.lp);
    answer.status = status_of(code);
    if (answer.status == solve_status::optimal || answer.status == solve_status::feasible) {
        answer.values.resize(static_cast<std::size_t>(record.num_columns()));
        problem.require(calls.CPXgetx(problem.env, problem.lp, answer.values.data(), 0, record.num_columns() - 1));
        problem.require(calls.CPXgetobjval(problem.env, problem.lp, &answer.objective));
        answer.bound = answer.objective;
        if (is_mip) {
            problem.require(calls.CPXgetbestobjval(problem.env, problem.lp, &answer.bound));
        }
    } else if (answer.status == solve_status::unknown) {
        char text[error_string_size] = "";
        calls.CPXgetstatstring(problem.env, code, text);
        answer.reason = "CPLEX ends without a solution: " + one_line(text);
    }
    return answer;
}

}  // namespace

solve_answer solve_with_cplex_at(const std::string& library_path, const model_record& record,
                                 const solve_watch& watch) {
    volatile int stop = 0;  // outlives the environment, which looks at it until it closes
    try {
        loaded_problem problem(library_path, record);
        return solve_loaded(problem, record, watch, stop);
    } catch (const std::runtime_error& error) {
        solve_answer answer;
        answer.status = solve_status::error;
        answer.reason = error.what();
        return answer;
    }
}

solve_answer solve_with_cplex(const model_record& record, const solve_watch& watch) {
    return solve_with_cplex_at(CPLEX_LIBRARY, record, watch);
}

std::string cplex_version() {
    const library calls = open_library(CPLEX_LIBRARY);
    int status = 0;
    int version = 0;
    environment* env = calls.CPXopenCPLEX(&status);
    if (env == nullptr || calls.CPXversionnumber(env, &version) != 0) {
        throw std::runtime_error("CPLEX does not tell its version");
    }
    calls.CPXcloseCPLEX(&env);
    return std::to_string(version / 1000000) + "." + std::to_string(version / 10000 % 100) + "." +
           std::to_string(version / 100 % 100);
}

}  // namespace solver
