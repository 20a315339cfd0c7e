# The bundle developer's kit (component java): what a gateway bundle is compiled against, the
# bundle check bundle_sc-check-bundle (java/sdk/bundlesc/sdk), and the manifest template
# (java/sdk/MANIFEST.MF). In the build tree it is <build>/sdk/; installed, the check is
# <bindir>/bundle_sc-check-bundle, its classes <javadir>/bundle_sc-sdk.jar and the template
# <datadir>/bundle_sc/sdk/MANIFEST.MF.
# Included by BundleInstall.cmake once the service classes jar (bundle_sc-services.jar) is there.

# The compile class path of a gateway bundle, one jar an entry: "<jar in this build>|<installed
# jar>", where @JAVADIR@ stands for the installed jar directory.
set(BUNDLE_SDK_CLASSPATH
  "${BUNDLE_SERVICES_JAR}|@JAVADIR@/bundle_sc-services.jar"
  # The OSGi framework API of the Felix the box and the osgi tier run (4.6.1, OSGi R5:
  # org.osgi.framework 1.7), a subset of what the gateway's framework offers.
  "${BUNDLE_FELIX_JAR}|${BUNDLE_FELIX_JAR}"
  "${BUNDLE_GSON_JAR}|${BUNDLE_GSON_JAR}"
  "${BUNDLE_REPLY_JAR}|@JAVADIR@/bundlesc.reply.jar")

set(sdk_out "${CMAKE_BINARY_DIR}/sdk")
set(BUNDLE_SDK_JAR "${sdk_out}/bundle_sc-sdk.jar")
set(BUNDLE_SDK_CHECK "${sdk_out}/bundle_sc-check-bundle")
set(BUNDLE_SDK_MANIFEST "${CMAKE_SOURCE_DIR}/java/sdk/MANIFEST.MF")

set(build_cp "")
set(installed_cp "")
foreach(entry IN LISTS BUNDLE_SDK_CLASSPATH)
  string(REPLACE "|" ";" pair "${entry}")
  list(GET pair 0 in_build)
  list(GET pair 1 installed)
  list(APPEND build_cp "${in_build}")
  string(REPLACE "@JAVADIR@" "$java_dir" installed "${installed}")
  list(APPEND installed_cp "${installed}")
endforeach()
list(JOIN build_cp ":" build_cp)
list(JOIN installed_cp ":" installed_cp)

set(SDK_LOCATIONS "checker=\"${BUNDLE_SDK_JAR}\"\nclasspath=\"${build_cp}\"")
configure_file("${CMAKE_SOURCE_DIR}/java/sdk/bundle_sc-check-bundle.in" "${BUNDLE_SDK_CHECK}" @ONLY
               FILE_PERMISSIONS OWNER_READ OWNER_WRITE OWNER_EXECUTE GROUP_READ GROUP_EXECUTE
                                WORLD_READ WORLD_EXECUTE)
file(RELATIVE_PATH java_from_bin "${CMAKE_INSTALL_FULL_BINDIR}"
     "${CMAKE_INSTALL_PREFIX}/${BUNDLE_JAVA_INSTALL_DIR}")
set(SDK_LOCATIONS "java_dir=$(cd \"$here/${java_from_bin}\" && pwd) || exit 2
checker=\"$java_dir/bundle_sc-sdk.jar\"
classpath=\"${installed_cp}\"")
configure_file("${CMAKE_SOURCE_DIR}/java/sdk/bundle_sc-check-bundle.in"
               "${sdk_out}/installed/bundle_sc-check-bundle" @ONLY)

add_custom_command(OUTPUT "${BUNDLE_SDK_JAR}" "${sdk_out}/MANIFEST.MF"
  COMMAND ${Java_JAR_EXECUTABLE} --create --file "${BUNDLE_SDK_JAR}" -C "${BUNDLE_JAVA_CLASSES}" bundlesc/sdk
  COMMAND ${CMAKE_COMMAND} -E copy "${BUNDLE_SDK_MANIFEST}" "${sdk_out}/MANIFEST.MF"
  DEPENDS "${CMAKE_BINARY_DIR}/java/classes.stamp" "${BUNDLE_SDK_MANIFEST}"
  COMMENT "The bundle developer's kit (bundle_sc-sdk.jar)")
add_custom_target(sdk_kit ALL DEPENDS "${BUNDLE_SDK_JAR}" "${sdk_out}/MANIFEST.MF")
add_dependencies(sdk_kit java_classes services_jar reply_bundle)

install(FILES "${BUNDLE_SDK_JAR}" DESTINATION "${BUNDLE_JAVA_INSTALL_DIR}" COMPONENT java)
install(PROGRAMS "${sdk_out}/installed/bundle_sc-check-bundle" DESTINATION "${CMAKE_INSTALL_BINDIR}"
        COMPONENT java)
install(FILES "${BUNDLE_SDK_MANIFEST}" DESTINATION "${CMAKE_INSTALL_DATADIR}/bundle_sc/sdk" COMPONENT java)
list(APPEND bundle_install_features sdk)

# "Your first bundle" as the documentation writes it, built with this kit and run in the box; the
# same bundle built for Java 17, refused; a bundle using Gson API newer than the gateway's.
if(bundle_java_tests AND TARGET console_bundle)
  foreach(mode first-bundle java17 newer-gson)
    set(name "${mode}")
    if(mode STREQUAL "java17")
      set(name "java17-refused")
    endif()
    add_test(NAME osgi.box-${name}
      COMMAND bash "${CMAKE_SOURCE_DIR}/tests/sdk/first-bundle.sh" "${CMAKE_SOURCE_DIR}" "${CMAKE_BINARY_DIR}" ${mode})
    set_tests_properties(osgi.box-${name} PROPERTIES
      TIMEOUT 180 FAIL_REGULAR_EXPRESSION "${BUNDLE_BOX_FAILURES}")
  endforeach()
endif()
