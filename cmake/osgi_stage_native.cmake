# Copies a native library into a bundle's staging tree without its RUNPATH: inside a bundle
# the library finds the platform libraries through the system's loader (on the gateway) or the
# launcher's LD_LIBRARY_PATH (off it), never through a build directory.
# -DFROM=<library> -DTO=<file in the staging tree> [-DSTRIP=<strip tool>: stripped, as shipped]
get_filename_component(dir "${TO}" DIRECTORY)
file(MAKE_DIRECTORY "${dir}")
file(COPY_FILE "${FROM}" "${TO}")
file(RPATH_REMOVE FILE "${TO}")
if(STRIP)
  execute_process(COMMAND "${STRIP}" "${TO}" RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "${STRIP} failed on ${TO}")
  endif()
endif()
