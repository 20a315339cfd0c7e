# The Java side: service-class declarations, the simulator's control class, the console and the
# JVM benchmark (compiled for Java 8, the gateway's VM), and the JUnit 5 tests, run in real JVMs
# under -Xcheck:jni.

find_package(Java 11 REQUIRED COMPONENTS Development Runtime)
set(BUNDLE_JAVA_LIBS "/usr/share/java" CACHE PATH "Where the JUnit 5 jars are (Debian: junit5)")
set(junit_console "${BUNDLE_JAVA_LIBS}/junit-platform-console-standalone.jar")
set(bundle_java_tests OFF)
if(BUILD_TESTING AND BUNDLE_HAVE_SIM)
  if(NOT EXISTS "${junit_console}")
    message(FATAL_ERROR "JUnit 5 not found in ${BUNDLE_JAVA_LIBS} (Debian package junit5)")
  endif()
  set(bundle_java_tests ON)
endif()
# Gson reads and writes the console's JSON arguments (Debian: libgoogle-gson-java); every class
# path that runs the console has it.
set(BUNDLE_GSON_JAR "/usr/share/java/gson.jar" CACHE FILEPATH "Gson jar (Debian: libgoogle-gson-java)")
if(NOT EXISTS "${BUNDLE_GSON_JAR}")
  message(FATAL_ERROR "Gson not found at ${BUNDLE_GSON_JAR} (Debian package libgoogle-gson-java)")
endif()
# The Gson the gateway's bundles are built for. Debian has Gson 2.10 only (its bundle manifest
# says 2.7.0, so imports resolve in the box as on the gateway); the bundle check warns about
# the Gson API a bundle uses that 2.7 lacks (java/sdk/bundlesc/sdk/gson-after-2.7.txt).
set(BUNDLE_GATEWAY_GSON_VERSION "2.7.0")
set(junit_compile_cp "${BUNDLE_JAVA_LIBS}/junit-jupiter-api.jar:${BUNDLE_JAVA_LIBS}/junit-jupiter-params.jar:${BUNDLE_JAVA_LIBS}/apiguardian-api.jar:${BUNDLE_JAVA_LIBS}/opentest4j.jar")

set(java_out "${CMAKE_BINARY_DIR}/java")
set(BUNDLE_JAVA_CLASSES "${java_out}/classes")
set(java_test_classes "${java_out}/test-classes")

file(GLOB_RECURSE java_main_sources CONFIGURE_DEPENDS
     "${CMAKE_SOURCE_DIR}/java/services/*.java" "${CMAKE_SOURCE_DIR}/java/sim/*.java"
     "${CMAKE_SOURCE_DIR}/java/console/*.java" "${CMAKE_SOURCE_DIR}/java/bench/*.java"
     "${CMAKE_SOURCE_DIR}/java/doc/*.java" "${CMAKE_SOURCE_DIR}/java/reply/*.java"
     "${CMAKE_SOURCE_DIR}/java/sdk/*.java")
