# quorvane_tests(NAME LABEL SOURCES... LINK libraries... [ENVIRONMENT VAR=value...])
# A GoogleTest program of one folder, and a test of ctest for each of its cases.
# LABEL: unit, reference, gui or slow. Cases of a gui program need a display.
function(quorvane_tests name label)
  cmake_parse_arguments(arg "" "" "SOURCES;LINK;ENVIRONMENT" ${ARGN})
  add_executable(${name} ${arg_SOURCES})
  target_link_libraries(${name} PRIVATE ${arg_LINK} quorvane_options GTest::gmock GTest::gtest)
  if(NOT label STREQUAL "gui")
    target_link_libraries(${name} PRIVATE GTest::gtest_main)
  endif()
  # Windows on one screen take each other's focus, so only one program has it at a time.
  set(locks "")
  if(label STREQUAL "gui")
    set(locks RESOURCE_LOCK display)
  endif()
  gtest_discover_tests(${name}
    DISCOVERY_MODE PRE_TEST
    DISCOVERY_TIMEOUT 60
    PROPERTIES LABELS "${label}" TIMEOUT 300 ENVIRONMENT "${arg_ENVIRONMENT}" ${locks})
endfunction()
