# Headers that many files include, compiled once for all of them: to read them anew
# for every file is half of the time that a build takes. Every file includes what it
# uses all the same; the contributors' checks read each without this.

set(shared_headers
  <algorithm> <array> <atomic> <charconv> <chrono> <cmath> <condition_variable> <cstddef> <cstdint> <cstdio>
  <cstdlib> <cstring> <exception> <fstream> <functional> <iostream> <limits> <map> <memory> <mutex> <numeric>
  <optional> <set> <sstream> <stdexcept> <string> <string_view> <system_error> <thread> <tuple> <unordered_map>
  <utility> <vector>
  <boost/graph/adjacency_list.hpp> <boost/graph/filtered_graph.hpp> <boost/range/iterator_range.hpp>)

# Makes the target NAME, which holds nothing but the compiled headers.
function(make_shared_headers name libraries)
  set(source ${PROJECT_BINARY_DIR}/generated/${name}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "// Holds nothing: there only for the headers compiled with it.\n")
  add_library(${name} OBJECT ${source})
  target_link_libraries(${name} PRIVATE ${libraries})
  target_precompile_headers(${name} PRIVATE ${ARGN})
endfunction()

# Gives them to all libraries and programs of a folder and the folders below it that
# have none yet.
function(share_headers_below folder name)
  get_property(targets DIRECTORY ${folder} PROPERTY BUILDSYSTEM_TARGETS)
  foreach(target ${targets})
    get_target_property(type ${target} TYPE)
    get_target_property(has_headers ${target} PRECOMPILE_HEADERS_REUSE_FROM)
    if(type MATCHES "^(STATIC_LIBRARY|EXECUTABLE)$" AND NOT has_headers)
      target_precompile_headers(${target} REUSE_FROM ${name})
    endif()
  endforeach()
  get_property(folders DIRECTORY ${folder} PROPERTY SUBDIRECTORIES)
  foreach(below ${folders})
    share_headers_below(${below} ${name})
  endforeach()
endfunction()
