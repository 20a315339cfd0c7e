# The library, the platform it links against (the gateway simulator or the real libraries),
# and the simulator's control library for tests and tools.

set(BUNDLE_PACKAGES lanservices accessservices addressservices commservices transferservices
                    voipservices)

# The service frame: also linked straight into the unit tests, which test its internals.
file(GLOB BUNDLE_FRAME_SOURCES CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/common/*.cpp")
add_library(bundle_frame OBJECT ${BUNDLE_FRAME_SOURCES})
# The profile is decided in this one file; every other source is compiled alike in both
# profiles (and asks common/hardened.h at run time).
if(BUNDLE_HARDENED)
  set_source_files_properties("${CMAKE_SOURCE_DIR}/common/hardened.cpp" PROPERTIES
                              COMPILE_DEFINITIONS BUNDLE_HARDENED=1)
endif()

set(BUNDLE_SERVICE_SOURCES "")
foreach(pkg IN LISTS BUNDLE_PACKAGES)
  file(GLOB pkg_sources CONFIGURE_DEPENDS "${CMAKE_SOURCE_DIR}/${pkg}/*.cpp")
  list(APPEND BUNDLE_SERVICE_SOURCES ${pkg_sources})
endforeach()

# The natives, compiled once: the library is made of these objects and the frame's, and test
# programs that build the natives against another platform link the very same objects.
add_library(bundle_services OBJECT ${BUNDLE_SERVICE_SOURCES})
add_library(bundle_sc SHARED $<TARGET_OBJECTS:bundle_services> $<TARGET_OBJECTS:bundle_frame>)

# What the library's own code is compiled with: careful embedded C++ (no exceptions, no RTTI,
# no thread-safe statics, so nothing pulls in the C++ runtime) and hidden symbols.
foreach(target bundle_frame bundle_services bundle_sc)
  target_include_directories(${target} PRIVATE "${CMAKE_SOURCE_DIR}" ${BUNDLE_JNI_INCLUDES})
  target_compile_options(${target} PRIVATE -fno-exceptions -fno-rtti -fno-threadsafe-statics
                                           -fvisibility=hidden -fvisibility-inlines-hidden
                                           ${BUNDLE_WARNINGS})
  # A native's trace lines find the native's name from an address inside it (common/trace.h),
  # so each native's code stays in one piece, inside its own symbol: no cold part split off.
  target_compile_definitions(${target} PRIVATE BUNDLE_TRACE_BY_ADDRESS=1)
  target_compile_options(${target} PRIVATE -fno-reorder-blocks-and-partition)
endforeach()

# The configuration shipped on the gateway's flash (on by default for the MIPS toolchain):
# optimised for size, sections collected, no unwind tables (nothing unwinds through the
# library), link-time optimisation, a SysV hash table alone (4 KiB less than both tables, and
# read by every dynamic loader), no build id, the data segment packed right after the code
# in the file (a small common page size: no padding up to the next 4 KiB boundary). The
# library (not the capture tool, a program) is linked without the C start files: it registers
# no exit handler and no static destructor (one would need __dso_handle, which only the start
# files define, and would fail the link), and the dynamic loader runs .init_array itself, so
# their _init/_fini, transactional-memory and unload hooks would add only code, weak imports
# and sections. The
# stripped library is held to the budget of cmake/size_budget.cmake by the <tier>size test.
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^mips")
  set(flash_default ON)
else()
  set(flash_default OFF)
endif()
option(BUNDLE_FLASH "Build the library as shipped on the gateway's flash (size-optimised, LTO)"
       ${flash_default})
set(BUNDLE_FLASH_COMPILE_OPTIONS -Os -ffunction-sections -fdata-sections
    -fno-asynchronous-unwind-tables -fno-unwind-tables -fno-ident -flto -ffat-lto-objects)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "^mips")
  list(APPEND BUNDLE_FLASH_COMPILE_OPTIONS -Wa,-mno-pdr)  # no procedure descriptors in the file
endif()
set(BUNDLE_FLASH_LINK_OPTIONS -Os -flto=auto -Wl,--gc-sections -Wl,--hash-style=sysv
    -Wl,--build-id=none -Wl,-z,common-page-size=16)
if(BUNDLE_FLASH)
  foreach(target bundle_frame bundle_services)
    target_compile_options(${target} PRIVATE ${BUNDLE_FLASH_COMPILE_OPTIONS})
  endforeach()
  target_link_options(bundle_sc PRIVATE ${BUNDLE_FLASH_LINK_OPTIONS} -nostartfiles)
  set(BUNDLE_HASH_STYLE sysv)
else()
  set(BUNDLE_HASH_STYLE both)
endif()

# Every frame is measured (-fstack-usage) and bounded: the VM keeps only a small reserve of
# stack for native code, so no native or helper frame may exceed 16 KiB on any target; stack
# clash protection probes every page of a frame that grows.
set(BUNDLE_FRAME_LIMIT 16384)
foreach(target bundle_frame bundle_services)
  target_compile_options(${target} PRIVATE -fstack-usage -fstack-clash-protection)
endforeach()
if(BUNDLE_SANITIZE)
  set(frames_enforced OFF)  # red zones enlarge every frame: measured, not bounded
else()
  set(frames_enforced ON)
endif()
# With link-time optimisation the code, and so the .su files, come from the link (beside the
# library, <library>.ltrans<N>.ltrans.su).
set(frame_dirs "${CMAKE_BINARY_DIR}/CMakeFiles/bundle_services.dir;${CMAKE_BINARY_DIR}/CMakeFiles/bundle_frame.dir")
if(BUNDLE_FLASH)
  set(frame_dirs "${CMAKE_LIBRARY_OUTPUT_DIRECTORY}")
  target_link_options(bundle_sc PRIVATE -fstack-usage)
endif()
add_custom_command(TARGET bundle_sc POST_BUILD
  COMMAND ${CMAKE_COMMAND} "-DDIRS=${frame_dirs}"
          -DLIMIT=${BUNDLE_FRAME_LIMIT} -DOUT=${CMAKE_BINARY_DIR}/frame-sizes.txt
          -DTIER=${BUNDLE_TEST_PREFIX} -DENFORCE=${frames_enforced}
          -P "${CMAKE_SOURCE_DIR}/cmake/check_frames.cmake"
  VERBATIM)

# Linked by the C driver: libstdc++ is never a NEEDED entry; -z defs turns any use of the
# C++ runtime (or of a platform function nobody provides) into a link error.
set(BUNDLE_MAP "${CMAKE_SOURCE_DIR}/common/libbundle_sc.map")
set_target_properties(bundle_sc PROPERTIES LINKER_LANGUAGE C LINK_DEPENDS "${BUNDLE_MAP}")
target_link_options(bundle_sc PRIVATE "-Wl,--version-script=${BUNDLE_MAP}" -Wl,-z,defs
                                      -Wl,--hash-style=${BUNDLE_HASH_STYLE})

if(BUNDLE_PLATFORM_LIBDIR)
  # The gateway's own platform libraries.
  foreach(lib brelo tcapi)
    add_library(${lib} SHARED IMPORTED)
    set_target_properties(${lib} PROPERTIES IMPORTED_LOCATION "${BUNDLE_PLATFORM_LIBDIR}/lib${lib}.so.1"
                                            IMPORTED_NO_SONAME OFF)
  endforeach()
  set(BUNDLE_HAVE_SIM OFF)
else()
  add_subdirectory(sim)
  set(BUNDLE_HAVE_SIM ON)
endif()
# mjson 1.5 (libmjson-1.5.so): the gateway's own when the platform directory or the sysroot
# has it; otherwise the top-level project builds the compatible one in compat/mjson.
find_path(BUNDLE_MJSON_INCLUDE_DIR json.h HINTS "${BUNDLE_PLATFORM_LIBDIR}/../include"
          PATH_SUFFIXES mjson)
find_library(BUNDLE_MJSON_LIBRARY NAMES mjson-1.5 HINTS "${BUNDLE_PLATFORM_LIBDIR}")
if(BUNDLE_MJSON_INCLUDE_DIR AND BUNDLE_MJSON_LIBRARY)
  message(STATUS "mjson: ${BUNDLE_MJSON_LIBRARY}")
  add_library(mjson SHARED IMPORTED)
  set_target_properties(mjson PROPERTIES IMPORTED_LOCATION "${BUNDLE_MJSON_LIBRARY}"
                                         INTERFACE_INCLUDE_DIRECTORIES "${BUNDLE_MJSON_INCLUDE_DIR}")
  set(BUNDLE_COMPAT_MJSON OFF)
else()
  message(STATUS "mjson: no installed mjson 1.5, building compat/mjson")
  set(BUNDLE_COMPAT_MJSON ON)
endif()

# The platform libraries and mjson are NEEDED whatever this build happens to call; anything the
# C++ compiler driver would add after them stays as-needed, so it drops out unused.
target_link_libraries(bundle_sc PRIVATE "-Wl,--push-state,--no-as-needed" brelo tcapi mjson
                                        "-Wl,--pop-state")
# The natives see mjson's header through its target.
target_link_libraries(bundle_services PRIVATE mjson)

set(BUNDLE_ALLOWED_NEEDED libbrelo.so.1 libtcapi.so.1 libmjson-1.5.so libc.so.6)
set(BUNDLE_REQUIRED_NEEDED libbrelo.so.1 libtcapi.so.1 libmjson-1.5.so libc.so.6)
if(BUNDLE_SANITIZE)
  list(APPEND BUNDLE_ALLOWED_NEEDED libasan.so.8 libubsan.so.1 libm.so.6 libgcc_s.so.1
       libstdc++.so.6)
endif()

# Library sizes, recorded by every build (CI prints the figure for each tier) and checked by
# the <tier>size test (registered with the tests).
include("${CMAKE_SOURCE_DIR}/cmake/size_budget.cmake")
string(REGEX REPLACE "nm$" "size" BUNDLE_SIZE_TOOL "${CMAKE_NM}")
set(BUNDLE_SIZE_ARGS -DLIB=$<TARGET_FILE:bundle_sc> -DOUT=${CMAKE_BINARY_DIR}/library-size.txt
    -DSIZE_TOOL=${BUNDLE_SIZE_TOOL} -DSTRIP=${CMAKE_STRIP} -DNM=${CMAKE_NM}
    -DTIER=${BUNDLE_TEST_PREFIX})
if(BUNDLE_FLASH AND CMAKE_SYSTEM_PROCESSOR MATCHES "^mips")
  list(APPEND BUNDLE_SIZE_ARGS -DBUDGET=${BUNDLE_FLASH_BUDGET} -DLIMIT=${BUNDLE_FLASH_LIMIT})
endif()
add_custom_command(TARGET bundle_sc POST_BUILD
  COMMAND ${CMAKE_COMMAND} ${BUNDLE_SIZE_ARGS} -DBUDGET= -P "${CMAKE_SOURCE_DIR}/cmake/record_size.cmake"
  VERBATIM)
