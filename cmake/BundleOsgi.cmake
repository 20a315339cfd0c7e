# The OSGi side: the bridge bundle (the service classes and libbundle_sc.so for every built
# target, as the gateway's framework installs them), the simulator bundle, and the osgi.* tier
# that runs them under -Xcheck:jni in each OSGi framework Debian ships: Apache Felix (the
# gateway's framework), Eclipse Equinox and Knopflerfish.
#
# The manifests are written here rather than computed by bnd: a bundle of plain classes with a
# fixed set of exports and native clauses needs nothing bnd would analyse, and a written
# manifest is the same text on every build machine, with no tool version in between.

set(BUNDLE_FELIX_JAR "/usr/share/java/org.apache.felix.framework.jar" CACHE FILEPATH
    "Apache Felix framework (Debian: libfelix-framework-java)")
if(NOT EXISTS "${BUNDLE_FELIX_JAR}")
  message(FATAL_ERROR "Apache Felix not found at ${BUNDLE_FELIX_JAR} (Debian package "
                      "libfelix-framework-java): the bridge bundle's activator is compiled "
                      "against its OSGi API and the osgi.* tier runs in it")
endif()
find_program(BUNDLE_JAR_TOOL jar HINTS "${Java_JAVA_EXECUTABLE}/.." REQUIRED)

set(osgi_out "${CMAKE_BINARY_DIR}/osgi")
file(MAKE_DIRECTORY "${osgi_out}")
set(BUNDLE_BRIDGE_JAR "${osgi_out}/com.lumarest.smartgateway.bridge.jar")
set(BUNDLE_SIM_JAR "${osgi_out}/bundlesc.sim.jar")
set(bundle_version "${PROJECT_VERSION}")

# Felix's processor names: os.arch amd64/x86_64 is "x86-64", and every os.arch starting with
# "mips" is "mips" (Felix 4.6.1 does not tell the big-endian MIPS from mipsel).
set(native_dir_x86_64 "lib/linux/x86-64")
set(native_dir_mips "lib/linux/mips")

# The MIPS library is in the bundle when this build also builds the MIPS tier
# (cmake/BundleTiers.cmake, which stops the configuration if it cannot).
if(BUNDLE_TIERS AND BUILD_TESTING AND NOT CMAKE_CROSSCOMPILING AND NOT BUNDLE_SANITIZE)
  set(BUNDLE_OSGI_MIPS ON)
else()
  set(BUNDLE_OSGI_MIPS OFF)
endif()

# Manifest texts are built as plain strings (their headers hold semicolons, which CMake lists
# would split at); a long value continues on lines that start with one space.
set(bridge_exports "")
foreach(pkg IN LISTS BUNDLE_PACKAGES)
  if(bridge_exports)
    string(APPEND bridge_exports ",\n ")
  endif()
  string(APPEND bridge_exports "com.lumarest.smartgateway.${pkg};version=\"${bundle_version}\"")
endforeach()
set(bridge_native "${native_dir_x86_64}/libbundle_sc.so;osname=Linux;processor=x86-64")
if(BUNDLE_OSGI_MIPS)
  string(APPEND bridge_native ",\n ${native_dir_mips}/libbundle_sc.so;osname=Linux;processor=mips")
