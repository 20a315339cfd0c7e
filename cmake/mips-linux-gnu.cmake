# Cross build for the gateway's CPU: 32-bit big-endian MIPS, Linux, GNU C library.
# Debian's cross compiler (g++-mips-linux-gnu) by default; for the gateway vendor's own
# toolchain pass -DBUNDLE_CROSS_PREFIX=/opt/toolchain/bin/mips-linux-gnu- (and, if its
# libraries live elsewhere, -DBUNDLE_SYSROOT=...).
set(CMAKE_SYSTEM_NAME Linux)
set(CMAKE_SYSTEM_PROCESSOR mips)

set(BUNDLE_CROSS_PREFIX "mips-linux-gnu-" CACHE STRING "Prefix of the cross tools")
set(BUNDLE_SYSROOT "/usr/mips-linux-gnu" CACHE PATH "Target libraries (for qemu and find_*)")

set(CMAKE_C_COMPILER "${BUNDLE_CROSS_PREFIX}gcc")
set(CMAKE_CXX_COMPILER "${BUNDLE_CROSS_PREFIX}g++")

set(CMAKE_FIND_ROOT_PATH "${BUNDLE_SYSROOT}")
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_PACKAGE ONLY)

# Test programs run under user-mode emulation.
find_program(BUNDLE_QEMU_MIPS qemu-mips)
if(BUNDLE_QEMU_MIPS)
  set(CMAKE_CROSSCOMPILING_EMULATOR "${BUNDLE_QEMU_MIPS};-L;${BUNDLE_SYSROOT}")
endif()
