// A library that has the functions of CPLEX's by name and does what the two
// failures before any solve need: it finds no licence, or is too old.
#include <cstring>

extern "C" {

const char* CPXgeterrorstring(const void*, int, char* buffer) {
    return std::strcpy(buffer, "CPLEX Error 32201: no licence\n  was found.\n");
}

void* CPXopenCPLEX(int* status) {
    static int environment;
    *status = STAND_IN_VERSION == 0 ? 32201 : 0;
    return STAND_IN_VERSION == 0 ? nullptr : &environment;
}

int CPXversionnumber(const void*, int* version) {
    *version = STAND_IN_VERSION;
    return 0;
}

int CPXcloseCPLEX(void** environment) {
    *environment = nullptr;
    return 0;
}

#define NEVER_CALLED(a, b, c, d, e) \
    void CPX##a() {}                \
    void CPX##b() {}                \
    void CPX##c() {}                \
    void CPX##d() {}                \
    void CPX##e() {}
NEVER_CALLED(getstatstring, setintparam, setdblparam, setterminate, createprob)
NEVER_CALLED(freeprob, newcols, addrows, chgrngval, chgobjsen)
NEVER_CALLED(chgobjoffset, copyorder, callbacksetfunc, callbackgetinfodbl, mipopt)
NEVER_CALLED(lpopt, getstat, getobjval, getbestobjval, getx)
}
