# Which solver the program uses, and where CPLEX is.
#
# NETORIENT_SOLVER              highs (default) or cplex; both are always built in.
# CPLEX_LIBRARY                 path of the shared library libcplexXXXX.so, opened
#                               when a solve needs it.
# NETORIENT_TEST_CPLEX_LIBRARY  the one that the tests use; without any the tests
#                               against CPLEX are left out.

set(NETORIENT_SOLVER highs CACHE STRING "Solver that the program uses: highs or cplex")
set_property(CACHE NETORIENT_SOLVER PROPERTY STRINGS highs cplex)
set(CPLEX_LIBRARY "" CACHE FILEPATH "CPLEX's shared library, libcplexXXXX.so")
set(NETORIENT_TEST_CPLEX_LIBRARY "" CACHE FILEPATH
  "CPLEX's shared library for the tests; empty: build/deps/cplex/libcplex2220.so if it is there, else CPLEX_LIBRARY")

if(NOT NETORIENT_SOLVER MATCHES "^(highs|cplex)$")
  message(FATAL_ERROR "NETORIENT_SOLVER is \"${NETORIENT_SOLVER}\", neither highs nor cplex")
endif()
if(NETORIENT_SOLVER STREQUAL "cplex" AND NOT CPLEX_LIBRARY)
  message(FATAL_ERROR "NETORIENT_SOLVER=cplex needs CPLEX_LIBRARY, the path of libcplexXXXX.so")
endif()
