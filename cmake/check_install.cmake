# Installs a build into a staging directory and checks what is there (the <tier>install test).
#   cmake -DBUILD=<build> -DSOURCE=<source> -DSTAGE=<dir> -DMODE=host|gateway
#         -DLIBDIR= -DDATADIR= -DBINDIR= -DJAVADIR= -DFEATURES=<a,b> -DREADELF=<readelf>
#         -DREQUIRED_NEEDED=<a,b> -DALLOWED_NEEDED=<a,b>
#         [host: -DJAVA=<java>] [gateway: -DTOOLCHAIN=<file> -DJNI_INCLUDE_DIR=<dir>]
#         -P check_install.cmake
# host:    everything (DESTDIR=<stage>/full, prefix /usr) against install-manifest-host.txt,
#          the runtime and capture components each alone against install-manifest-gateway.txt,
#          the libraries' and the tool's dynamic sections, a JVM that loads the installed
#          library with the installed simulator (through bin/bundle_sc-simulator) and answers
#          getDeviceInfoJni from the installed state, and the installed capture tool capturing
#          the installed simulator.
# gateway: the runtime and capture components, stripped, against install-manifest-gateway.txt;
#          and a build configured for the gateway (the vendor's libraries: here this tier's)
#          installs nothing but those two components.

cmake_minimum_required(VERSION 3.25)
foreach(list FEATURES REQUIRED_NEEDED ALLOWED_NEEDED)
  string(REPLACE "," ";" ${list} "${${list}}")
endforeach()

set(failures 0)
macro(fail)
  message(SEND_ERROR "install: ${ARGN}")
  math(EXPR failures "${failures} + 1")
endmacro()

function(run_or_die)
  execute_process(COMMAND ${ARGN} RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE err)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "install: failed (${rc}): ${ARGN}\n${out}\n${err}")
  endif()
endfunction()

include("${CMAKE_CURRENT_LIST_DIR}/install_manifest.cmake")

# compare_files(<root> <manifest> [<component>]): the files under <root> are exactly those the
# manifest lists (of that component).
function(compare_files root manifest)
  expected_files("${manifest}" "usr" expected "${ARGV2}")
  file(GLOB_RECURSE installed LIST_DIRECTORIES false RELATIVE "${root}" "${root}/*")
  list(SORT installed)
  set(missing ${expected})
  list(REMOVE_ITEM missing ${installed})
  set(extra ${installed})
  list(REMOVE_ITEM extra ${expected})
  get_filename_component(name "${manifest}" NAME)
  if(missing OR extra)
    string(REPLACE ";" "\n  " missing "${missing}")
    string(REPLACE ";" "\n  " extra "${extra}")
    message(SEND_ERROR "install: ${root} differs from ${name}\n missing:\n  ${missing}\n not listed:\n  ${extra}")
    set(compare_failed ON PARENT_SCOPE)
  else()
    list(LENGTH installed count)
    message(STATUS "${root}: the ${count} files of ${name}")
  endif()
endfunction()

# NEEDED entries within the allowed ones and all required ones there; no RUNPATH or RPATH.
include("${CMAKE_CURRENT_LIST_DIR}/elf_needed.cmake")
function(check_library lib)
  check_needed("${lib}" SEND_ERROR)
  file(READ_ELF "${lib}" RUNPATH runpath RPATH rpath)
  if(runpath OR rpath)
    message(SEND_ERROR "install: ${lib} keeps a search path: ${runpath}${rpath}")
  endif()
  message(STATUS "${lib}: NEEDED ${NEEDED}, no RUNPATH")
endfunction()

# The capture tool, the same way: it needs the C library alone (it opens the platform
# libraries itself).
function(check_tool tool)
  set(ALLOWED_NEEDED libc.so.6 libdl.so.2)
  set(REQUIRED_NEEDED libc.so.6)
  check_library("${tool}")
endfunction()

function(check_runpath lib expected)
  file(READ_ELF "${lib}" RUNPATH runpath)
  if(NOT runpath STREQUAL expected)
    message(SEND_ERROR "install: ${lib}: RUNPATH is not ${expected}")
  endif()
endfunction()

file(REMOVE_RECURSE "${STAGE}")
set(gateway "${STAGE}/gateway")
set(compare_failed OFF)

