// One HiGHS instance with the settings that every use of it here shares: silent,
// one thread, a fixed seed, and open to interruption.
#pragma once

#include <memory>
#include <vector>

#include <interfaces/highs_c_api.h>

#include "solver/record/back_end.hpp"

namespace solver {

enum class run_end { finished, failed, abandoned };

// The best that a run has found.
struct incumbent {
    std::vector<double> values;  // empty = none
    double objective = 0.0;
    double bound = infinity;
};

class highs_handle {
 public:
    // The watch must outlive the handle.
    explicit highs_handle(const solve_watch& watch);
    ~highs_handle();
    highs_handle(const highs_handle&) = delete;
    highs_handle& operator=(const highs_handle&) = delete;

    void* get() const;
    void set_option(const char* name, double value) const;
    void set_option(const char* name, int value) const;
    void set_option(const char* name, bool value) const;
    void set_option(const char* name, const char* value) const;

    // Runs what was passed, on a thread of its own, while this one talks to the watch.
    // A run that goes on although it was asked to stop is abandoned; the handle then
    // holds an empty instance.
    run_end run();
    // The same, and tells what the run has found, also when it was abandoned. A bound is
    // proven only by a run that finished, and only for an integer program.
    run_end run(incumbent& found);

    double double_info(const char* name) const;
    HighsInt int_info(const char* name) const;
    HighsInt model_status() const { return Highs_getModelStatus(get()); }  // of the last run

 private:
    struct instance;
    run_end run_or_abandon(incumbent& found);
    std::shared_ptr<instance> instance_;
    const solve_watch& watch_;
};

}  // namespace solver
