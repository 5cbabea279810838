// A record as an LP file, laid out as CPLEX itself writes one.
#pragma once

#include <iosfwd>
#include <string>

#include "solver/record/model_record.hpp"

namespace solver {

void write_lp(const model_record& record, std::ostream& out);

// Gives the system's reason when the file could not be completed, else nothing. A file
// that does not open is passed over.
std::string write_lp_file(const model_record& record, const char* path);

}  // namespace solver
