# Stand-ins for the bridge bundle and the simulator bundle, with the names, files and
# manifests of the real ones, for a tree where the rules that build those (cmake/BundleOsgi.cmake)
# are not there yet. Included only when the targets do not exist; delete once they do.

set(standin_dir "${CMAKE_BINARY_DIR}/osgi/standin")
set(BUNDLE_BRIDGE_JAR "${CMAKE_BINARY_DIR}/osgi/com.lumarest.smartgateway.bridge.jar")
set(standin_packages lanservices accessservices addressservices commservices transferservices voipservices)
set(standin_exports "")
foreach(pkg IN LISTS standin_packages)
  if(standin_exports)
    string(APPEND standin_exports ",")
  endif()
  string(APPEND standin_exports "com.lumarest.smartgateway.${pkg};version=\"1.0.0\"")
endforeach()
file(WRITE "${standin_dir}/bridge.mf"
  "Manifest-Version: 1.0\nBundle-ManifestVersion: 2\n"
  "Bundle-SymbolicName: com.lumarest.smartgateway.bridge\nBundle-Version: 1.0.0\n"
  "Export-Package: ${standin_exports}\n"
  "Bundle-NativeCode: lib/linux-x86_64/libbundle_sc.so;osname=Linux;processor=x86-64\n")
add_custom_command(OUTPUT "${BUNDLE_BRIDGE_JAR}"
  COMMAND ${CMAKE_COMMAND} -E rm -rf "${standin_dir}/bridge"
  COMMAND ${CMAKE_COMMAND} -E make_directory "${standin_dir}/bridge/lib/linux-x86_64"
  COMMAND ${CMAKE_COMMAND} -E copy_directory "${BUNDLE_JAVA_CLASSES}/com" "${standin_dir}/bridge/com"
  COMMAND ${CMAKE_COMMAND} -E copy "$<TARGET_FILE:bundle_sc>" "${standin_dir}/bridge/lib/linux-x86_64/"
  COMMAND ${Java_JAR_EXECUTABLE} cfm "${BUNDLE_BRIDGE_JAR}" "${standin_dir}/bridge.mf" -C "${standin_dir}/bridge" .
  DEPENDS "${java_out}/classes.stamp" bundle_sc "${standin_dir}/bridge.mf"
  COMMENT "Packing the bridge bundle (stand-in)")
add_custom_target(bridge_bundle ALL DEPENDS "${BUNDLE_BRIDGE_JAR}")
add_dependencies(bridge_bundle java_classes)

if(TARGET gatewaysim_jni AND NOT TARGET sim_bundle)
  file(WRITE "${standin_dir}/sim.mf"
    "Manifest-Version: 1.0\nBundle-ManifestVersion: 2\n"
    "Bundle-SymbolicName: bundlesc.sim\nBundle-Version: 1.0.0\n"
    "Export-Package: bundlesc.sim;version=\"1.0.0\"\n"
    "Bundle-NativeCode: lib/linux-x86_64/libgatewaysim_jni.so;osname=Linux;processor=x86-64\n")
  set(sim_jar "${CMAKE_BINARY_DIR}/osgi/bundlesc.sim.jar")
  add_custom_command(OUTPUT "${sim_jar}"
    COMMAND ${CMAKE_COMMAND} -E rm -rf "${standin_dir}/sim"
    COMMAND ${CMAKE_COMMAND} -E make_directory "${standin_dir}/sim/lib/linux-x86_64"
    COMMAND ${CMAKE_COMMAND} -E copy_directory "${BUNDLE_JAVA_CLASSES}/bundlesc/sim" "${standin_dir}/sim/bundlesc/sim"
    COMMAND ${CMAKE_COMMAND} -E copy "$<TARGET_FILE:gatewaysim_jni>" "${standin_dir}/sim/lib/linux-x86_64/"
    COMMAND ${Java_JAR_EXECUTABLE} cfm "${sim_jar}" "${standin_dir}/sim.mf" -C "${standin_dir}/sim" .
    DEPENDS "${java_out}/classes.stamp" gatewaysim_jni "${standin_dir}/sim.mf"
    COMMENT "Packing the simulator bundle (stand-in)")
  add_custom_target(sim_bundle ALL DEPENDS "${sim_jar}")
  add_dependencies(sim_bundle java_classes)
endif()
