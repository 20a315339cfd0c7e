# The sanitizer and MIPS tiers: the same sources built again in their own build trees, whose
# tests join this build's ctest run.

include(ExternalProject)
set(tier_tests "${CMAKE_BINARY_DIR}/tiers.cmake")
file(WRITE "${tier_tests}" "# Tests of the other tiers\n")

ExternalProject_Add(tier_sanitize
  SOURCE_DIR "${CMAKE_SOURCE_DIR}"
  BINARY_DIR "${CMAKE_BINARY_DIR}/tier-sanitize"
  CMAKE_ARGS -DCMAKE_BUILD_TYPE=Debug -DBUNDLE_SANITIZE=ON -DBUNDLE_TIERS=OFF
             -DBUNDLE_JVM_TESTS=OFF -DBUNDLE_TEST_PREFIX=asan.
             -DBUNDLE_JNI_INCLUDE_DIR=${BUNDLE_JNI_INCLUDE_DIR}
             -DBUNDLE_GTEST_SOURCE=${BUNDLE_GTEST_SOURCE}
  BUILD_ALWAYS ON
  INSTALL_COMMAND "")
file(APPEND "${tier_tests}" "subdirs(\"${CMAKE_BINARY_DIR}/tier-sanitize\")\n")

# The hardened profile: the whole unit suite again (no JVM classes), plus hardened.replies-json.
ExternalProject_Add(tier_hardened
  SOURCE_DIR "${CMAKE_SOURCE_DIR}"
  BINARY_DIR "${CMAKE_BINARY_DIR}/tier-hardened"
  CMAKE_ARGS -DCMAKE_BUILD_TYPE=${CMAKE_BUILD_TYPE} -DBUNDLE_HARDENED=ON -DBUNDLE_TIERS=OFF
             -DBUNDLE_JVM_TESTS=OFF -DBUNDLE_TEST_PREFIX=hardened.
             -DBUNDLE_JNI_INCLUDE_DIR=${BUNDLE_JNI_INCLUDE_DIR}
             -DBUNDLE_GTEST_SOURCE=${BUNDLE_GTEST_SOURCE}
             -DCMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER}
             -DCMAKE_C_COMPILER_LAUNCHER=${CMAKE_C_COMPILER_LAUNCHER}
  BUILD_ALWAYS ON
  INSTALL_COMMAND "")
file(APPEND "${tier_tests}" "subdirs(\"${CMAKE_BINARY_DIR}/tier-hardened\")\n")

find_program(BUNDLE_MIPS_CXX mips-linux-gnu-g++)
find_program(BUNDLE_QEMU qemu-mips)
if(BUNDLE_MIPS_CXX AND BUNDLE_QEMU)
  ExternalProject_Add(tier_mips
    SOURCE_DIR "${CMAKE_SOURCE_DIR}"
    BINARY_DIR "${CMAKE_BINARY_DIR}/tier-mips"
    CMAKE_ARGS -DCMAKE_TOOLCHAIN_FILE=${CMAKE_SOURCE_DIR}/cmake/mips-linux-gnu.cmake
               -DCMAKE_BUILD_TYPE=${CMAKE_BUILD_TYPE} -DBUNDLE_TIERS=OFF -DBUNDLE_JVM_TESTS=OFF
               -DBUNDLE_TEST_PREFIX=mips.
               # The configuration shipped on the gateway: what is measured is what is tested.
               -DBUNDLE_FLASH=ON
               -DCMAKE_CXX_COMPILER_LAUNCHER=${CMAKE_CXX_COMPILER_LAUNCHER}
               -DCMAKE_C_COMPILER_LAUNCHER=${CMAKE_C_COMPILER_LAUNCHER}
               -DBUNDLE_JNI_INCLUDE_DIR=${BUNDLE_JNI_INCLUDE_DIR}
               -DBUNDLE_GTEST_SOURCE=${BUNDLE_GTEST_SOURCE}
    BUILD_ALWAYS ON
    INSTALL_COMMAND "")
  file(APPEND "${tier_tests}" "subdirs(\"${CMAKE_BINARY_DIR}/tier-mips\")\n")
  # The same tests give Java the same bytes on both CPUs.
  add_test(NAME replies.host-vs-mips
    COMMAND ${CMAKE_COMMAND} -DHOST_TESTS=$<TARGET_FILE:bundle_unit_tests>
            -DMIPS_TESTS=${CMAKE_BINARY_DIR}/tier-mips/bin/bundle_unit_tests
            -DQEMU=${BUNDLE_QEMU} -DSYSROOT=/usr/mips-linux-gnu
            -DOUT=${CMAKE_BINARY_DIR}/replies -P "${CMAKE_SOURCE_DIR}/cmake/compare_replies.cmake")
  # Runs both tiers' unit tests once more: among the longest entries, so it starts early.
  set_tests_properties(replies.host-vs-mips PROPERTIES COST 900)
  # The capture tool writes the same folder on both CPUs.
  add_test(NAME capture.host-vs-mips
    COMMAND ${CMAKE_COMMAND} -DA=${CMAKE_BINARY_DIR}/captured/default
            -DB=${CMAKE_BINARY_DIR}/tier-mips/captured/default
            -P "${CMAKE_SOURCE_DIR}/cmake/compare_captures.cmake")
  set_tests_properties(capture.host-vs-mips PROPERTIES
    FIXTURES_REQUIRED "host.capture_default;mips.capture_default")
else()
  message(FATAL_ERROR "mips-linux-gnu-g++ or qemu-mips missing: the MIPS tier cannot be built "
                      "(scripts/test.sh installs them; -DBUNDLE_TIERS=OFF builds the host alone)")
endif()

set_property(DIRECTORY "${CMAKE_SOURCE_DIR}" APPEND PROPERTY TEST_INCLUDE_FILES "${tier_tests}")
