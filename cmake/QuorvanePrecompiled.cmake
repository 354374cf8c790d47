# Headers of libraries that nearly every file of a target includes, parsed once for each target. Reading them is
# most of what compiling takes here.
#
# The libraries are built without in a build for use, which shows that each file includes what it needs, and gives
# clang-tidy commands that it can follow.

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
