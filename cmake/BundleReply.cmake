# The reply reader for bundles (java/reply, package bundlesc.reply): its OSGi bundle
# bundlesc.reply.jar, which exports the package and imports Gson, and the osgi.reply-reader
# test that installs it beside the bridge bundle and uses it from a bundle.
#
#   reply_bundle target     ${CMAKE_BINARY_DIR}/osgi/bundlesc.reply.jar (installed, component java)
#   osgi.reply-reader       the bundle in the framework of the osgi.* tier, used by another bundle
#
# Included from cmake/BundleJava.cmake after cmake/BundleOsgi.cmake: the classes come from the
# Java build (java_classes), the test runs with that tier's harness.

set(BUNDLE_REPLY_JAR "${osgi_out}/bundlesc.reply.jar")
set(reply_stage "${osgi_out}/reply")
# Only the Gson tree classes are used, which every Gson 2 release has: a gateway's older Gson
# resolves it as well as Debian's.
file(CONFIGURE OUTPUT "${osgi_out}/reply.MF" CONTENT "Manifest-Version: 1.0
Bundle-ManifestVersion: 2
Bundle-SymbolicName: bundlesc.reply
Bundle-Version: ${bundle_version}
Bundle-Name: Gateway reply reader
${java8_headers}Export-Package: bundlesc.reply;version=\"${bundle_version}\";uses:=\"com.google.gson\"
Import-Package: com.google.gson;version=\"[2.0,3)\"
" @ONLY)
add_custom_command(OUTPUT "${BUNDLE_REPLY_JAR}"
  COMMAND ${CMAKE_COMMAND} -E rm -rf "${reply_stage}"
  COMMAND ${CMAKE_COMMAND} -E copy_directory "${BUNDLE_JAVA_CLASSES}/bundlesc/reply"
          "${reply_stage}/bundlesc/reply"
  COMMAND ${BUNDLE_JAR_TOOL} --create --file "${BUNDLE_REPLY_JAR}"
          --manifest "${osgi_out}/reply.MF" -C "${reply_stage}" .
  DEPENDS "${java_out}/classes.stamp" "${osgi_out}/reply.MF"
  COMMENT "Reply reader bundle bundlesc.reply ${bundle_version}"
  VERBATIM)
add_custom_target(reply_bundle ALL DEPENDS "${BUNDLE_REPLY_JAR}")
add_dependencies(reply_bundle java_classes)

# ---- osgi.reply-reader
if(NOT bundle_java_tests OR NOT TARGET osgi_test_bundles)
  return()
endif()
set(reply_user "bundlesc.osgi.replyuser")
set(reply_user_jar "${osgi_out}/test/${reply_user}.jar")
set(reply_test_classes "${osgi_out}/test/reply")
file(GLOB_RECURSE reply_user_sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/java/osgi/reply/user/*.java")
file(GLOB_RECURSE reply_harness_sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/java/osgi/reply/harness/*.java")
set(reply_user_imports "bundlesc.reply;version=\"[1.0,2)\",\n com.google.gson;version=\"[2.0,3)\",\n")
foreach(pkg commservices lanservices)
  string(APPEND reply_user_imports " com.lumarest.smartgateway.${pkg};version=\"[1.0,2)\",\n")
endforeach()
string(APPEND reply_user_imports " bundlesc.sim;version=\"[1.0,2)\",\n org.osgi.framework;version=\"[1.5,2)\"")
file(CONFIGURE OUTPUT "${osgi_out}/test/replyuser.MF" CONTENT "Manifest-Version: 1.0
Bundle-ManifestVersion: 2
Bundle-SymbolicName: ${reply_user}
Bundle-Version: ${bundle_version}
Bundle-Name: Reply reader test bundle
${java8_headers}Bundle-Activator: bundlesc.osgi.replyuser.ReplyUserActivator
Import-Package: ${reply_user_imports}
" @ONLY)
add_custom_command(OUTPUT "${reply_user_jar}" "${reply_test_classes}/harness.stamp"
  COMMAND ${CMAKE_COMMAND} -E rm -rf "${reply_test_classes}"
  COMMAND ${Java_JAVAC_EXECUTABLE} --release 8 -encoding UTF-8 -Xlint:all -Xlint:-options
          -cp "${BUNDLE_FELIX_JAR}:${BUNDLE_JAVA_CLASSES}:${BUNDLE_GSON_JAR}"
          -d "${reply_test_classes}/user" ${reply_user_sources}
  COMMAND ${BUNDLE_JAR_TOOL} --create --file "${reply_user_jar}"
          --manifest "${osgi_out}/test/replyuser.MF" -C "${reply_test_classes}/user" .
  # Beside the tier's harness, whose framework start and bundle helpers it uses.
  COMMAND ${Java_JAVAC_EXECUTABLE} --release 11 -encoding UTF-8 -Xlint:all -Xlint:-options
          -cp "${BUNDLE_FELIX_JAR}:${harness_classes}" -d "${reply_test_classes}/harness"
          ${reply_harness_sources}
  COMMAND ${CMAKE_COMMAND} -E touch "${reply_test_classes}/harness.stamp"
  DEPENDS ${reply_user_sources} ${reply_harness_sources} "${osgi_out}/test/replyuser.MF"
          "${java_out}/classes.stamp" "${osgi_out}/test/harness.stamp"
  COMMENT "Reply reader test bundle and harness"
  VERBATIM)
add_custom_target(reply_test_bundle ALL DEPENDS "${reply_user_jar}" "${reply_test_classes}/harness.stamp")
add_dependencies(reply_test_bundle osgi_test_bundles reply_bundle)

add_test(NAME osgi.reply-reader
  COMMAND ${Java_JAVA_EXECUTABLE} -Xcheck:jni
          --add-opens java.base/java.net=ALL-UNNAMED --add-opens java.base/java.security=ALL-UNNAMED
          -Dbundlesc.osgi.dir=${osgi_out}
          -Dbundlesc.osgi.properties=${CMAKE_SOURCE_DIR}/java/osgi/framework.properties
          -Dbundlesc.osgi.gson=${BUNDLE_GSON_JAR}
          -cp "${BUNDLE_FELIX_JAR}:${harness_classes}:${reply_test_classes}/harness"
          bundlesc.osgi.ReplyBundleHarness)
set_tests_properties(osgi.reply-reader PROPERTIES
  TIMEOUT 120
  ENVIRONMENT "BRELO_SIM_SAVE=;LD_LIBRARY_PATH=${CMAKE_LIBRARY_OUTPUT_DIRECTORY};LD_PRELOAD=$<TARGET_FILE:gatewayhost>"
  FAIL_REGULAR_EXPRESSION "WARNING in native method|FATAL ERROR in native method|WARNING: JNI|FAILED: ")
