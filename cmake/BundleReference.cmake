# The reference for bundle developers: the Javadoc of the six service packages, built by the
# JDK's own javadoc with every doclint check and no warning allowed, fronted by an overview page
# that lists every native with its return kind and reply members; and its examples, which the
# tests run against the default simulated gateway.
#
#   reference target (part of ALL)   ${CMAKE_BINARY_DIR}/java/reference/index.html
#                                    and reply-oddities.html beside it (the @oddity blocks)
#   BUNDLE_REFERENCE_JAR             ${CMAKE_BINARY_DIR}/osgi/com.lumarest.smartgateway.bridge-javadoc.jar
#   jvm.reference-examples           every documented example, run through the bridge console
#   reference.overview               every native of the library listed once in the overview
#
# Included from cmake/BundleJava.cmake (needs the Java toolchain found there).

# Packages whose natives are all documented: doclint checks them with every warning an error,
# and the example test fails for a query of theirs that has no example. The others are
# compiled into the reference as they stand until their documentation is in.
set(BUNDLE_DOCUMENTED_PACKAGES lanservices accessservices addressservices commservices transferservices voipservices)

set(reference_packages lanservices accessservices addressservices commservices transferservices voipservices)
set(reference_dir "${java_out}/reference")
set(reference_work "${java_out}/reference-work")
set(BUNDLE_REFERENCE_EXAMPLES "${reference_work}/examples.txt")
set(reference_overview "${reference_work}/overview.html")
set(reference_oddities "${reference_work}/reply-oddities.html")
set(BUNDLE_REFERENCE_JAR "${CMAKE_BINARY_DIR}/osgi/com.lumarest.smartgateway.bridge-javadoc.jar")

if(NOT Java_JAVADOC_EXECUTABLE)
  get_filename_component(java_bin_dir "${Java_JAVAC_EXECUTABLE}" DIRECTORY)
  find_program(Java_JAVADOC_EXECUTABLE javadoc HINTS "${java_bin_dir}" REQUIRED)
endif()
if(NOT Java_JAR_EXECUTABLE)
  get_filename_component(java_bin_dir "${Java_JAVAC_EXECUTABLE}" DIRECTORY)
  find_program(Java_JAR_EXECUTABLE jar HINTS "${java_bin_dir}" REQUIRED)
endif()

set(service_sources "")
foreach(pkg IN LISTS reference_packages)
  file(GLOB pkg_sources CONFIGURE_DEPENDS
       "${CMAKE_SOURCE_DIR}/java/services/com/lumarest/smartgateway/${pkg}/*.java")
  list(APPEND service_sources ${pkg_sources})
endforeach()

# The tool (java/doc, compiled with the other classes) that reads the doc comments: the
# examples file and the overview page.
set(documented_args "")
if(BUNDLE_DOCUMENTED_PACKAGES)
  string(REPLACE ";" "," documented_list "${BUNDLE_DOCUMENTED_PACKAGES}")
  set(documented_args --documented "${documented_list}")
endif()
add_custom_command(OUTPUT "${BUNDLE_REFERENCE_EXAMPLES}" "${reference_overview}" "${reference_oddities}"
  COMMAND ${Java_JAVA_EXECUTABLE} -cp "${BUNDLE_JAVA_CLASSES}:${BUNDLE_GSON_JAR}" bundlesc.doc.ReferenceTool
          --sources "${CMAKE_SOURCE_DIR}/java/services" --examples "${BUNDLE_REFERENCE_EXAMPLES}"
          --overview "${reference_overview}" --oddities "${reference_oddities}" ${documented_args}
  DEPENDS "${java_out}/classes.stamp" ${service_sources}
  COMMENT "Collecting the natives' examples and the reply overview"
  VERBATIM)

# javadoc: doclint in full on the documented packages, -Werror on the whole run, so any
# warning (a missing @param, invalid HTML, an unknown reference) fails the build.
set(doclint_packages "")
foreach(pkg IN LISTS BUNDLE_DOCUMENTED_PACKAGES)
  list(APPEND doclint_packages "com.lumarest.smartgateway.${pkg}")
