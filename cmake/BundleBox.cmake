# The gateway in a box: the console bundle (the shell's bridge: and sim: commands), the sample
# bundle, and the osgi.box-* tests that start Felix with the Gogo shell, the bridge bundle, the
# simulator bundle and the console bundle (scripts/gateway-box.sh) and run shell commands in it.

# The box runs Debian's Felix launcher (felix-main) and Gogo bundles; bundles compile against
# the framework API of BUNDLE_FELIX_JAR (cmake/BundleOsgi.cmake).
set(BUNDLE_FELIX_MAIN_JAR "/usr/share/java/org.apache.felix.main.jar" CACHE FILEPATH
    "Felix launcher jar (Debian: felix-main)")
if(NOT EXISTS "${BUNDLE_FELIX_MAIN_JAR}")
  message(FATAL_ERROR "the Felix launcher is not at ${BUNDLE_FELIX_MAIN_JAR} (Debian package felix-main)")
endif()

# The shell's command annotations (help texts) come from Gogo's runtime (libfelix-gogo-runtime-java).
set(BUNDLE_GOGO_RUNTIME_JAR "/usr/share/java/org.apache.felix.gogo.runtime.jar" CACHE FILEPATH
    "Gogo runtime jar (Debian: libfelix-gogo-runtime-java)")
if(NOT EXISTS "${BUNDLE_GOGO_RUNTIME_JAR}")
  message(FATAL_ERROR "the Gogo runtime is not at ${BUNDLE_GOGO_RUNTIME_JAR} (Debian package libfelix-gogo-runtime-java)")
endif()

set(box_dir "${CMAKE_BINARY_DIR}/osgi/box")
set(BUNDLE_CONSOLE_JAR "${CMAKE_BINARY_DIR}/osgi/bundlesc.console.jar")
set(BUNDLE_SAMPLE_JAR "${CMAKE_BINARY_DIR}/osgi/samples/lanhosts.jar")
set(box_osgi_cp "${BUNDLE_FELIX_JAR}")
if(NOT TARGET bridge_bundle OR NOT TARGET sim_bundle)
  message(FATAL_ERROR "the gateway in a box needs the bridge and simulator bundles (cmake/BundleOsgi.cmake)")
endif()

