#include <cstdlib>
#include <iostream>

#include "driver/run.hpp"

int main(int argc, char** argv) {
    const int status = run(argc, argv);
#ifndef __SANITIZE_ADDRESS__
    // All files are closed. To take graphs and model down node by node would be a
    // tenth of the run, for memory that the system takes back as a whole. Only a build
    // that looks for leaks ends the long way, to see what nobody holds any more.
    std::cout.flush();
    std::_Exit(status);
#endif
    return status;
}