endforeach()
string(REPLACE ";" "," doclint_packages "${doclint_packages}")
set(doclint_options -Xdoclint:all)
list(LENGTH BUNDLE_DOCUMENTED_PACKAGES documented_count)
list(LENGTH reference_packages package_count)
if(documented_count EQUAL 0)
  set(doclint_options -Xdoclint:none)
elseif(documented_count LESS package_count)
  list(APPEND doclint_options "-Xdoclint/package:${doclint_packages}")
endif()
set(reference_title "Gateway service bridge (libbundle_sc.so)")
if(PROJECT_VERSION)
  string(APPEND reference_title " ${PROJECT_VERSION}")
endif()
add_custom_command(OUTPUT "${reference_work}/javadoc.stamp"
  COMMAND ${CMAKE_COMMAND} -E rm -rf "${reference_dir}"
  COMMAND ${Java_JAVADOC_EXECUTABLE} --release 8 -encoding UTF-8 -docencoding UTF-8 -charset UTF-8
          -quiet -Werror ${doclint_options}
          -tag "example:m:Example (default simulated gateway):"
          -tag "oddity:m:Reply oddity:"
          -overview "${reference_overview}"
          --add-stylesheet "${CMAKE_SOURCE_DIR}/java/doc/reference.css"
          -doctitle "${reference_title}"
          -windowtitle "Gateway service bridge"
          -notimestamp -nodeprecatedlist
          -sourcepath "${CMAKE_SOURCE_DIR}/java/services" -d "${reference_dir}"
          ${service_sources}
  COMMAND ${CMAKE_COMMAND} -E copy "${reference_oddities}" "${reference_dir}/reply-oddities.html"
  COMMAND ${CMAKE_COMMAND} -E make_directory "${CMAKE_BINARY_DIR}/osgi"
  COMMAND ${Java_JAR_EXECUTABLE} --create --file "${BUNDLE_REFERENCE_JAR}" -C "${reference_dir}" .
  COMMAND ${CMAKE_COMMAND} -E touch "${reference_work}/javadoc.stamp"
  DEPENDS ${service_sources} "${reference_overview}" "${reference_oddities}"
          "${CMAKE_SOURCE_DIR}/java/doc/reference.css"
  BYPRODUCTS "${BUNDLE_REFERENCE_JAR}"
  COMMENT "Building the reference (javadoc, doclint, no warnings) and its jar"
  VERBATIM)
add_custom_target(reference ALL
  DEPENDS "${reference_work}/javadoc.stamp" "${BUNDLE_REFERENCE_EXAMPLES}")
add_dependencies(reference java_classes)

if(bundle_java_tests)
  # Every documented example against the default simulated gateway, through the console.
  add_test(NAME jvm.reference-examples
    COMMAND ${Java_JAVA_EXECUTABLE} -Xcheck:jni -Djava.library.path=${CMAKE_LIBRARY_OUTPUT_DIRECTORY}
            -Dbundlesc.reference.examples=${BUNDLE_REFERENCE_EXAMPLES}
            -jar "${junit_console}" --disable-banner --disable-ansi-colors --details=tree --fail-if-no-tests
            --class-path "${BUNDLE_JAVA_CLASSES}:${BUNDLE_GSON_JAR}:${java_test_classes}"
            --select-class bundlesc.console.ReferenceExamplesTests
            --reports-dir "${CMAKE_BINARY_DIR}/test-reports/jvm.reference-examples")
  set_tests_properties(jvm.reference-examples PROPERTIES
    ENVIRONMENT "BRELO_SIM_SAVE=;LD_PRELOAD=$<TARGET_FILE:gatewayhost>"
    FAIL_REGULAR_EXPRESSION "WARNING in native method|FATAL ERROR in native method|WARNING: JNI")
endif()
if(BUILD_TESTING)
  add_test(NAME reference.overview
    COMMAND ${CMAKE_COMMAND} -DMAP=${CMAKE_SOURCE_DIR}/common/libbundle_sc.map
            -DSITE=${reference_dir}
            -P "${CMAKE_SOURCE_DIR}/cmake/check_reference_overview.cmake")
endif()
