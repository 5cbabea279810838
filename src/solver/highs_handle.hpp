// One HiGHS instance with the settings that every use of it here shares: silent,
// one thread, a fixed seed, and open to interruption.
#pragma once

#include <string>

#include <interfaces/highs_c_api.h>

#include "solver/back_end.hpp"

namespace solver {

class highs_handle {
 public:
    // The watch must outlive the handle.
    explicit highs_handle(const solve_watch& watch);
    ~highs_handle();
    highs_handle(const highs_handle&) = delete;
    highs_handle& operator=(const highs_handle&) = delete;

    void* get() const { return highs_; }
    void set_option(const char* name, double value) const;
    void set_option(const char* name, int value) const;
    void set_option(const char* name, bool value) const;
    void set_option(const char* name, const char* value) const;

    double double_info(const char* name) const;
    HighsInt int_info(const char* name) const;

    // The status of the last run, and a word for it.
    HighsInt model_status() const { return Highs_getModelStatus(highs_); }

    // What progress reports name as the stage while this handle runs.
    const char* stage = "solve";

 private:
    static void on_callback(int type, const char* message, const HighsCallbackDataOut* out, HighsCallbackDataIn* in,
                            void* self);
    void* highs_;
    const solve_watch& watch_;
};

}  // namespace solver