# The console bundle: the console's classes (and its catalog) and the bundle check (java/sdk)
# with the shell commands of java/box/, importing the six service packages from the bridge
# bundle and the simulator's control class where the simulator bundle is installed.
file(GLOB box_sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/java/box/bundlesc/console/*.java")
# One import a manifest line (a line continues on the next, which starts with a space).
set(console_imports "")
foreach(pkg lanservices accessservices addressservices commservices transferservices voipservices)
  string(APPEND console_imports "com.lumarest.smartgateway.${pkg};version=\"[1.0,2)\",\n ")
endforeach()
string(APPEND console_imports "com.google.gson;version=\"[2.7,3)\",\n com.google.gson.stream;version=\"[2.7,3)\",\n "
       "org.osgi.framework;version=\"[1.6,2)\",\n bundlesc.sim;resolution:=optional,\n "
       # The box's check of the bundles installed later (a resolver hook).
       "org.osgi.framework.hooks.resolver;version=\"[1.0,2)\";resolution:=optional,\n "
       "org.osgi.framework.wiring;version=\"[1.0,2)\";resolution:=optional,\n "
       # The help texts' annotations: where Gogo is not the shell they are simply not there.
       "org.apache.felix.service.command;status=provisional;resolution:=optional")
file(WRITE "${box_dir}/console.mf"
  "Manifest-Version: 1.0\nBundle-ManifestVersion: 2\n"
  "Bundle-SymbolicName: bundlesc.console\nBundle-Version: ${PROJECT_VERSION}\n"
  "Bundle-Name: Bridge console and shell commands\n"
  "Bundle-Activator: bundlesc.console.ConsoleActivator\n"
  "Import-Package: ${console_imports}\n")
add_custom_command(OUTPUT "${BUNDLE_CONSOLE_JAR}"
  COMMAND ${CMAKE_COMMAND} -E rm -rf "${box_dir}/console"
  COMMAND ${CMAKE_COMMAND} -E copy_directory "${BUNDLE_JAVA_CLASSES}/bundlesc/console"
          "${box_dir}/console/bundlesc/console"
  COMMAND ${CMAKE_COMMAND} -E copy_directory "${BUNDLE_JAVA_CLASSES}/bundlesc/sdk"
          "${box_dir}/console/bundlesc/sdk"
  COMMAND ${Java_JAVAC_EXECUTABLE} --release 8 -encoding UTF-8 -Xlint:all -Xlint:-options
          -cp "${BUNDLE_JAVA_CLASSES}:${BUNDLE_GSON_JAR}:${box_osgi_cp}:${BUNDLE_GOGO_RUNTIME_JAR}"
          -d "${box_dir}/console" ${box_sources}
  COMMAND ${Java_JAR_EXECUTABLE} cfm "${BUNDLE_CONSOLE_JAR}" "${box_dir}/console.mf" -C "${box_dir}/console" .
  DEPENDS "${java_out}/classes.stamp" ${box_sources} "${box_dir}/console.mf"
  COMMENT "Packing the console bundle with the shell commands")
add_custom_target(console_bundle ALL DEPENDS "${BUNDLE_CONSOLE_JAR}")
add_dependencies(console_bundle java_classes bridge_bundle sim_bundle)

# The box's launcher (java/box/launcher): Felix with the box's bundles, its shell or a script.
set(BUNDLE_BOX_LAUNCHER_JAR "${box_dir}/launcher.jar")
file(GLOB launcher_sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/java/box/launcher/bundlesc/box/*.java")
add_custom_command(OUTPUT "${BUNDLE_BOX_LAUNCHER_JAR}"
  COMMAND ${CMAKE_COMMAND} -E rm -rf "${box_dir}/launcher"
  COMMAND ${Java_JAVAC_EXECUTABLE} --release 8 -encoding UTF-8 -Xlint:all -Xlint:-options
          -cp "${BUNDLE_FELIX_MAIN_JAR}" -d "${box_dir}/launcher" ${launcher_sources}
  COMMAND ${Java_JAR_EXECUTABLE} --create --file "${BUNDLE_BOX_LAUNCHER_JAR}" -C "${box_dir}/launcher" .
  DEPENDS ${launcher_sources}
  COMMENT "Packing the box's launcher")
add_custom_target(box_launcher ALL DEPENDS "${BUNDLE_BOX_LAUNCHER_JAR}")

# The sample bundle, built as a bundle developer builds one: its sources and manifest against
# the service classes and the framework API.
set(sample_src "${CMAKE_SOURCE_DIR}/java/samples/lanhosts")
file(GLOB_RECURSE sample_sources CONFIGURE_DEPENDS "${sample_src}/*.java")
add_custom_command(OUTPUT "${BUNDLE_SAMPLE_JAR}"
  COMMAND ${CMAKE_COMMAND} -E rm -rf "${box_dir}/lanhosts"
  COMMAND ${Java_JAVAC_EXECUTABLE} --release 8 -encoding UTF-8 -Xlint:all -Xlint:-options
          -cp "${BUNDLE_JAVA_CLASSES}:${BUNDLE_GSON_JAR}:${box_osgi_cp}" -d "${box_dir}/lanhosts" ${sample_sources}
  COMMAND ${CMAKE_COMMAND} -E make_directory "${CMAKE_BINARY_DIR}/osgi/samples"
  COMMAND ${Java_JAR_EXECUTABLE} cfm "${BUNDLE_SAMPLE_JAR}" "${sample_src}/MANIFEST.MF" -C "${box_dir}/lanhosts" .
  DEPENDS "${java_out}/classes.stamp" ${sample_sources} "${sample_src}/MANIFEST.MF"
  COMMENT "Packing the sample bundle (java/samples/lanhosts)")
add_custom_target(sample_bundles ALL DEPENDS "${BUNDLE_SAMPLE_JAR}")
add_dependencies(sample_bundles java_classes)

# What fails a box test wherever it appears: JNI misuse, a bundle the framework could not start,
# a shell command that threw, a shell stuck at its stop, Gson's own words in a message, the
# console's options in the shell.
set(BUNDLE_BOX_FAILURES "WARNING in native method|FATAL ERROR in native method|WARNING: JNI|ERROR: Bundle|gogo: |FAILED TO STOP|setLenient|--list|--help")
if(bundle_java_tests)
  # tests/osgi/box/<name>.gosh: shell commands run as a script, one a line; <name>.typed: commands
  # typed at the prompt (@BUNDLE_SAMPLE_JAR@ and the like replaced); <name>.expect: texts the
  # output must hold, in that order, separated by lines "----" (cmake/check_box.cmake). Each test
  # starts the box (a fresh framework cache and a fresh default gateway).
  file(GLOB box_scripts CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/tests/osgi/box/*.gosh"
       "${CMAKE_SOURCE_DIR}/tests/osgi/box/*.typed")
  foreach(script IN LISTS box_scripts)
    get_filename_component(name "${script}" NAME_WE)
    get_filename_component(file "${script}" NAME)
    configure_file("${script}" "${box_dir}/tests/${file}" @ONLY)
    add_test(NAME osgi.box-${name}
      COMMAND ${CMAKE_COMMAND} "-DSOURCE_DIR=${CMAKE_SOURCE_DIR}" "-DBUILD_DIR=${CMAKE_BINARY_DIR}"
              "-DSCRIPT=${box_dir}/tests/${file}"
              "-DEXPECT=${CMAKE_SOURCE_DIR}/tests/osgi/box/${name}.expect"
              -P "${CMAKE_SOURCE_DIR}/cmake/check_box.cmake")
    set_tests_properties(osgi.box-${name} PROPERTIES
      TIMEOUT 180 FAIL_REGULAR_EXPRESSION "${BUNDLE_BOX_FAILURES}")
  endforeach()
endif()
