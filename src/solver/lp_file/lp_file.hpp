// A record as an LP file, laid out as CPLEX itself writes one.
#pragma once

#include <functional>
#include <iosfwd>
#include <string>

#include "solver/record/model_record.hpp"

namespace solver {

void write_lp(const model_record& record, std::ostream& out);

// Gives the system's reason when the file could not be completed, else nothing. A file
// that does not open is passed over. Once cut_requested, asked now and then, is true,
// what is written is taken away; the reason is then a signal, from which such wishes come.
std::string write_lp_file(
    const model_record& record, const char* path, const std::function<bool()>& cut_requested = [] { return false; });

}  // namespace solver
