// A record as an LP file, laid out as CPLEX itself writes one.
#pragma once

#include <iosfwd>

#include "solver/record/model_record.hpp"

namespace solver {

void write_lp(const model_record& record, std::ostream& out);

// Returns false when the file cannot be written; nothing is thrown or reported.
bool write_lp_file(const model_record& record, const char* path);

}  // namespace solver
