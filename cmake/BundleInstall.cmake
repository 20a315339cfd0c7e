# Install rules: `cmake --install <build> [--prefix <dir>] [--component <name>]`.
#
#   runtime    what the gateway needs: libbundle_sc.so in the libdir, without the build tree's
#              RUNPATH (on the gateway the system's loader finds libbrelo.so.1, libtcapi.so.1
#              and libmjson-1.5.so). `--strip` strips it; firmware builds strip it themselves.
#   simulator  off the gateway only (no BUNDLE_PLATFORM_LIBDIR): the simulated platform in
#              <libdir>/bundle_sc/simulator (a directory of its own, so it never shadows a real
#              platform library), the default gateway's state in <datadir>/bundle_sc/gateway,
#              and bin/bundle_sc-simulator, which runs a command (a JVM) against them.
#   capture    bin/bundle_sc-capture, which captures a gateway into a state folder of the
#              simulator (capture/); on the gateway it opens the platform libraries at run time,
#              off it `bundle_sc-simulator bundle_sc-capture FOLDER` captures the simulated one.
#              A package of its own: the library's flash budget does not count it.
#   java       the service classes without native code (bundle_sc-services.jar, for non-OSGi
#              use and for compiling bundles), the bridge bundle and its Javadoc jar, the
#              reply reader's bundle (bundlesc.reply.jar), in <datadir>/java; the bundle
#              developer's kit (cmake/BundleSdk.cmake).
#
# A firmware package installs the runtime component, a sub-package the capture component
# (packaging/).

include(GNUInstallDirs)

if(CMAKE_CROSSCOMPILING OR BUNDLE_SANITIZE)
  set(java_default OFF)
else()
  set(java_default ON)
endif()
option(BUNDLE_INSTALL_JAVA "Build and install the Java jars (component java)" ${java_default})
set(BUNDLE_JAVA_INSTALL_DIR "${CMAKE_INSTALL_DATADIR}/java" CACHE STRING
    "Where the jars are installed, relative to the prefix")

# --- runtime -------------------------------------------------------------------------------
# No INSTALL_RPATH: installing removes the RUNPATH that points at the build tree.
install(TARGETS bundle_sc
        LIBRARY DESTINATION "${CMAKE_INSTALL_LIBDIR}" COMPONENT runtime)

# --- capture -------------------------------------------------------------------------------
install(TARGETS bundle_sc-capture RUNTIME DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT capture)

# --- simulator -----------------------------------------------------------------------------
set(bundle_install_features "")
if(BUNDLE_HAVE_SIM)
  set(sim_targets brelo tcapi gatewaysim gatewayhost)
  if(TARGET gatewaysim_jni)
    list(APPEND sim_targets gatewaysim_jni)
  endif()
  if(BUNDLE_COMPAT_MJSON)
    list(APPEND sim_targets mjson)
    list(APPEND bundle_install_features compat_mjson)
  endif()
  # Each finds the simulator's libgatewaysim.so (and mjson) beside itself.
  set_target_properties(${sim_targets} PROPERTIES INSTALL_RPATH "$ORIGIN")
  install(TARGETS ${sim_targets}
          LIBRARY DESTINATION "${BUNDLE_SIM_INSTALL_LIBDIR}" COMPONENT simulator NAMELINK_SKIP)
  install(DIRECTORY "${CMAKE_SOURCE_DIR}/sim/gateway/"
          DESTINATION "${BUNDLE_SIM_INSTALL_STATEDIR}" COMPONENT simulator
          FILES_MATCHING PATTERN "*.ini")
  file(RELATIVE_PATH BUNDLE_SIM_FROM_BIN "${CMAKE_INSTALL_FULL_BINDIR}"
       "${CMAKE_INSTALL_PREFIX}/${BUNDLE_SIM_INSTALL_LIBDIR}")
  file(RELATIVE_PATH BUNDLE_LIB_FROM_BIN "${CMAKE_INSTALL_FULL_BINDIR}" "${CMAKE_INSTALL_FULL_LIBDIR}")
  configure_file("${CMAKE_SOURCE_DIR}/sim/bundle_sc-simulator.in"
                 "${CMAKE_BINARY_DIR}/sim/bundle_sc-simulator" @ONLY)
  install(PROGRAMS "${CMAKE_BINARY_DIR}/sim/bundle_sc-simulator"
          DESTINATION "${CMAKE_INSTALL_BINDIR}" COMPONENT simulator)
  list(APPEND bundle_install_features simulator)
endif()

# --- java ----------------------------------------------------------------------------------
if(BUNDLE_INSTALL_JAVA)
  find_package(Java 9 COMPONENTS Development)
