// Names as an LP file may hold them.
#pragma once

#include <string>
#include <string_view>

#include "solver/record/name_list.hpp"

namespace solver {

// Legal, distinct names for rows or columns: prefix ('c' or 'x') and number for an
// unnamed one; if any name is illegal or repeats, every one gets '#' and its position.
// Only those of named items are kept; the others are made when they are asked for.
class lp_names {
 public:
    lp_names(const name_list& names, char prefix);
    std::size_t size() const { return legal_.size(); }
    // Valid until the next call.
    std::string_view operator[](std::size_t index) const;

 private:
    char prefix_;
    bool tagged_;
    name_list legal_;
    mutable char made_[48];
};

}  // namespace solver