file(GLOB_RECURSE java_test_sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/java/tests/*.java")

# The console's catalog: the classes the library exports natives for, one binary name a line,
# from the export list (Java_<package path>_<Class>_<method>[__<signature>]).
set(bundle_map "${CMAKE_SOURCE_DIR}/common/libbundle_sc.map")
set_property(DIRECTORY APPEND PROPERTY CMAKE_CONFIGURE_DEPENDS "${bundle_map}")
file(STRINGS "${bundle_map}" map_natives REGEX "^[ \t]*Java_[A-Za-z0-9_]+;")
set(service_classes "")
foreach(line IN LISTS map_natives)
  string(REGEX REPLACE "^[ \t]*Java_([A-Za-z0-9_]+);.*$" "\\1" symbol "${line}")
  string(REGEX REPLACE "__.*$" "" symbol "${symbol}")
  string(REGEX REPLACE "_[^_]+$" "" class "${symbol}")
  string(REPLACE "_" "." class "${class}")
  list(APPEND service_classes "${class}")
endforeach()
list(REMOVE_DUPLICATES service_classes)
list(SORT service_classes)
list(JOIN service_classes "\n" service_classes_text)
set(BUNDLE_SERVICE_CLASSES_LIST "${java_out}/service-classes.txt")
file(CONFIGURE OUTPUT "${BUNDLE_SERVICE_CLASSES_LIST}" CONTENT "${service_classes_text}\n" @ONLY)
# What the bundle check (java/sdk) checks against: the version the bridge bundle exports the
# service packages at, and the gateway's Gson.
set(sdk_resources "${java_out}/gateway.properties" "${CMAKE_SOURCE_DIR}/java/sdk/bundlesc/sdk/gson-after-2.7.txt")
file(CONFIGURE OUTPUT "${java_out}/gateway.properties"
     CONTENT "bridge.version=${PROJECT_VERSION}\ngson.version=${BUNDLE_GATEWAY_GSON_VERSION}\n" @ONLY)

# -parameters: the class files keep the parameter names (those of the reference's Javadoc), which
# the console's listings show.
add_custom_command(OUTPUT "${java_out}/classes.stamp"
  COMMAND ${CMAKE_COMMAND} -E rm -rf "${BUNDLE_JAVA_CLASSES}"
  COMMAND ${Java_JAVAC_EXECUTABLE} --release 8 -encoding UTF-8 -Xlint:all -Xlint:-options -parameters
          -cp "${BUNDLE_GSON_JAR}" -d "${BUNDLE_JAVA_CLASSES}" ${java_main_sources}
  COMMAND ${CMAKE_COMMAND} -E copy "${BUNDLE_SERVICE_CLASSES_LIST}"
          "${BUNDLE_JAVA_CLASSES}/bundlesc/console/service-classes.txt"
  COMMAND ${CMAKE_COMMAND} -E copy ${sdk_resources} "${BUNDLE_JAVA_CLASSES}/bundlesc/sdk/"
  COMMAND ${CMAKE_COMMAND} -E touch "${java_out}/classes.stamp"
  DEPENDS ${java_main_sources} "${BUNDLE_SERVICE_CLASSES_LIST}" ${sdk_resources}
  COMMENT "Compiling the Java service classes, simulator control, console, benchmark, reference tool, reply reader and bundle check (Java 8)")
add_custom_command(OUTPUT "${java_out}/test-classes.stamp"
  COMMAND ${CMAKE_COMMAND} -E rm -rf "${java_test_classes}"
  COMMAND ${Java_JAVAC_EXECUTABLE} --release 8 -encoding UTF-8 -Xlint:all -Xlint:-options
          -cp "${BUNDLE_JAVA_CLASSES}:${BUNDLE_GSON_JAR}:${junit_compile_cp}" -d "${java_test_classes}"
          ${java_test_sources}
  COMMAND ${CMAKE_COMMAND} -E touch "${java_out}/test-classes.stamp"
  DEPENDS ${java_test_sources} "${java_out}/classes.stamp"
  COMMENT "Compiling the JVM tests (Java 8)")
set(java_stamps "${java_out}/classes.stamp")
if(bundle_java_tests)
  list(APPEND java_stamps "${java_out}/test-classes.stamp")
endif()
add_custom_target(java_classes ALL DEPENDS ${java_stamps})
add_dependencies(java_classes bundle_sc)
if(TARGET gatewaysim_jni)
  add_dependencies(java_classes gatewaysim_jni)
endif()

# The JVM benchmark's floor library (bench/floor) and prepared platform (bench/prepared): built
# with the classes, run by hand through bench/run-jvm-bench.sh; ctest only checks that a tiny
# run completes on each platform.
if(BUNDLE_HAVE_SIM)
  add_subdirectory("${CMAKE_SOURCE_DIR}/bench/floor" "${CMAKE_BINARY_DIR}/bench-floor")
  add_subdirectory("${CMAKE_SOURCE_DIR}/bench/prepared" "${CMAKE_BINARY_DIR}/bench-prepared")
  add_dependencies(java_classes bundle_floor bundle_prepared)
endif()

if(bundle_java_tests)
  # A system() and gethostbyname() that are not the simulator's host side, preloaded by
  # HostSideRefusalTest into a JVM of its own (found on java.library.path).
  add_library(hostprobe SHARED "${CMAKE_SOURCE_DIR}/tests/tools/host_probe.cpp")
  add_dependencies(java_classes hostprobe)

  # Most test classes share one JVM (starting a JVM costs more than a class's tests, and one
  # JVM loading the library once is how a framework uses it); JUnit's tree report names every
  # test. The soak and the deep-stack test measure a JVM of their own and run alone.
  set(own_jvm_tests SoakTest DeepStackTest)
  set(shared_selects "")
  set(jvm_test_names "")
  foreach(src IN LISTS java_test_sources)
    if(NOT src MATCHES "Test\\.java$")
      continue()
    endif()
    file(RELATIVE_PATH rel "${CMAKE_SOURCE_DIR}/java/tests" "${src}")
    string(REGEX REPLACE "\\.java$" "" class "${rel}")
    string(REPLACE "/" "." class "${class}")
    get_filename_component(simple "${src}" NAME_WE)
    if(simple IN_LIST own_jvm_tests)
      set(name jvm.${simple})
      add_test(NAME ${name}
        COMMAND ${Java_JAVA_EXECUTABLE} -Xcheck:jni -Djava.library.path=${CMAKE_LIBRARY_OUTPUT_DIRECTORY}
                -jar "${junit_console}" --disable-banner --disable-ansi-colors --details=tree --fail-if-no-tests
                --class-path "${BUNDLE_JAVA_CLASSES}:${BUNDLE_GSON_JAR}:${java_test_classes}" --select-class ${class})
      list(APPEND jvm_test_names ${name})
    else()
      list(APPEND shared_selects --select-class ${class})
    endif()
  endforeach()
  add_test(NAME jvm.services
    COMMAND ${Java_JAVA_EXECUTABLE} -Xcheck:jni -Djava.library.path=${CMAKE_LIBRARY_OUTPUT_DIRECTORY}
            -jar "${junit_console}" --disable-banner --disable-ansi-colors --details=tree --fail-if-no-tests
            --class-path "${BUNDLE_JAVA_CLASSES}:${BUNDLE_GSON_JAR}:${java_test_classes}" ${shared_selects}
            --reports-dir "${CMAKE_BINARY_DIR}/test-reports/jvm.services")
  list(APPEND jvm_test_names jvm.services)
  set_tests_properties(${jvm_test_names} PROPERTIES
    # The simulator's route tool and resolver stand in for the machine's (and the gateway's
    # flag files are in a folder of the entry's own: the end of CMakeLists.txt).
    ENVIRONMENT "BRELO_SIM_SAVE=;BUNDLE_SOURCE_DIR=${CMAKE_SOURCE_DIR};LD_PRELOAD=$<TARGET_FILE:gatewayhost>"
    # -Xcheck:jni reports misuse as warnings; any of them fails the test.
    FAIL_REGULAR_EXPRESSION "WARNING in native method|FATAL ERROR in native method|WARNING: JNI")
  # ctest runs entries side by side: the longest start first (the soak and the deep-stack
  # test run whole JVMs of their own for many seconds), so no core idles at the end.
  set_tests_properties(jvm.SoakTest PROPERTIES COST 1000)
  set_tests_properties(jvm.DeepStackTest jvm.services PROPERTIES COST 300)
endif()

if(bundle_java_tests)
  # The JVM benchmark with one round of single calls under -Xcheck:jni: it must complete and
  # print a row for each native the library exports (it exits non-zero otherwise). No figure
  # is checked.
  file(STRINGS "${CMAKE_SOURCE_DIR}/common/libbundle_sc.map" exported_natives REGEX "Java_")
  list(LENGTH exported_natives exported_native_count)
  add_test(NAME jvm.bench-smoke
    COMMAND ${Java_JAVA_EXECUTABLE} -Xcheck:jni -Djava.library.path=${CMAKE_LIBRARY_OUTPUT_DIRECTORY}
            -cp "${BUNDLE_JAVA_CLASSES}:${BUNDLE_GSON_JAR}" bundlesc.bench.BridgeBench --smoke
            --expect ${exported_native_count})
  set_tests_properties(jvm.bench-smoke PROPERTIES
    ENVIRONMENT "BRELO_SIM_SAVE=;BRELO_SIM_LOG=off;LD_PRELOAD=$<TARGET_FILE:bundle_floor>:$<TARGET_FILE:gatewayhost>"
    FAIL_REGULAR_EXPRESSION "WARNING in native method|FATAL ERROR in native method|WARNING: JNI|problem: ")
  # The same on the prepared platform: every native's reply answered from the record must be
  # the simulator's reply, and every platform call the recorded one.
  add_test(NAME jvm.bench-smoke-prepared
    COMMAND ${Java_JAVA_EXECUTABLE} -Xcheck:jni -Djava.library.path=${CMAKE_LIBRARY_OUTPUT_DIRECTORY}
            -cp "${BUNDLE_JAVA_CLASSES}:${BUNDLE_GSON_JAR}" bundlesc.bench.BridgeBench --smoke
            --platform prepared --expect ${exported_native_count})
  set_tests_properties(jvm.bench-smoke-prepared PROPERTIES
    RESOURCE_LOCK gateway_flag_files
    ENVIRONMENT "BRELO_SIM_SAVE=;BRELO_SIM_LOG=off;LD_PRELOAD=$<TARGET_FILE:bundle_floor>:$<TARGET_FILE:gatewayhost>:$<TARGET_FILE:bundle_prepared>"
    FAIL_REGULAR_EXPRESSION "WARNING in native method|FATAL ERROR in native method|WARNING: JNI|problem: ")
endif()

if(bundle_java_tests)
  # The soak benchmark (bench/soak.sh) with a few thousand calls: both JVMs must complete with
  # every reply right; no figure is judged and no page written.
  add_test(NAME jvm.soak-smoke
    COMMAND bash "${CMAKE_SOURCE_DIR}/bench/soak.sh" "${CMAKE_BINARY_DIR}" --smoke)
  set_tests_properties(jvm.soak-smoke PROPERTIES RESOURCE_LOCK gateway_flag_files)
endif()

# The Javadoc reference of the service classes, its overview and its checked examples.
include("${CMAKE_CURRENT_LIST_DIR}/BundleReference.cmake")

# The bridge and simulator bundles, and the osgi.* tier.
include("${CMAKE_CURRENT_LIST_DIR}/BundleOsgi.cmake")

# The reply reader's bundle and its OSGi test.
include("${CMAKE_CURRENT_LIST_DIR}/BundleReply.cmake")
