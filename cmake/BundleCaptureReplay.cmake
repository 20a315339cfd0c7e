# A captured gateway replayed off the gateway: by the console (BRELO_SIM_STATE), by the gateway
# in a box (--state, sim:load). The folder is the host tier's capture of the default gateway
# (fixture host.capture_default, capture/CMakeLists.txt); the JVM tests capture their own
# (java/tests/bundlesc/tests/CaptureReplayTest.java).

if(NOT bundle_java_tests OR NOT BUNDLE_CAPTURE_DEFAULT_DIR)
  return()
endif()

# jvm.capture-state: the console's session of query natives gives the same replies against the
# captured gateway as against the gateway; the demo's whole session (setters too) runs to its
# end against the capture.
add_test(NAME jvm.capture-state
  COMMAND ${CMAKE_COMMAND} -DJAVA=${Java_JAVA_EXECUTABLE}
          "-DCLASSPATH=${BUNDLE_JAVA_CLASSES}:${BUNDLE_GSON_JAR}" -DLIBDIR=${CMAKE_LIBRARY_OUTPUT_DIRECTORY}
          -DPRELOAD=$<TARGET_FILE:gatewayhost> -DSTATE=${BUNDLE_CAPTURE_DEFAULT_DIR}
          -DQUERIES=${CMAKE_SOURCE_DIR}/tests/capture/replay.batch
          -DSESSION=${CMAKE_SOURCE_DIR}/scripts/demo.batch
          -P "${CMAKE_SOURCE_DIR}/cmake/check_capture_replay.cmake")
set_tests_properties(jvm.capture-state PROPERTIES
  FIXTURES_REQUIRED host.capture_default
  FAIL_REGULAR_EXPRESSION "WARNING in native method|FATAL ERROR in native method|WARNING: JNI")

if(TEST osgi.box-capture)
  # tests/osgi/box/capture.gosh loads the capture with sim:load.
  set_tests_properties(osgi.box-capture PROPERTIES FIXTURES_REQUIRED host.capture_default)
  # The box started on the captured gateway (scripts/gateway-box.sh --state).
  add_test(NAME osgi.box-state
    COMMAND ${CMAKE_COMMAND} "-DSOURCE_DIR=${CMAKE_SOURCE_DIR}" "-DBUILD_DIR=${CMAKE_BINARY_DIR}"
            "-DBOX_ARGS=--state,${BUNDLE_CAPTURE_DEFAULT_DIR}"
            "-DSCRIPT=${CMAKE_SOURCE_DIR}/tests/capture/box-state.gosh"
            "-DEXPECT=${CMAKE_SOURCE_DIR}/tests/capture/box-state.expect"
            -P "${CMAKE_SOURCE_DIR}/cmake/check_box.cmake")
  set_tests_properties(osgi.box-state PROPERTIES
    FIXTURES_REQUIRED host.capture_default TIMEOUT 180 FAIL_REGULAR_EXPRESSION "${BUNDLE_BOX_FAILURES}")
endif()
