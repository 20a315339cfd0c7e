# Writes the size of the built library to OUT: the file as built, the stripped file as it
# would be shipped, its sections, and its largest symbols. With BUDGET, fails when the
# stripped library is larger.
#   cmake -DLIB=... -DOUT=... -DTIER=host. [-DSIZE_TOOL=size] [-DSTRIP=strip] [-DNM=nm]
#         [-DBUDGET=bytes] [-DPRINT=ON] -P record_size.cmake
file(SIZE "${LIB}" bytes)
get_filename_component(name "${LIB}" NAME)
set(report "${TIER}${name}: ${bytes} bytes\n")

set(measured "${LIB}")
if(STRIP AND EXISTS "${STRIP}")
  get_filename_component(out_dir "${OUT}" DIRECTORY)
  set(stripped "${out_dir}/${name}.stripped")
  execute_process(COMMAND "${STRIP}" -o "${stripped}" "${LIB}" RESULT_VARIABLE rc)
  if(NOT rc EQUAL 0)
    message(FATAL_ERROR "${STRIP} failed on ${LIB}")
  endif()
  file(SIZE "${stripped}" stripped_bytes)
  set(measured "${stripped}")
  string(APPEND report "${TIER}${name} stripped: ${stripped_bytes} bytes")
  if(BUDGET)
    string(APPEND report " (budget ${BUDGET})")
  endif()
  string(APPEND report "\n")
endif()

if(SIZE_TOOL AND EXISTS "${SIZE_TOOL}")
  execute_process(COMMAND "${SIZE_TOOL}" -A "${measured}" OUTPUT_VARIABLE sections
                  OUTPUT_STRIP_TRAILING_WHITESPACE)
  string(APPEND report "sections:\n${sections}\n")
endif()

if(NM AND EXISTS "${NM}")
  # Largest functions and data of the library as built (the stripped file has no symbol table).
  execute_process(COMMAND "${NM}" --size-sort -S -C "${LIB}" OUTPUT_VARIABLE symbols
                  OUTPUT_STRIP_TRAILING_WHITESPACE)
  string(REPLACE "\n" ";" symbol_lines "${symbols}")
  list(LENGTH symbol_lines n)
  set(top "")
  if(n GREATER 0)
    math(EXPR first "${n} - 1")
    math(EXPR last "${n} - 15")
    if(last LESS 0)
      set(last 0)
    endif()
    foreach(i RANGE ${first} ${last} -1)
      list(GET symbol_lines ${i} line)
      # <address> <size> <type> <name>: the size in decimal
      if(line MATCHES "^[0-9a-fA-F]+ ([0-9a-fA-F]+) ([A-Za-z]) (.*)$")
        math(EXPR sym_bytes "0x${CMAKE_MATCH_1}" OUTPUT_FORMAT DECIMAL)
        string(APPEND top "  ${sym_bytes}\t${CMAKE_MATCH_2} ${CMAKE_MATCH_3}\n")
      endif()
    endforeach()
  endif()
  string(APPEND report "largest symbols (bytes, type, name):\n${top}")
endif()

file(WRITE "${OUT}" "${report}")
if(PRINT)
  message("${report}")
endif()
if(BUDGET AND stripped_bytes GREATER BUDGET)
  math(EXPR over "${stripped_bytes} - ${BUDGET}")
  message(FATAL_ERROR "${name} stripped is ${stripped_bytes} bytes, ${over} over the budget of ${BUDGET}")
endif()