if(MODE STREQUAL "host")
  set(full "${STAGE}/full")
  run_or_die(${CMAKE_COMMAND} -E env DESTDIR=${full} ${CMAKE_COMMAND} --install "${BUILD}" --prefix /usr)
  compare_files("${full}" "${SOURCE}/packaging/install-manifest-host.txt")
  run_or_die(${CMAKE_COMMAND} -E env DESTDIR=${gateway}
             ${CMAKE_COMMAND} --install "${BUILD}" --prefix /usr --component runtime)
  compare_files("${gateway}" "${SOURCE}/packaging/install-manifest-gateway.txt" runtime)
  set(capture "${STAGE}/capture")
  run_or_die(${CMAKE_COMMAND} -E env DESTDIR=${capture}
             ${CMAKE_COMMAND} --install "${BUILD}" --prefix /usr --component capture)
  compare_files("${capture}" "${SOURCE}/packaging/install-manifest-gateway.txt" capture)
  if(compare_failed)
    message(FATAL_ERROR "install: the installed files differ from the manifests")
  endif()
  check_library("${full}/usr/${LIBDIR}/libbundle_sc.so")
  check_tool("${full}/usr/${BINDIR}/bundle_sc-capture")
  foreach(lib libbrelo.so.1 libtcapi.so.1 libgatewayhost.so libgatewaysim_jni.so)
    check_runpath("${full}/usr/${LIBDIR}/bundle_sc/simulator/${lib}" "$ORIGIN")
  endforeach()

  execute_process(COMMAND "${full}/usr/${BINDIR}/bundle_sc-simulator"
                  RESULT_VARIABLE rc ERROR_VARIABLE usage)
  if(NOT rc EQUAL 2 OR NOT usage MATCHES "^usage: bundle_sc-simulator command")
    message(SEND_ERROR "install: bundle_sc-simulator without a command: ${rc} ${usage}")
  endif()

  # The installed kit: its class path names the installed jars, and its check takes the
  # installed bridge bundle.
  if("sdk" IN_LIST FEATURES)
    set(check "${full}/usr/${BINDIR}/bundle_sc-check-bundle")
    execute_process(COMMAND "${check}" --classpath RESULT_VARIABLE rc OUTPUT_VARIABLE cp
                    OUTPUT_STRIP_TRAILING_WHITESPACE)
    string(REPLACE ":" ";" jars "${cp}")
    list(GET jars 0 services)
    if(NOT rc EQUAL 0 OR NOT services STREQUAL "${full}/usr/${JAVADIR}/bundle_sc-services.jar")
      message(SEND_ERROR "install: bundle_sc-check-bundle --classpath: ${rc} ${cp}")
    endif()
    foreach(jar IN LISTS jars)
      if(NOT EXISTS "${jar}")
        message(SEND_ERROR "install: the kit's class path names ${jar}, which is not there")
      endif()
    endforeach()
    execute_process(COMMAND "${check}" "${full}/usr/${JAVADIR}/com.lumarest.smartgateway.bridge.jar"
                    RESULT_VARIABLE rc OUTPUT_VARIABLE out ERROR_VARIABLE out)
    message(STATUS "installed kit: ${out}")
    if(NOT rc EQUAL 0 OR NOT out MATCHES "fits the gateway")
      message(SEND_ERROR "install: the installed bundle_sc-check-bundle failed (${rc})")
    endif()
  endif()

  # A JVM with the installed jar, library and simulator. The installed state is marked, so the
  # reply shows that the installed simulator read it (and not the source tree's).
  if("services_jar" IN_LIST FEATURES)
    set(call "${SOURCE}/tests/install/InstalledCall.java")
    set(service com.lumarest.smartgateway.commservices.DeviceInfoQueryServiceImp)
    execute_process(
      COMMAND ${CMAKE_COMMAND} -E env --unset=BRELO_SIM_STATE BRELO_SIM_SAVE= BRELO_SIM_LOG=off
              LD_PRELOAD=${BUILD}/lib/libgatewayhost.so
              "${JAVA}" -Xcheck:jni -Djava.library.path=${BUILD}/lib
              -cp "${BUILD}/java/services-classes" "${call}" ${service} getDeviceInfoJni
      RESULT_VARIABLE rc OUTPUT_VARIABLE built ERROR_VARIABLE err)
    message(STATUS "build tree: ${built}${err}")
    if(NOT rc EQUAL 0 OR NOT built MATCHES "^reply: [^\n]*FW3\\.4\\.10")
      message(FATAL_ERROR "install: the build tree's library did not answer (${rc}):\n${built}\n${err}")
    endif()
    string(REPLACE "FW3.4.10" "FW-installed" expected "${built}")
    set(ini "${full}/usr/${DATADIR}/bundle_sc/gateway/device.ini")
    file(READ "${ini}" state)
    string(REPLACE "FW3.4.10" "FW-installed" state "${state}")
    file(WRITE "${ini}" "${state}")
    execute_process(
      COMMAND ${CMAKE_COMMAND} -E env --unset=BRELO_SIM_STATE --unset=BRELO_SIM_SAVE
              --unset=LD_PRELOAD --unset=LD_LIBRARY_PATH BRELO_SIM_LOG=off
              "${full}/usr/${BINDIR}/bundle_sc-simulator" sh -c
              "exec \"$0\" -Xcheck:jni -Djava.library.path=\"$BUNDLE_SC_JAVA_LIBRARY_PATH\" \"$@\""
              "${JAVA}" -cp "${full}/usr/${JAVADIR}/bundle_sc-services.jar" "${call}"
              ${service} getDeviceInfoJni
      RESULT_VARIABLE rc OUTPUT_VARIABLE installed ERROR_VARIABLE err)
    message(STATUS "installed:  ${installed}${err}")
    if(NOT rc EQUAL 0)
      message(FATAL_ERROR "install: the installed library did not answer (${rc})")
    endif()
    if(NOT installed STREQUAL expected)
      message(FATAL_ERROR "install: the installed library answered\n${installed}expected\n${expected}")
    endif()
  endif()

  # The installed capture tool against the installed simulator (the launcher puts the
  # simulator first on the loader's path): it captures the installed state.
  set(captured "${STAGE}/captured")
  execute_process(
    COMMAND ${CMAKE_COMMAND} -E env --unset=BRELO_SIM_STATE --unset=BRELO_SIM_SAVE
            --unset=LD_PRELOAD --unset=LD_LIBRARY_PATH BRELO_SIM_LOG=off
            "${full}/usr/${BINDIR}/bundle_sc-simulator" "${full}/usr/${BINDIR}/bundle_sc-capture" "${captured}"
    RESULT_VARIABLE rc ERROR_VARIABLE err)
  message(STATUS "installed capture: ${err}")
  if(NOT rc EQUAL 0 OR NOT EXISTS "${captured}/capture.ini")
    message(FATAL_ERROR "install: the installed bundle_sc-capture did not capture the installed simulator (${rc})")
  endif()
  file(READ "${captured}/device.ini" device)
  if(NOT device MATCHES "\nvendor = Lumarest\n")
    message(FATAL_ERROR "install: the installed capture holds another gateway:\n${device}")
  endif()
