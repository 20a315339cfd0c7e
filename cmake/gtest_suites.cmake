# Writes OUT: one add_test per GoogleTest suite of PROGRAM (see BundleGTest.cmake).
# Inputs: PROGRAM, EMULATOR (a list, may be empty), PREFIX, LOCK (may be empty), OUT, REPORTS.
execute_process(COMMAND ${EMULATOR} "${PROGRAM}" --gtest_list_tests
                OUTPUT_VARIABLE listing RESULT_VARIABLE rc ERROR_VARIABLE err TIMEOUT 300)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "${PROGRAM} --gtest_list_tests failed (${rc}): ${err}")
endif()

# Suite lines start in the first column and end with '.', optionally followed by a comment
# ("  # TypeParam = ..."); case lines are indented.
string(REPLACE ";" "\\;" listing "${listing}")
string(REPLACE "\n" ";" lines "${listing}")
set(suites "")
foreach(line IN LISTS lines)
  if(line MATCHES "^([^ #][^ ]*)\\.( |$)")
    list(APPEND suites "${CMAKE_MATCH_1}")
  endif()
endforeach()
list(REMOVE_DUPLICATES suites)
list(LENGTH suites count)
if(count EQUAL 0)
  message(FATAL_ERROR "${PROGRAM} lists no test suite")
endif()

set(out "# Generated after each build of ${PROGRAM}: one test per suite.\n")
foreach(suite IN LISTS suites)
  set(name "${PREFIX}${suite}")
  string(REPLACE "/" "_" report "${name}")
  set(cmd "")
  foreach(word IN LISTS EMULATOR)
    string(APPEND cmd " [==[${word}]==]")
  endforeach()
  string(APPEND out "add_test([==[${name}]==]${cmd} [==[${PROGRAM}]==] "
                    "[==[--gtest_filter=${suite}.*]==] "
                    "[==[--gtest_output=xml:${REPORTS}/${report}.xml]==])\n")
  if(LOCK)
    string(APPEND out "set_tests_properties([==[${name}]==] PROPERTIES RESOURCE_LOCK [==[${LOCK}]==])\n")
  endif()
endforeach()

# Rewritten only when the suites change, so ctest's file stays put between identical builds.
set(old "")
if(EXISTS "${OUT}")
  file(READ "${OUT}" old)
endif()
if(NOT old STREQUAL out)
  file(WRITE "${OUT}" "${out}")
endif()
