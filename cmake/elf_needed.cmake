# The NEEDED entries of a shared library, read with readelf (READELF), for the scripts that
# hold the library to its dependencies (the exports check and the install check).

# needed_entries(<lib> <out_var>): the libraries <lib> names in NEEDED, in order.
function(needed_entries lib out_var)
  execute_process(COMMAND "${READELF}" -d "${lib}" RESULT_VARIABLE rc OUTPUT_VARIABLE dyn)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "${READELF} -d ${lib} failed")
  endif()
  string(REGEX MATCHALL "\\(NEEDED\\)[^\n]*\\[[^]\n]+\\]" entries "${dyn}")
  set(needed "")
  foreach(entry IN LISTS entries)
    string(REGEX REPLACE ".*\\[([^]]+)\\]" "\\1" name "${entry}")
    list(APPEND needed "${name}")
  endforeach()
  set(${out_var} "${needed}" PARENT_SCOPE)
endfunction()

# check_needed(<lib> <severity>): reports with message(<severity>) every NEEDED entry not in
# ALLOWED_NEEDED and every entry of REQUIRED_NEEDED that is missing; sets NEEDED.
function(check_needed lib severity)
  needed_entries("${lib}" needed)
  foreach(name IN LISTS needed)
    if(NOT name IN_LIST ALLOWED_NEEDED)
      message(${severity} "${lib} needs ${name}, which is not allowed (allowed: ${ALLOWED_NEEDED})")
    endif()
  endforeach()
  foreach(name IN LISTS REQUIRED_NEEDED)
    if(NOT name IN_LIST needed)
      message(${severity} "${lib} does not need ${name}")
    endif()
  endforeach()
  set(NEEDED "${needed}" PARENT_SCOPE)
endfunction()