elseif(MODE STREQUAL "gateway")
  run_or_die(${CMAKE_COMMAND} -E env DESTDIR=${gateway}
             ${CMAKE_COMMAND} --install "${BUILD}" --prefix /usr --component runtime --strip)
  compare_files("${gateway}" "${SOURCE}/packaging/install-manifest-gateway.txt" runtime)
  set(capture "${STAGE}/capture")
  run_or_die(${CMAKE_COMMAND} -E env DESTDIR=${capture}
             ${CMAKE_COMMAND} --install "${BUILD}" --prefix /usr --component capture --strip)
  compare_files("${capture}" "${SOURCE}/packaging/install-manifest-gateway.txt" capture)
  if(compare_failed)
    message(FATAL_ERROR "install: the installed files differ from the manifest")
  endif()
  set(lib "${gateway}/usr/${LIBDIR}/libbundle_sc.so")
  check_library("${lib}")
  check_tool("${capture}/usr/${BINDIR}/bundle_sc-capture")
  foreach(installed "${lib}" "${capture}/usr/${BINDIR}/bundle_sc-capture")
    execute_process(COMMAND "${READELF}" -h -S "${installed}" OUTPUT_VARIABLE headers)
    if(NOT headers MATCHES "big endian" OR NOT headers MATCHES "Machine:[ \t]+MIPS")
      message(SEND_ERROR "install: ${installed} is not big-endian MIPS")
    endif()
    if(headers MATCHES "\\.symtab|\\.debug_")
      message(SEND_ERROR "install: ${installed} is not stripped (--strip)")
    endif()
  endforeach()

  # A build for the gateway: the vendor's platform libraries (this tier's stand in) and no
  # simulator. Configured only: its install rules must name the runtime component alone.
  set(gw "${STAGE}/gateway-build")
  run_or_die(${CMAKE_COMMAND} -S "${SOURCE}" -B "${gw}" -DCMAKE_TOOLCHAIN_FILE=${TOOLCHAIN}
             -DBUNDLE_PLATFORM_LIBDIR=${BUILD}/lib -DBUILD_TESTING=OFF -DBUNDLE_TIERS=OFF
             -DBUNDLE_JVM_TESTS=OFF -DBUNDLE_JNI_INCLUDE_DIR=${JNI_INCLUDE_DIR})
  file(GLOB_RECURSE scripts "${gw}/cmake_install.cmake")
  set(components "")
  foreach(s IN LISTS scripts)
    file(STRINGS "${s}" rules REGEX "CMAKE_INSTALL_COMPONENT")
    foreach(r IN LISTS rules)
      if(r MATCHES "\"x\\\${CMAKE_INSTALL_COMPONENT}x\" STREQUAL \"x([^\"]*)x\"")
        list(APPEND components "${CMAKE_MATCH_1}")
      elseif(r MATCHES "CMAKE_INSTALL_COMPONENT STREQUAL \"([^\"]*)\"")
        list(APPEND components "${CMAKE_MATCH_1}")
      endif()
    endforeach()
  endforeach()
  list(REMOVE_DUPLICATES components)
  list(SORT components)
  if(NOT components STREQUAL "capture;runtime")
    message(SEND_ERROR "install: a build for the gateway installs the components: ${components}")
  else()
    message(STATUS "a build for the gateway installs the runtime and capture components alone")
  endif()
else()
  message(FATAL_ERROR "install: MODE must be host or gateway")
endif()
