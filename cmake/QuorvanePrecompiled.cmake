# Precompiled headers of libraries that nearly every file of a target includes. Parsing them takes most of the time
# of compiling.
#
# Builds without sanitizers compile the libraries without them, so that a missing include is an error there and
# clang-tidy can use the compile commands.

option(QUORVANE_PRECOMPILED "Precompile headers for the tests, and for the libraries where they are only tested" ON)

# quorvane_precompile(TARGET [HEADERS...])
function(quorvane_precompile target)
  if(NOT QUORVANE_PRECOMPILED)
    return()
  endif()
  set(headers <algorithm> <filesystem> <functional> <memory> <string> <vector> ${ARGN})
  list(TRANSFORM headers REPLACE ".+" "$<$<COMPILE_LANGUAGE:CXX>:\\0>")
  target_precompile_headers(${target} PRIVATE ${headers})
endfunction()
