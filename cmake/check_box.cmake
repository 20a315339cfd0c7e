# Runs one shell script in the gateway in a box and checks its output: every text of the
# .expect file (texts separated by lines "----") must appear, in that order.
# -DSOURCE_DIR -DBUILD_DIR -DSCRIPT (.gosh) -DEXPECT (.expect)
execute_process(
  COMMAND bash "${SOURCE_DIR}/scripts/gateway-box.sh" --no-build --build-dir "${BUILD_DIR}"
          --script "${SCRIPT}"
  OUTPUT_VARIABLE out ERROR_VARIABLE out RESULT_VARIABLE rc TIMEOUT 150)
message("${out}")
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "the box exited with ${rc}")
endif()
file(READ "${EXPECT}" expected)
string(REPLACE "\n----\n" "\x1f" expected "${expected}")
string(REGEX REPLACE "\n$" "" expected "${expected}")
string(REPLACE ";" "\\;" expected "${expected}")
string(REPLACE "\x1f" ";" expected "${expected}")
set(rest "${out}")
foreach(text IN LISTS expected)
  string(FIND "${rest}" "${text}" at)
  if(at EQUAL -1)
    message(FATAL_ERROR "not found (after the texts before it):\n${text}")
  endif()
  string(LENGTH "${text}" length)
  math(EXPR at "${at} + ${length}")
  string(SUBSTRING "${rest}" ${at} -1 rest)
endforeach()
