#include "solver/highs/highs_handle.hpp"

#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <mutex>
#include <new>
#include <optional>
#include <stdexcept>
#include <thread>

#include "process/start_thread.hpp"

namespace solver {
namespace {

constexpr HighsInt memory_limit = 18;                      // a model status without a name in the C interface
constexpr auto glance = std::chrono::milliseconds(50);     // between two looks at the watch
constexpr auto patience = std::chrono::milliseconds(300);  // with a run that was asked to stop

void require(HighsInt status, const char* what) {
    if (status == kHighsStatusError) {
        throw std::runtime_error(std::string("HiGHS refuses ") + what);
    }
}

// What an abandoned run works with must not be torn down under it, so the program
// ends without that. Registered last, this comes before anything is destroyed.
void end_without_teardown() {
    static const bool once = [] {
        on_exit(
            [](int status, void*) {
                std::cout.flush();
                std::fflush(nullptr);
                std::_Exit(status);
            },
            nullptr);
        return true;
    }();
    static_cast<void>(once);
}

}  // namespace

// Shared between the handle and the thread of a run; the last one destroys it.
struct highs_handle::instance {
    void* const highs = Highs_create();
    std::atomic<bool> stop = false;

    std::mutex mutex;  // for all below
    std::condition_variable wake;
    std::optional<HighsInt> status;  // of a run that has ended
    std::exception_ptr failure;      // what it threw
    std::optional<solve_progress> progress;
    incumbent found;

    instance() {
        Highs_setCallback(highs, &instance::on_callback, this);
        for (const HighsInt type : {kHighsCallbackSimplexInterrupt, kHighsCallbackIpmInterrupt,
                                    kHighsCallbackMipImprovingSolution, kHighsCallbackMipInterrupt}) {
            Highs_startCallback(highs, static_cast<int>(type));
        }
    }
    ~instance() { Highs_destroy(highs); }
    instance(const instance&) = delete;
    instance& operator=(const instance&) = delete;

    void run() {
        HighsInt ended = kHighsStatusError;
        std::exception_ptr thrown;
        try {
            ended = Highs_run(highs);
        } catch (...) {
            thrown = std::current_exception();
        }
        const std::lock_guard lock(mutex);
        status = ended;
        failure = thrown;
        wake.notify_one();
    }

    static void on_callback(int type, const char*, const HighsCallbackDataOut* out, HighsCallbackDataIn* in,
                            void* user) {
        auto& self = *static_cast<instance*>(user);
        if (type == kHighsCallbackMipInterrupt) {
            const std::lock_guard lock(self.mutex);
            self.progress = {"solve", out->mip_primal_bound, out->mip_dual_bound};
        } else if (type == kHighsCallbackMipImprovingSolution && out->mip_solution != nullptr) {
            const std::lock_guard lock(self.mutex);
            self.found.values.assign(out->mip_solution, out->mip_solution + out->mip_solution_size);
            self.found.objective = out->objective_function_value;
        }
        if (in != nullptr) {
            in->user_interrupt = self.stop ? 1 : 0;
        }
    }
};

highs_handle::highs_handle(const solve_watch& watch) : instance_(std::make_shared<instance>()), watch_(watch) {
    set_option("output_flag", false);
    set_option("threads", 1);
    set_option("parallel", "off");
    set_option("random_seed", 0);
}

highs_handle::~highs_handle() = default;

void* highs_handle::get() const {
    return instance_->highs;
}

run_end highs_handle::run() {
    incumbent found;
    return run_or_abandon(found);
}

run_end highs_handle::run(incumbent& found) {
    const run_end end = run_or_abandon(found);
    if (end == run_end::finished) {
        found.bound = double_info("mip_dual_bound");
        found.values.clear();
        if (int_info("primal_solution_status") == kHighsSolutionStatusFeasible) {
            found.values.resize(static_cast<std::size_t>(Highs_getNumCol(get())));
            Highs_getSolution(get(), found.values.data(), nullptr, nullptr, nullptr);
            found.objective = double_info("objective_function_value");
        }
    }
    return end;
}

// HiGHS looks for a stop neither in presolve, nor in the first linear program of a
// branch and bound, nor in its first-order method: each takes a minute on a large model.
run_end highs_handle::run_or_abandon(incumbent& found) {
    using clock = std::chrono::steady_clock;
    instance_->status.reset();
    std::thread worker = start_thread([shared = instance_] { shared->run(); });
    std::unique_lock lock(instance_->mutex);
    clock::time_point give_up = clock::time_point::max();
    while (!instance_->wake.wait_for(lock, glance, [this] { return instance_->status.has_value(); })) {
        const std::optional<solve_progress> seen = instance_->progress;
        lock.unlock();
        if (seen) {
            watch_.report(*seen);
        }
        if (!instance_->stop && watch_.stop_requested()) {
            instance_->stop = true;
            give_up = clock::now() + patience;
        }
        lock.lock();
        if (clock::now() > give_up && !instance_->status) {
            found = instance_->found;
            lock.unlock();
            worker.detach();
            end_without_teardown();
            instance_ = std::make_shared<instance>();
            return run_end::abandoned;
        }
    }
    lock.unlock();
    worker.join();
    if (instance_->failure) {
        std::rethrow_exception(instance_->failure);
    }
    if (model_status() == memory_limit) {
        throw std::bad_alloc();
    }
    return *instance_->status == kHighsStatusError ? run_end::failed : run_end::finished;
}

void highs_handle::set_option(const char* name, double value) const {
    require(Highs_setDoubleOptionValue(get(), name, value), name);
}

void highs_handle::set_option(const char* name, int value) const {
    require(Highs_setIntOptionValue(get(), name, value), name);
}

void highs_handle::set_option(const char* name, bool value) const {
    require(Highs_setBoolOptionValue(get(), name, value ? 1 : 0), name);
}

void highs_handle::set_option(const char* name, const char* value) const {
    require(Highs_setStringOptionValue(get(), name, value), name);
}

double highs_handle::double_info(const char* name) const {
    double value = 0.0;
    require(Highs_getDoubleInfoValue(get(), name, &value), name);
    return value;
}

HighsInt highs_handle::int_info(const char* name) const {
    HighsInt value = 0;
    require(Highs_getIntInfoValue(get(), name, &value), name);
    return value;
}

}  // namespace solver