endif()
set(java8_headers "Bundle-RequiredExecutionEnvironment: JavaSE-1.8
Require-Capability: osgi.ee;filter:=\"(&(osgi.ee=JavaSE)(version>=1.8))\"
")
set(bridge_headers "Manifest-Version: 1.0
Bundle-ManifestVersion: 2
Bundle-SymbolicName: com.lumarest.smartgateway.bridge
Bundle-Version: ${bundle_version}
Bundle-Name: Gateway bridge (libbundle_sc.so)
${java8_headers}Bundle-Activator: com.lumarest.smartgateway.bridge.BridgeActivator
Import-Package: org.osgi.framework;version=\"[1.5,2)\"
Export-Package: ${bridge_exports}
")
file(CONFIGURE OUTPUT "${osgi_out}/bridge.MF" CONTENT "${bridge_headers}Bundle-NativeCode: ${bridge_native}
" @ONLY)
# A variant with no native clause for this machine's processor, for the bad-input test.
file(CONFIGURE OUTPUT "${osgi_out}/bridge-foreign.MF" CONTENT "${bridge_headers}Bundle-NativeCode: ${native_dir_mips}/libbundle_sc.so;osname=Linux;processor=mips
" @ONLY)

set(bridge_stage "${osgi_out}/bridge")
set(bridge_activator
    "${CMAKE_SOURCE_DIR}/java/osgi/bridge/com/lumarest/smartgateway/bridge/BridgeActivator.java")
set(stage_native "${CMAKE_SOURCE_DIR}/cmake/osgi_stage_native.cmake")
set(bridge_mips_commands "")
set(bridge_mips_depends "")
if(BUNDLE_OSGI_MIPS)
  set(mips_library "${CMAKE_BINARY_DIR}/tier-mips/lib/libbundle_sc.so")
  # Stripped: the library as it ships on the gateway's flash.
  find_program(BUNDLE_MIPS_STRIP mips-linux-gnu-strip REQUIRED)
  set(bridge_mips_commands
    COMMAND ${CMAKE_COMMAND} -DFROM=${mips_library} -DSTRIP=${BUNDLE_MIPS_STRIP}
            -DTO=${bridge_stage}/${native_dir_mips}/libbundle_sc.so -P "${stage_native}")
  # The tier is an external project: its done stamp is touched whenever it has been built.
  set(bridge_mips_depends "${CMAKE_BINARY_DIR}/tier_mips-prefix/src/tier_mips-stamp/tier_mips-done")
endif()
add_custom_command(OUTPUT "${BUNDLE_BRIDGE_JAR}"
  COMMAND ${CMAKE_COMMAND} -E rm -rf "${bridge_stage}"
  COMMAND ${Java_JAVAC_EXECUTABLE} --release 8 -encoding UTF-8 -Xlint:all -Xlint:-options
          -cp "${BUNDLE_FELIX_JAR}" -d "${bridge_stage}" "${bridge_activator}"
  COMMAND ${CMAKE_COMMAND} -E copy_directory "${BUNDLE_JAVA_CLASSES}/com/lumarest/smartgateway"
          "${bridge_stage}/com/lumarest/smartgateway"
  COMMAND ${CMAKE_COMMAND} -DFROM=$<TARGET_FILE:bundle_sc>
          -DTO=${bridge_stage}/${native_dir_x86_64}/libbundle_sc.so -P "${stage_native}"
  ${bridge_mips_commands}
  COMMAND ${BUNDLE_JAR_TOOL} --create --file "${BUNDLE_BRIDGE_JAR}"
          --manifest "${osgi_out}/bridge.MF" -C "${bridge_stage}" .
  DEPENDS "${CMAKE_BINARY_DIR}/java/classes.stamp" bundle_sc "${osgi_out}/bridge.MF"
          "${bridge_activator}" "${stage_native}" ${bridge_mips_depends}
  COMMENT "Bridge bundle com.lumarest.smartgateway.bridge ${bundle_version}"
  VERBATIM)
add_custom_target(bridge_bundle ALL DEPENDS "${BUNDLE_BRIDGE_JAR}")
add_dependencies(bridge_bundle java_classes)
if(BUNDLE_OSGI_MIPS)
  add_dependencies(bridge_bundle tier_mips)
endif()

# The simulator bundle: GatewaySim and NeutralCalls with the simulator's JNI library, for
# bundles that program or inspect the simulated gateway. Its library needs libgatewaysim.so
# from the simulator's lib dir, on the launcher's LD_LIBRARY_PATH like the platform libraries.
if(TARGET gatewaysim_jni)
  file(CONFIGURE OUTPUT "${osgi_out}/sim.MF" CONTENT "Manifest-Version: 1.0
Bundle-ManifestVersion: 2
Bundle-SymbolicName: bundlesc.sim
Bundle-Version: ${bundle_version}
Bundle-Name: Simulated gateway control
${java8_headers}Export-Package: bundlesc.sim;version=\"${bundle_version}\"
Bundle-NativeCode: ${native_dir_x86_64}/libgatewaysim_jni.so;osname=Linux;processor=x86-64
" @ONLY)
  set(sim_stage "${osgi_out}/sim")
  add_custom_command(OUTPUT "${BUNDLE_SIM_JAR}"
    COMMAND ${CMAKE_COMMAND} -E rm -rf "${sim_stage}"
    COMMAND ${CMAKE_COMMAND} -E copy_directory "${BUNDLE_JAVA_CLASSES}/bundlesc/sim"
            "${sim_stage}/bundlesc/sim"
    COMMAND ${CMAKE_COMMAND} -DFROM=$<TARGET_FILE:gatewaysim_jni>
            -DTO=${sim_stage}/${native_dir_x86_64}/libgatewaysim_jni.so -P "${stage_native}"
    COMMAND ${BUNDLE_JAR_TOOL} --create --file "${BUNDLE_SIM_JAR}"
            --manifest "${osgi_out}/sim.MF" -C "${sim_stage}" .
    DEPENDS "${CMAKE_BINARY_DIR}/java/classes.stamp" gatewaysim_jni "${osgi_out}/sim.MF"
            "${stage_native}"
    COMMENT "Simulator bundle bundlesc.sim ${bundle_version}"
    VERBATIM)
  add_custom_target(sim_bundle ALL DEPENDS "${BUNDLE_SIM_JAR}")
  add_dependencies(sim_bundle java_classes)
endif()

# ---- The osgi.* tier
if(NOT bundle_java_tests OR NOT TARGET sim_bundle)
  return()
endif()

# The frameworks, each launched by the same harness through the standard launch API (the
# framework jar on the class path provides the FrameworkFactory). Felix needs the launch
# properties of java/osgi/framework.properties on a VM past Java 8; Equinox 3.18 and
# Knopflerfish 8.0.5 derive Java 8 from the running VM themselves and need none.
set(BUNDLE_EQUINOX_JAR "/usr/share/java/eclipse-osgi.jar" CACHE FILEPATH
    "Eclipse Equinox framework (Debian: libeclipse-osgi-java)")
set(BUNDLE_KNOPFLERFISH_JAR "/usr/share/java/knopflerfish-framework.jar" CACHE FILEPATH
    "Knopflerfish framework (Debian: libknopflerfish-osgi-framework-java)")
set(osgi_frameworks felix equinox knopflerfish)
set(osgi_felix_jar "${BUNDLE_FELIX_JAR}")
set(osgi_felix_properties "${CMAKE_SOURCE_DIR}/java/osgi/framework.properties")
set(osgi_equinox_jar "${BUNDLE_EQUINOX_JAR}")
set(osgi_equinox_properties "")
set(osgi_equinox_package libeclipse-osgi-java)
set(osgi_knopflerfish_jar "${BUNDLE_KNOPFLERFISH_JAR}")
set(osgi_knopflerfish_properties "")
set(osgi_knopflerfish_package libknopflerfish-osgi-framework-java)
foreach(fw equinox knopflerfish)
  if(NOT EXISTS "${osgi_${fw}_jar}")
    message(FATAL_ERROR "The ${fw} framework is not at ${osgi_${fw}_jar} (Debian package "
                        "${osgi_${fw}_package}, in scripts/packages.sh): the osgi.${fw}.* tests "
                        "run the bridge bundle in it")
  endif()
endforeach()

# The probe bundles (java/osgi/probe): the same classes under two symbolic names, so two
# bundles can call at once. They import the six service packages and the simulator's.
set(probe_imports "")
foreach(pkg IN LISTS BUNDLE_PACKAGES)
  string(APPEND probe_imports "com.lumarest.smartgateway.${pkg};version=\"[1.0,2)\",\n ")
endforeach()
string(APPEND probe_imports "bundlesc.sim;version=\"[1.0,2)\",\n org.osgi.framework;version=\"[1.5,2)\"")
file(GLOB_RECURSE probe_sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/java/osgi/probe/*.java")
set(probe_stage "${osgi_out}/test/probe")
set(probe_jars "")
set(probe_commands "")
foreach(name a b)
  set(probe_manifest "${osgi_out}/test/probe-${name}.MF")
  file(CONFIGURE OUTPUT "${probe_manifest}" CONTENT "Manifest-Version: 1.0
Bundle-ManifestVersion: 2
Bundle-SymbolicName: bundlesc.osgi.probe.${name}
Bundle-Version: ${bundle_version}
Bundle-Name: Bridge test bundle ${name}
${java8_headers}Bundle-Activator: bundlesc.osgi.probe.ProbeActivator
Import-Package: ${probe_imports}
" @ONLY)
  list(APPEND probe_jars "${osgi_out}/test/bundlesc.osgi.probe.${name}.jar")
  list(APPEND probe_commands
    COMMAND ${BUNDLE_JAR_TOOL} --create --file "${osgi_out}/test/bundlesc.osgi.probe.${name}.jar"
            --manifest "${probe_manifest}" -C "${probe_stage}" .)
endforeach()
set(harness_classes "${osgi_out}/test/harness")
set(foreign_jar "com.lumarest.smartgateway.bridge-foreign.jar")
file(GLOB_RECURSE harness_sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/java/osgi/harness/*.java")
add_custom_command(OUTPUT ${probe_jars} "${osgi_out}/test/harness.stamp"
  COMMAND ${CMAKE_COMMAND} -E rm -rf "${probe_stage}" "${harness_classes}"
  COMMAND ${Java_JAVAC_EXECUTABLE} --release 8 -encoding UTF-8 -Xlint:all -Xlint:-options
          -cp "${BUNDLE_FELIX_JAR}:${BUNDLE_JAVA_CLASSES}" -d "${probe_stage}" ${probe_sources}
  ${probe_commands}
  COMMAND ${Java_JAVAC_EXECUTABLE} --release 11 -encoding UTF-8 -Xlint:all -Xlint:-options
          -cp "${BUNDLE_FELIX_JAR}" -d "${harness_classes}" ${harness_sources}
  # The bridge bundle with a native clause for another processor only.
  COMMAND ${BUNDLE_JAR_TOOL} --create --file "${osgi_out}/test/${foreign_jar}"
          --manifest "${osgi_out}/bridge-foreign.MF" -C "${bridge_stage}" .
  COMMAND ${CMAKE_COMMAND} -E touch "${osgi_out}/test/harness.stamp"
  DEPENDS ${probe_sources} ${harness_sources} "${CMAKE_BINARY_DIR}/java/classes.stamp"
          "${BUNDLE_BRIDGE_JAR}" "${osgi_out}/bridge-foreign.MF"
          "${osgi_out}/test/probe-a.MF" "${osgi_out}/test/probe-b.MF"
  COMMENT "OSGi test bundles and harness"
  VERBATIM)
add_custom_target(osgi_test_bundles ALL DEPENDS ${probe_jars} "${osgi_out}/test/harness.stamp")
add_dependencies(osgi_test_bundles java_classes bridge_bundle sim_bundle)

set(osgi_native_count ${exported_native_count})
set(osgi_tests calls concurrent lifecycle early-call installed-twice foreign-processor
               no-platform-library)
set(osgi_test_names "")
foreach(fw IN LISTS osgi_frameworks)
  foreach(scenario IN LISTS osgi_tests)
    set(name osgi.${fw}.${scenario})
    add_test(NAME ${name}
      COMMAND ${Java_JAVA_EXECUTABLE} -Xcheck:jni
              --add-opens java.base/java.net=ALL-UNNAMED --add-opens java.base/java.security=ALL-UNNAMED
              -Djava.library.path=${CMAKE_LIBRARY_OUTPUT_DIRECTORY}
              -Dbundlesc.osgi.dir=${osgi_out}
              -Dbundlesc.osgi.classes=${BUNDLE_JAVA_CLASSES}
              -Dbundlesc.osgi.properties=${osgi_${fw}_properties}
              -Dbundlesc.osgi.natives=${osgi_native_count}
              -cp "${osgi_${fw}_jar}:${harness_classes}" bundlesc.osgi.OsgiHarness ${fw} ${scenario})
    list(APPEND osgi_test_names ${name})
    # The bundles' libraries have no RUNPATH: the simulator's lib dir is on the loader's path,
    # as the box launcher sets it; the bad-input test leaves it off.
    if(scenario STREQUAL "no-platform-library")
      set(library_path "")
    else()
      set(library_path "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
    endif()
    set_tests_properties(${name} PROPERTIES
      ENVIRONMENT "BRELO_SIM_SAVE=;BUNDLE_SOURCE_DIR=${CMAKE_SOURCE_DIR};LD_LIBRARY_PATH=${library_path};LD_PRELOAD=$<TARGET_FILE:gatewayhost>")
  endforeach()
endforeach()
add_test(NAME osgi.bundle-contents
  COMMAND ${CMAKE_COMMAND} -DJAR=${BUNDLE_BRIDGE_JAR} -DOUT=${osgi_out}/test/contents
          -DMIPS=${BUNDLE_OSGI_MIPS} "-DPACKAGES=${BUNDLE_PACKAGES}"
          -P "${CMAKE_SOURCE_DIR}/cmake/osgi_check_bundle.cmake")
set_tests_properties(${osgi_test_names} PROPERTIES
  TIMEOUT 120
  FAIL_REGULAR_EXPRESSION "WARNING in native method|FATAL ERROR in native method|WARNING: JNI")
