// CPLEX's Callable Library, opened at run time: a build needs neither a header
// nor a library of the vendor's. Declared here are the documented functions and
// constants that the back end uses, under their own names.
#pragma once

#include <string>

namespace solver::cplex {

struct environment;       // what a CPXENVptr points to
struct problem;           // what a CPXLPptr points to
struct callback_context;  // what a CPXCALLBACKCONTEXTptr points to
using callback_function = int(callback_context*, long long context, void* user);

// The oldest release that has all of the functions below: 12.8.0.0.
inline constexpr int oldest_version = 12080000;

inline constexpr int error_string_size = 4096;  // CPXMESSAGEBUFSIZE and then some
inline constexpr double infinite = 1e20;        // CPX_INFBOUND
inline constexpr int minimize = 1;              // CPX_MIN
inline constexpr int maximize = -1;             // CPX_MAX

enum parameter {
    lp_method = 1062,           // CPXPARAM_LPMethod
    work_memory = 1065,         // CPXPARAM_WorkMem, megabytes
    threads = 1067,             // CPXPARAM_Threads
    parallel_mode = 1109,       // CPXPARAM_Parallel, 1 = deterministic
    random_seed = 1124,         // CPXPARAM_RandomSeed
    absolute_gap = 2008,        // CPXPARAM_MIP_Tolerances_AbsMIPGap
    relative_gap = 2009,        // CPXPARAM_MIP_Tolerances_MIPGap
    integrality = 2010,         // CPXPARAM_MIP_Tolerances_Integrality
    start_algorithm = 2025,     // CPXPARAM_MIP_Strategy_StartAlgorithm
    variable_selection = 2028,  // CPXPARAM_MIP_Strategy_VariableSelect
    dive_type = 2060,           // CPXPARAM_MIP_Strategy_Dive
};

enum callback_constant {
    info_best_solution = 3,        // CPXCALLBACKINFO_BEST_SOL
    info_best_bound = 4,           // CPXCALLBACKINFO_BEST_BND
    context_global_progress = 16,  // CPX_CALLBACKCONTEXT_GLOBAL_PROGRESS
};

struct library {
    environment* (*CPXopenCPLEX)(int* status);
    int (*CPXcloseCPLEX)(environment**);
    int (*CPXversionnumber)(const environment*, int* version);
    const char* (*CPXgeterrorstring)(const environment*, int code, char* buffer);
    char* (*CPXgetstatstring)(const environment*, int status, char* buffer);
    int (*CPXsetintparam)(environment*, int parameter, int value);
    int (*CPXsetdblparam)(environment*, int parameter, double value);
    int (*CPXsetterminate)(environment*, volatile int* flag);

    problem* (*CPXcreateprob)(const environment*, int* status, const char* name);
    int (*CPXfreeprob)(const environment*, problem**);
    int (*CPXnewcols)(const environment*, problem*, int count, const double* objective, const double* lower,
                      const double* upper, const char* type, char** name);
    int (*CPXaddrows)(const environment*, problem*, int column_count, int row_count, int nonzero_count,
                      const double* right_side, const char* sense, const int* start, const int* column,
                      const double* value, char** column_name, char** row_name);
    int (*CPXchgrngval)(const environment*, problem*, int count, const int* row, const double* range);
    int (*CPXchgobjsen)(const environment*, problem*, int sense);
    int (*CPXchgobjoffset)(const environment*, problem*, double offset);
    int (*CPXcopyorder)(const environment*, problem*, int count, const int* column, const int* priority,
                        const int* direction);

    int (*CPXcallbacksetfunc)(environment*, problem*, long long contexts, callback_function*, void* user);
    int (*CPXcallbackgetinfodbl)(callback_context*, int what, double* value);
    int (*CPXmipopt)(environment*, problem*);
    int (*CPXlpopt)(environment*, problem*);
    int (*CPXgetstat)(const environment*, const problem*);
    int (*CPXgetobjval)(const environment*, const problem*, double* value);
    int (*CPXgetbestobjval)(const environment*, const problem*, double* value);
    int (*CPXgetx)(const environment*, const problem*, double* values, int first, int last);
};

// Throws std::runtime_error with a reason of one line when the file cannot be
// opened or lacks a function.
library open_library(const std::string& path);

// Text with its line ends and runs of blanks made single blanks.
std::string one_line(const std::string& text);

}  // namespace solver::cplex
