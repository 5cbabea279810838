#include "solver/cplex/cplex_library.hpp"

#include <dlfcn.h>

#include <sstream>
#include <stdexcept>

namespace solver::cplex {
namespace {

template <typename function>
void find(void* handle, const std::string& path, const char* name, function*& found) {
    found = reinterpret_cast<function*>(dlsym(handle, name));
    if (found == nullptr) {
        throw std::runtime_error(path + " is no CPLEX library, or too old a one: it lacks " + name);
    }
}

}  // namespace

library open_library(const std::string& path) {
    if (path.empty()) {
        throw std::runtime_error("the build names no CPLEX library (CPLEX_LIBRARY)");
    }
    // Never closed: a second solve gets the same handle.
    void* handle = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) {
        throw std::runtime_error("the CPLEX library cannot be opened: " + one_line(dlerror()));
    }
    library opened{};
    find(handle, path, "CPXopenCPLEX", opened.CPXopenCPLEX);
    find(handle, path, "CPXcloseCPLEX", opened.CPXcloseCPLEX);
    find(handle, path, "CPXversionnumber", opened.CPXversionnumber);
    find(handle, path, "CPXgeterrorstring", opened.CPXgeterrorstring);
    find(handle, path, "CPXgetstatstring", opened.CPXgetstatstring);
    find(handle, path, "CPXsetintparam", opened.CPXsetintparam);
    find(handle, path, "CPXsetdblparam", opened.CPXsetdblparam);
    find(handle, path, "CPXsetterminate", opened.CPXsetterminate);
    find(handle, path, "CPXcreateprob", opened.CPXcreateprob);
    find(handle, path, "CPXfreeprob", opened.CPXfreeprob);
    find(handle, path, "CPXnewcols", opened.CPXnewcols);
    find(handle, path, "CPXaddrows", opened.CPXaddrows);
    find(handle, path, "CPXchgrngval", opened.CPXchgrngval);
    find(handle, path, "CPXchgobjsen", opened.CPXchgobjsen);
    find(handle, path, "CPXchgobjoffset", opened.CPXchgobjoffset);
    find(handle, path, "CPXcopyorder", opened.CPXcopyorder);
    find(handle, path, "CPXcallbacksetfunc", opened.CPXcallbacksetfunc);
    find(handle, path, "CPXcallbackgetinfodbl", opened.CPXcallbackgetinfodbl);
    find(handle, path, "CPXmipopt", opened.CPXmipopt);
    find(handle, path, "CPXlpopt", opened.CPXlpopt);
    find(handle, path, "CPXgetstat", opened.CPXgetstat);
    find(handle, path, "CPXgetobjval", opened.CPXgetobjval);
    find(handle, path, "CPXgetbestobjval", opened.CPXgetbestobjval);
    find(handle, path, "CPXgetx", opened.CPXgetx);
    return opened;
}

std::string one_line(const std::string& text) {
    std::istringstream words(text);
    std::string line;
    for (std::string word; words >> word;) {
        line += (line.empty() ? "" : " ") + word;
    }
    return line;
}

}  // namespace solver::cplex
