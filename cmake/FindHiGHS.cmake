# Finds the HiGHS library and its C interface by path, because the CMake files of
# its binary package point at folders that the package does not hold.
#
# Looks first below HIGHS_ROOT (default: the environment variable of that name,
# else build/deps/highs of this project, where tools/setup unpacks it), then in
# the system's own places.
#
# Gives HiGHS_FOUND, HiGHS_VERSION, HiGHS_EXECUTABLE (may be missing) and the
# target HiGHS::HiGHS.

set(highs_root "$ENV{HIGHS_ROOT}")
if(NOT highs_root)
  set(highs_root "${PROJECT_SOURCE_DIR}/build/deps/highs")
endif()
set(HIGHS_ROOT "${highs_root}" CACHE PATH "Folder with HiGHS's lib, include and bin")

find_path(HiGHS_INCLUDE_DIR interfaces/highs_c_api.h HINTS ${HIGHS_ROOT}/include PATH_SUFFIXES highs)
find_library(HiGHS_LIBRARY highs HINTS ${HIGHS_ROOT}/lib)
find_program(HiGHS_EXECUTABLE highs HINTS ${HIGHS_ROOT}/bin)

if(HiGHS_INCLUDE_DIR AND EXISTS ${HiGHS_INCLUDE_DIR}/HConfig.h)
  file(READ ${HiGHS_INCLUDE_DIR}/HConfig.h highs_config)
  string(REGEX REPLACE ".*HIGHS_VERSION_MAJOR ([0-9]+).*" "\\1" highs_major "${highs_config}")
  string(REGEX REPLACE ".*HIGHS_VERSION_MINOR ([0-9]+).*" "\\1" highs_minor "${highs_config}")
  string(REGEX REPLACE ".*HIGHS_VERSION_PATCH ([0-9]+).*" "\\1" highs_patch "${highs_config}")
  set(HiGHS_VERSION ${highs_major}.${highs_minor}.${highs_patch})
endif()

include(FindPackageHandleStandardArgs)
find_package_handle_standard_args(HiGHS REQUIRED_VARS HiGHS_LIBRARY HiGHS_INCLUDE_DIR VERSION_VAR HiGHS_VERSION)

if(HiGHS_FOUND AND NOT TARGET HiGHS::HiGHS)
  add_library(HiGHS::HiGHS UNKNOWN IMPORTED)
  set_target_properties(HiGHS::HiGHS PROPERTIES
    IMPORTED_LOCATION ${HiGHS_LIBRARY}
    INTERFACE_INCLUDE_DIRECTORIES ${HiGHS_INCLUDE_DIR})
endif()
mark_as_advanced(HiGHS_INCLUDE_DIR HiGHS_LIBRARY HiGHS_EXECUTABLE)
