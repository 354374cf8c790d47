# The compile options of all targets, and the function that declares a library.

if(NOT CMAKE_BUILD_TYPE AND NOT CMAKE_CONFIGURATION_TYPES)
  set(CMAKE_BUILD_TYPE Release CACHE STRING "" FORCE)
endif()

find_program(CCACHE_PROGRAM ccache)
if(CCACHE_PROGRAM AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  # Without this setting ccache does not cache files that use a precompiled header.
  set(CMAKE_CXX_COMPILER_LAUNCHER
    "${CMAKE_COMMAND}" -E env CCACHE_SLOPPINESS=pch_defines,time_macros "${CCACHE_PROGRAM}")
endif()

set(CMAKE_EXPORT_COMPILE_COMMANDS ON)
include(QuorvanePrecompiled)
find_package(Threads REQUIRED)

add_library(quorvane_options INTERFACE)
target_compile_features(quorvane_options INTERFACE cxx_std_20)
set_target_properties(quorvane_options PROPERTIES INTERFACE_POSITION_INDEPENDENT_CODE ON)
# Results must be the same on every machine with the same exp: no contraction of a*b+c into one rounding.
target_compile_options(quorvane_options INTERFACE
  -ffp-contract=off -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
if(QUORVANE_SANITIZE)
  # No -Werror here: with sanitizers GCC gives false warnings about overruns.
  target_compile_options(quorvane_options INTERFACE
    -fsanitize=${QUORVANE_SANITIZE} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(quorvane_options INTERFACE -fsanitize=${QUORVANE_SANITIZE})
elseif(QUORVANE_WERROR)
  target_compile_options(quorvane_options INTERFACE -Werror)
endif()

include(QuorvaneHardening)

# quorvane_library(NAME SOURCES... [LINK libraries...])
# A static library of one folder. Its headers are in NAME/include, which only targets that link it can include.
function(quorvane_library name)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_library(${name} STATIC ${arg_SOURCES})
  target_include_directories(${name} PUBLIC include PRIVATE src)
  target_link_libraries(${name} PUBLIC ${arg_LINK} PRIVATE quorvane_options quorvane_hardening)
  if(QUORVANE_SANITIZE AND arg_LINK MATCHES "Qt6::Widgets|view")
    quorvane_precompile(${name} <QtWidgets/QtWidgets>)
  elseif(QUORVANE_SANITIZE)
    quorvane_precompile(${name})
  endif()
endfunction()
