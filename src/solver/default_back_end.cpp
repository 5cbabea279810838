#include "solver/back_end.hpp"

namespace solver {

back_end_function default_back_end() {
    return search_with_highs;
}

}  // namespace solver
