# One ctest entry per GoogleTest suite instead of one per test case.
#
# Starting a test program costs more than most of its test cases (a whole qemu-mips start in
# the MIPS tier), so each suite runs in one process: `<prefix><Suite>` runs
# `<program> --gtest_filter=<Suite>.*`. A failing entry prints GoogleTest's own report, which
# names every failed case; each entry also writes a JUnit XML report under
# <build>/test-reports/. One case alone: `<program> --gtest_filter=<Suite>.<Case>`.
#
# The suites are listed after every build of the program (under the target's emulator when
# cross-compiling), like gtest_discover_tests does for cases.

function(bundle_add_gtest_suites target)
  cmake_parse_arguments(arg "" "PREFIX;RESOURCE_LOCK" "" ${ARGN})
  set(list_file "${CMAKE_CURRENT_BINARY_DIR}/${target}_suites.cmake")
  set(emulator "")
  if(CMAKE_CROSSCOMPILING AND CMAKE_CROSSCOMPILING_EMULATOR)
    set(emulator "${CMAKE_CROSSCOMPILING_EMULATOR}")
  endif()
  add_custom_command(TARGET ${target} POST_BUILD
    COMMAND ${CMAKE_COMMAND} -DPROGRAM=$<TARGET_FILE:${target}> "-DEMULATOR=${emulator}"
            -DPREFIX=${arg_PREFIX} -DLOCK=${arg_RESOURCE_LOCK} -DOUT=${list_file}
            -DREPORTS=${CMAKE_BINARY_DIR}/test-reports
            -P "${CMAKE_SOURCE_DIR}/cmake/gtest_suites.cmake"
    BYPRODUCTS "${list_file}"
    VERBATIM)
  # The file exists only after the first build; ctest reads it when present.
  set_property(DIRECTORY APPEND PROPERTY TEST_INCLUDE_FILES "${list_file}")
endfunction()
