#include "solver/highs_handle.hpp"

#include <stdexcept>

namespace solver {
namespace {

void require(HighsInt status, const char* what) {
    if (status == kHighsStatusError) {
        throw std::runtime_error(std::string("HiGHS refuses ") + what);
    }
}

}  // namespace

highs_handle::highs_handle(const solve_watch& watch) : highs_(Highs_create()), watch_(watch) {
    set_option("output_flag", false);
    set_option("threads", 1);
    set_option("parallel", "off");
    set_option("random_seed", 0);
    Highs_setCallback(highs_, &highs_handle::on_callback, this);
    for (const HighsInt type :
         {kHighsCallbackSimplexInterrupt, kHighsCallbackIpmInterrupt, kHighsCallbackMipInterrupt}) {
        Highs_startCallback(highs_, static_cast<int>(type));
    }
}

highs_handle::~highs_handle() {
    Highs_destroy(highs_);
}

void highs_handle::set_option(const char* name, double value) const {
    require(Highs_setDoubleOptionValue(highs_, name, value), name);
}

void highs_handle::set_option(const char* name, int value) const {
    require(Highs_setIntOptionValue(highs_, name, value), name);
}

void highs_handle::set_option(const char* name, bool value) const {
    require(Highs_setBoolOptionValue(highs_, name, value ? 1 : 0), name);
}

void highs_handle::set_option(const char* name, const char* value) const {
    require(Highs_setStringOptionValue(highs_, name, value), name);
}

double highs_handle::double_info(const char* name) const {
    double value = 0.0;
    require(Highs_getDoubleInfoValue(highs_, name, &value), name);
    return value;
}

HighsInt highs_handle::int_info(const char* name) const {
    HighsInt value = 0;
    require(Highs_getIntInfoValue(highs_, name, &value), name);
    return value;
}

void highs_handle::on_callback(int type, const char*, const HighsCallbackDataOut* out, HighsCallbackDataIn* in,
                               void* self) {
    const auto* handle = static_cast<const highs_handle*>(self);
    if (type == kHighsCallbackMipInterrupt) {
        handle->watch_.report({handle->stage, out->mip_primal_bound, out->mip_dual_bound});
    }
    if (handle->watch_.stop_requested()) {
        in->user_interrupt = 1;
    }
}

}  // namespace solver
