// Holds the tables in output folders to one another, and says what does not hold.
//
//   check_tables FOLDER...
#include <iostream>

#include "answer/check_tables.hpp"

int main(int argc, char** argv) {
    bool holds = true;
    for (int i = 1; i < argc; ++i) {
        const checked_tables checked = check_tables(argv[i]);
        std::cout << argv[i] << ": " << checked.interactions << " interactions, " << checked.pairs << " pairs, "
                  << checked.explained << " explained, " << checked.unproven << " ranges not closed, "
                  << checked.faults.size() << " faults\n";
        for (std::size_t f = 0; f < checked.faults.size() && f < 10; ++f) {
            std::cout << "  " << checked.faults[f] << '\n';
        }
        holds = holds && checked.faults.empty();
    }
    return holds ? 0 : 1;
}
