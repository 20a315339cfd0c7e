# Runs shell commands in the gateway in a box and checks its output: every text of the .expect
# file (texts separated by lines "----") must appear, in that order.
# -DSOURCE_DIR -DBUILD_DIR -DSCRIPT (.gosh: run as a script; .typed: typed at the prompt, the
# input kept open as a person's terminal is, so the session ends by its own commands)
# -DEXPECT (.expect). The box starts in a folder where build-demo is this build, so commands
# can use the paths the README gives (file:build-demo/osgi/samples/lanhosts.jar).
# Lines of the .expect file starting with "#! " say more: "#! exit N" the exit status (else 0),
# "#! absent TEXT" a text the output must not hold. [-DBOX_ARGS=<a,b>: more options of the box]
string(REPLACE "," ";" BOX_ARGS "${BOX_ARGS}")
set(cwd "${BUILD_DIR}/osgi/box/cwd")
file(MAKE_DIRECTORY "${cwd}")
if(NOT EXISTS "${cwd}/build-demo")
  file(CREATE_LINK "${BUILD_DIR}" "${cwd}/build-demo" SYMBOLIC)
endif()
set(box bash "${SOURCE_DIR}/scripts/gateway-box.sh" --no-build --build-dir "${BUILD_DIR}" ${BOX_ARGS})
if(SCRIPT MATCHES "\\.typed$")
  # A blank line a second after the typed ones, until the box has gone.
  execute_process(
    COMMAND bash -c "{ cat \"$0\"; while sleep 1; do echo; done; } 2>/dev/null | \"$@\"" "${SCRIPT}" ${box}
    WORKING_DIRECTORY "${cwd}" OUTPUT_VARIABLE out ERROR_VARIABLE out RESULT_VARIABLE rc TIMEOUT 120)
else()
  execute_process(COMMAND ${box} --script "${SCRIPT}"
    WORKING_DIRECTORY "${cwd}" OUTPUT_VARIABLE out ERROR_VARIABLE out RESULT_VARIABLE rc TIMEOUT 120)
endif()
message("${out}")

file(STRINGS "${EXPECT}" directives REGEX "^#! ")
set(status 0)
foreach(d IN LISTS directives)
  if(d MATCHES "^#! exit ([0-9]+)$")
    set(status ${CMAKE_MATCH_1})
  elseif(d MATCHES "^#! absent (.+)$")
    string(FIND "${out}" "${CMAKE_MATCH_1}" at)
    if(NOT at EQUAL -1)
      message(FATAL_ERROR "the output holds what it must not:\n${CMAKE_MATCH_1}")
    endif()
  else()
    message(FATAL_ERROR "${EXPECT}: unknown line ${d}")
  endif()
endforeach()
if(NOT rc EQUAL status)
  message(FATAL_ERROR "the box exited with ${rc}, not ${status}")
endif()

file(READ "${EXPECT}" expected)
string(REGEX REPLACE "(^|\n)#! [^\n]*" "" expected "${expected}")
string(REGEX REPLACE "^\n+" "" expected "${expected}")
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
