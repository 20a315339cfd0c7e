# The jvm.capture-state test: the console (bundlesc.console.BridgeConsole) against a captured
# gateway through BRELO_SIM_STATE.
#   cmake -DJAVA= -DCLASSPATH= -DLIBDIR= -DPRELOAD= -DSTATE=<capture folder>
#         -DQUERIES=<batch of query natives> -DSESSION=<batch of a whole session>
#         -P check_capture_replay.cmake
cmake_minimum_required(VERSION 3.25)

function(console batch state out_var)
  if(state)
    set(env BRELO_SIM_STATE=${state})
  else()
    set(env --unset=BRELO_SIM_STATE)
  endif()
  execute_process(
    COMMAND ${CMAKE_COMMAND} -E env ${env} BRELO_SIM_SAVE= LD_PRELOAD=${PRELOAD}
            "${JAVA}" -Xcheck:jni -Djava.library.path=${LIBDIR} -cp "${CLASSPATH}"
            bundlesc.console.BridgeConsole --batch "${batch}"
    RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "capture replay: the console exited with ${rc} on ${batch} (state ${state}):\n${out}\n${err}")
  endif()
  set(${out_var} "${out}" PARENT_SCOPE)
endfunction()

console("${QUERIES}" "" gateway)
console("${QUERIES}" "${STATE}" captured)
if(NOT gateway STREQUAL captured)
  file(WRITE "${STATE}.gateway.txt" "${gateway}")
  file(WRITE "${STATE}.captured.txt" "${captured}")
  message(FATAL_ERROR "capture replay: the console's replies differ between the gateway and its "
                      "capture (${STATE}.gateway.txt, ${STATE}.captured.txt)")
endif()
string(REGEX MATCHALL "\"Result\":0" answered "${captured}")
list(LENGTH answered n)
message(STATUS "the same ${n} successful replies (and the others) from the gateway and its capture")
if(n LESS 30)
  message(FATAL_ERROR "capture replay: only ${n} replies with Result 0:\n${captured}")
endif()

# The whole demo session, setters included, against the capture: every line answered.
console("${SESSION}" "${STATE}" session)
message(STATUS "the demo session against the capture:\n${session}")
