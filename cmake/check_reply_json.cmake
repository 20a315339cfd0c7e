# Runs the unit tests with a reply transcript and fails unless every reply that starts with
# '{' is valid JSON (the hardened profile's promise).
#   cmake -DTESTS=... -DCHECKER=... -DOUT=file -P check_reply_json.cmake
file(REMOVE "${OUT}")
set(ENV{BUNDLE_REPLY_TRANSCRIPT} "${OUT}")
execute_process(COMMAND "${TESTS}" --gtest_brief=1 RESULT_VARIABLE rc OUTPUT_QUIET)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "unit tests failed while transcribing")
endif()
execute_process(COMMAND "${CHECKER}" "${OUT}" RESULT_VARIABLE rc)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "replies that are not valid JSON (see above)")
endif()