endif()
if(BUNDLE_INSTALL_JAVA AND Java_JAVAC_EXECUTABLE AND Java_JAR_EXECUTABLE)
  # The declarations alone: the service classes of the six packages, compiled for the
  # gateway's Java 8 VM; each loads libbundle_sc from java.library.path.
  set(services_classes "${CMAKE_BINARY_DIR}/java/services-classes")
  set(BUNDLE_SERVICES_JAR "${CMAKE_BINARY_DIR}/java/bundle_sc-services.jar")
  file(GLOB_RECURSE services_sources CONFIGURE_DEPENDS
       "${CMAKE_SOURCE_DIR}/java/services/com/lumarest/smartgateway/*.java")
  file(WRITE "${CMAKE_BINARY_DIR}/java/services-manifest.txt"
       "Implementation-Title: bundle_sc service classes\n"
       "Implementation-Version: ${PROJECT_VERSION}\n"
       "Implementation-Vendor: Lumarest\n")
  add_custom_command(OUTPUT "${BUNDLE_SERVICES_JAR}"
    COMMAND ${CMAKE_COMMAND} -E rm -rf "${services_classes}"
    COMMAND ${Java_JAVAC_EXECUTABLE} --release 8 -encoding UTF-8 -Xlint:all -Xlint:-options -parameters
            -d "${services_classes}" ${services_sources}
    COMMAND ${Java_JAR_EXECUTABLE} --create --file "${BUNDLE_SERVICES_JAR}"
            --manifest "${CMAKE_BINARY_DIR}/java/services-manifest.txt" -C "${services_classes}" .
    DEPENDS ${services_sources} "${CMAKE_BINARY_DIR}/java/services-manifest.txt"
    COMMENT "Packing the service classes (bundle_sc-services.jar)")
  add_custom_target(services_jar ALL DEPENDS "${BUNDLE_SERVICES_JAR}")
  install(FILES "${BUNDLE_SERVICES_JAR}" DESTINATION "${BUNDLE_JAVA_INSTALL_DIR}" COMPONENT java)
  list(APPEND bundle_install_features services_jar)

  # The bundle developer's kit, when this build compiles the Java side.
  if(TARGET java_classes)
    include("${CMAKE_CURRENT_LIST_DIR}/BundleSdk.cmake")
  endif()

  # The bridge bundle and its Javadoc jar, when this build makes them; built by `all` so that
  # `cmake --install` finds them.
  add_custom_target(install_jars ALL)
  if(TARGET bridge_bundle)
    add_dependencies(install_jars bridge_bundle)
    install(FILES "${BUNDLE_BRIDGE_JAR}" DESTINATION "${BUNDLE_JAVA_INSTALL_DIR}" COMPONENT java)
    list(APPEND bundle_install_features bridge_bundle)
  endif()
  if(TARGET reference)
    add_dependencies(install_jars reference)
    install(FILES "${BUNDLE_REFERENCE_JAR}" DESTINATION "${BUNDLE_JAVA_INSTALL_DIR}" COMPONENT java)
    list(APPEND bundle_install_features reference)
  endif()
  if(TARGET reply_bundle)
    add_dependencies(install_jars reply_bundle)
    install(FILES "${BUNDLE_REPLY_JAR}" DESTINATION "${BUNDLE_JAVA_INSTALL_DIR}" COMPONENT java)
    list(APPEND bundle_install_features reply_bundle)
  endif()
endif()

# --- tests ---------------------------------------------------------------------------------
# <tier>install: installs this build into a staging directory (DESTDIR, prefix /usr) and
# compares the files with packaging/install-manifest-*.txt; checks the library's NEEDED
# entries and that it has no RUNPATH; off the gateway, a JVM loads the installed library with
# the installed simulator. The MIPS tier installs the gateway's part, stripped, and configures
# a gateway build (vendor's libraries) to see that it installs nothing but that part.
# host.packaging: the OpenWrt and Buildroot packages name exactly the gateway's files.
if(BUILD_TESTING AND NOT BUNDLE_SANITIZE AND NOT BUNDLE_HARDENED)
  # Lists travel comma-separated (a semicolon would split the test's arguments).
  string(REPLACE ";" "," features "${bundle_install_features}")
  string(REPLACE ";" "," required_needed "${BUNDLE_REQUIRED_NEEDED}")
  string(REPLACE ";" "," allowed_needed "${BUNDLE_ALLOWED_NEEDED}")
  set(install_args
    -DBUILD=${CMAKE_BINARY_DIR} -DSOURCE=${CMAKE_SOURCE_DIR}
    -DSTAGE=${CMAKE_BINARY_DIR}/install-staging
    -DLIBDIR=${CMAKE_INSTALL_LIBDIR} -DDATADIR=${CMAKE_INSTALL_DATADIR}
    -DBINDIR=${CMAKE_INSTALL_BINDIR} -DJAVADIR=${BUNDLE_JAVA_INSTALL_DIR}
    -DFEATURES=${features}
    -DREADELF=${CMAKE_READELF}
    -DREQUIRED_NEEDED=${required_needed} -DALLOWED_NEEDED=${allowed_needed})
  if(CMAKE_CROSSCOMPILING)
    list(APPEND install_args -DMODE=gateway
         -DTOOLCHAIN=${CMAKE_TOOLCHAIN_FILE}
         -DJNI_INCLUDE_DIR=${BUNDLE_JNI_INCLUDE_DIR})
  else()
    find_package(Java 11 COMPONENTS Runtime)
    list(APPEND install_args -DMODE=host -DJAVA=${Java_JAVA_EXECUTABLE})
  endif()
  add_test(NAME ${BUNDLE_TEST_PREFIX}install
    COMMAND ${CMAKE_COMMAND} ${install_args} -P "${CMAKE_SOURCE_DIR}/cmake/check_install.cmake")
  set_tests_properties(${BUNDLE_TEST_PREFIX}install PROPERTIES
    FAIL_REGULAR_EXPRESSION "WARNING in native method|FATAL ERROR in native method|WARNING: JNI")
  if(NOT CMAKE_CROSSCOMPILING)
    add_test(NAME ${BUNDLE_TEST_PREFIX}packaging
      COMMAND ${CMAKE_COMMAND} -DSOURCE=${CMAKE_SOURCE_DIR} -DVERSION=${PROJECT_VERSION}
              -P "${CMAKE_SOURCE_DIR}/cmake/check_packaging.cmake")
  endif()
endif()
