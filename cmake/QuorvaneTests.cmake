# The environment of tests that open a window. Graphics drivers leak, and are unloaded before the leak check, so that
# no suppression could name them.
set(QUORVANE_GUI_ENVIRONMENT "ASAN_OPTIONS=detect_leaks=0")

# Takes a screen for the command behind it; waits for one while other tests have them all.
set(QUORVANE_ON_A_SCREEN "${PROJECT_SOURCE_DIR}/tests/support/gui/on_a_screen")

# quorvane_on_a_screen(TARGET): tests run the program on a screen of its own.
function(quorvane_on_a_screen target)
  # An emulator is what ctest puts in front of a program.
  set_target_properties(${target} PROPERTIES CROSSCOMPILING_EMULATOR "${QUORVANE_ON_A_SCREEN}")
endfunction()

# quorvane_tests(NAME LABEL SOURCES... LINK libraries...)
# A GoogleTest program of one folder, and a test of ctest for each of its cases.
# LABEL: unit, reference, validation, speed or gui. Each case of a gui program has a screen to itself while it runs,
# each of a speed program the whole machine.
function(quorvane_tests name label)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LINK} quorvane_options GTest::gmock GTest::gtest)
  if(label STREQUAL "gui")
    quorvane_precompile(${name} <gmock/gmock.h> <gtest/gtest.h> <QtWidgets/QtWidgets> <QtTest/QtTest>)
  else()
    target_link_libraries(${name} PRIVATE GTest::gtest_main)
    quorvane_precompile(${name} <gmock/gmock.h> <gtest/gtest.h>)
  endif()
  # Compiling these tests takes longer than running them, and their run time is spent in the libraries.
  if(label MATCHES "^(unit|gui)$")
    target_compile_options(${name} PRIVATE -O0)
  endif()
  # Sanitizers make tests ten times as slow.
  set(timeout 300)
  if(QUORVANE_SANITIZE)
    set(timeout 900)
  endif()
  set(properties LABELS "${label}" TIMEOUT ${timeout})
  if(label STREQUAL "gui")
    quorvane_on_a_screen(${name})
    list(APPEND properties ENVIRONMENT "${QUORVANE_GUI_ENVIRONMENT}")
  elseif(label STREQUAL "speed")
    list(APPEND properties RUN_SERIAL TRUE)
  elseif(label STREQUAL "validation")
    # A minute and a half, ten times that in a build without optimisation.
    list(APPEND properties TIMEOUT 1800)
  endif()
  gtest_discover_tests(${name}
    DISCOVERY_MODE PRE_TEST
    DISCOVERY_TIMEOUT 60
    PROPERTIES ${properties})
endfunction()
