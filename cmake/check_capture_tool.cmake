# The <tier>capture test: bundle_sc-capture as a command against the simulator. Its usage and
# its refusals (exit status and message), then a capture of the default simulated gateway,
# timed (best of three runs), whose folder the JVM and box tests replay; the run time is added
# to the size record of the build (capture-size.txt), and both are printed.
#   cmake -DTOOL=<bundle_sc-capture> [-DEMULATOR=<a,b,...>] -DOUT=<folder of the capture>
#         -DREPORT=<capture-size.txt> -DTIER=<prefix> -DVERSION=<project version>
#         -P check_capture_tool.cmake

cmake_minimum_required(VERSION 3.25)
string(REPLACE "," ";" EMULATOR "${EMULATOR}")
# The default gateway as shipped: no saved tree read, no call log kept.
set(ENV{BRELO_SIM_SAVE} "")
set(ENV{BRELO_SIM_LOG} "off")
unset(ENV{BRELO_SIM_STATE})

set(failures "")
function(run expected_rc expected_text)
  execute_process(COMMAND ${EMULATOR} "${TOOL}" ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out
                  ERROR_VARIABLE err)
  string(FIND "${out}${err}" "${expected_text}" at)
  if(NOT rc EQUAL expected_rc OR at LESS 0)
    set(failures "${failures}  bundle_sc-capture ${ARGN}: exit ${rc} (expected ${expected_rc}), "
        "output without \"${expected_text}\":\n${out}${err}\n" PARENT_SCOPE)
  endif()
endfunction()

get_filename_component(work "${OUT}" DIRECTORY)
file(REMOVE_RECURSE "${work}")
file(MAKE_DIRECTORY "${work}")
run(0 "usage: bundle_sc-capture [--with-secrets] [--anonymize] FOLDER" --help)
run(0 "bundle_sc-capture ${VERSION}\n" --version)
run(2 "bundle_sc-capture: no folder given")
run(2 "bundle_sc-capture: unknown option --secrets" --secrets "${work}/x")
run(2 "bundle_sc-capture: one folder only" "${work}/x" "${work}/y")
file(WRITE "${work}/a-file" "")
run(1 "bundle_sc-capture: cannot create the folder ${work}/a-file/gw.partial-XXXXXX (for ${work}/a-file/gw): Not a directory"
    "${work}/a-file/gw")
file(MAKE_DIRECTORY "${work}/taken")
file(WRITE "${work}/taken/keep" "")
run(1 "bundle_sc-capture: ${work}/taken already exists" "${work}/taken")

# The default gateway, three times: the best run time is recorded.
set(best "")
foreach(i 1 2 3)
  file(REMOVE_RECURSE "${OUT}")
  string(TIMESTAMP t0 "%s%f" UTC)
  execute_process(COMMAND ${EMULATOR} "${TOOL}" --with-secrets "${OUT}" RESULT_VARIABLE rc
                  ERROR_VARIABLE err)
  string(TIMESTAMP t1 "%s%f" UTC)
  if(NOT rc EQUAL 0 OR NOT err MATCHES "captured Lumarest HGU-2000 FW3.4.10, MAC 00:1A:2B:3C:4D:5E into ")
    message(FATAL_ERROR "capture: the default gateway was not captured (${rc}):\n${err}")
  endif()
  math(EXPR us "${t1} - ${t0}")
  if(best STREQUAL "" OR us LESS best)
    set(best ${us})
  endif()
endforeach()
file(GLOB written RELATIVE "${OUT}" "${OUT}/*")
list(LENGTH written files)
if(NOT files EQUAL 20)
  string(APPEND failures "  the capture of the default gateway holds ${files} files, not 20: ${written}\n")
endif()
file(GLOB leftovers "${OUT}.partial-*")
if(leftovers)
  string(APPEND failures "  a temporary folder was left: ${leftovers}\n")
endif()

math(EXPR ms "${best} / 1000")
math(EXPR tenths "(${best} / 100) % 10")
if(EMULATOR)
  set(how "under ${EMULATOR}")
else()
  set(how "natively")
endif()
cmake_host_system_information(RESULT cpu QUERY PROCESSOR_DESCRIPTION)
set(line "${TIER}bundle_sc-capture run time on the default simulated gateway: ${ms}.${tenths} ms (best of 3, ${how}, ${cpu})")
set(report "")
if(EXISTS "${REPORT}")
  file(STRINGS "${REPORT}" lines)
  foreach(l IN LISTS lines)
    if(NOT l MATCHES "run time on the default simulated gateway")
      string(APPEND report "${l}\n")
    endif()
  endforeach()
endif()
string(APPEND report "${line}\n")
file(WRITE "${REPORT}" "${report}")
message("${report}")

if(failures)
  message(FATAL_ERROR "capture:\n${failures}")
endif()
