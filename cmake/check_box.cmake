# Runs one shell script in the gateway in a box and checks its output: every text of the
# .expect file (texts separated by lines "----") must appear, in that order.
# -DSOURCE_DIR -DBUILD_DIR -DSCRIPT (.gosh) -DEXPECT (.expect) [-DBOX_ARGS=<a,b>: more options]
string(REPLACE "," ";" BOX_ARGS "${BOX_ARGS}")
execute_process(
  COMMAND bash "${SOURCE_DIR}/scripts/gateway-box.sh" --no-build --build-dir "${BUILD_DIR}"
          ${BOX_ARGS} --script "${SCRIPT}"
  OUTPUT_VARIABLE out ERROR_VARIABLE out RESULT_VARIABLE rc TIMEOUT 120)
message("${out}")
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "the box exited with ${rc}")
endif()
file(READ "${EXPECT}" expected)
# Texts are split at the separator lines through a unit-separator character.
string(ASCII 31 separator)
string(REPLACE "\n----\n" "${separator}" expected "${expected}")
string(REGEX REPLACE "\n$" "" expected "${expected}")
string(REPLACE ";" "\\;" expected "${expected}")
string(REPLACE "${separator}" ";" expected "${expected}")
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
