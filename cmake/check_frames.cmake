# Checks the stack frame of every function of the library against the bound, from the .su
# files that -fstack-usage writes beside each object, and records the largest frames.
#   cmake -DDIRS="objdir1;objdir2" -DLIMIT=16384 -DOUT=frame-sizes.txt -DTIER=host. [-DENFORCE=ON]
#         -P check_frames.cmake
# A frame above LIMIT bytes, or one whose size is not bounded (an unbounded alloca or VLA),
# fails when ENFORCE is on (the sanitizer tier measures only: its red zones enlarge frames).
set(rows "")
foreach(dir IN LISTS DIRS)
  file(GLOB_RECURSE su_files "${dir}/*.su")
  foreach(su IN LISTS su_files)
    file(STRINGS "${su}" lines)
    foreach(line IN LISTS lines)
      # <file>:<line>:<col>:<function>\t<bytes>\t<static|dynamic|dynamic,bounded>
      if(line MATCHES "^([^\t]*)\t([0-9]+)\t([a-z,]+)$")
        set(where "${CMAKE_MATCH_1}")
        set(bytes "${CMAKE_MATCH_2}")
        set(kind "${CMAKE_MATCH_3}")
        string(REGEX REPLACE "^.*/([^/]+/[^/]+:[0-9]+):[0-9]+:" "\\1 " where "${where}")
        # Zero-padded so that a plain sort orders by size.
        string(LENGTH "${bytes}" len)
        math(EXPR pad "8 - ${len}")
        string(REPEAT "0" ${pad} zeros)
        list(APPEND rows "${zeros}${bytes}\t${kind}\t${where}")
      endif()
    endforeach()
  endforeach()
endforeach()
if(NOT rows)
  message(FATAL_ERROR "no stack usage files found under ${DIRS} (built without -fstack-usage?)")
endif()
list(SORT rows)
list(REVERSE rows)

set(report "${TIER}largest stack frames (bytes, kind, function; bound ${LIMIT}):\n")
set(failures "")
set(shown 0)
foreach(row IN LISTS rows)
  string(REPLACE "\t" ";" fields "${row}")
  list(GET fields 0 bytes)
  list(GET fields 1 kind)
  list(GET fields 2 where)
  math(EXPR bytes "${bytes}")  # drops the padding
  if(shown LESS 5)
    string(APPEND report "  ${bytes}\t${kind}\t${where}\n")
    math(EXPR shown "${shown} + 1")
  endif()
  if(bytes GREATER LIMIT OR kind STREQUAL "dynamic")
    string(APPEND failures "  ${bytes} ${kind} ${where}\n")
  endif()
endforeach()
file(WRITE "${OUT}" "${report}")
if(failures AND ENFORCE)
  message(FATAL_ERROR "stack frames above ${LIMIT} bytes or unbounded:\n${failures}")
endif()
