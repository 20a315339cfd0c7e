# Writes the size of the built library (file bytes and text/data/bss) to OUT.
file(SIZE "${LIB}" bytes)
set(sections "")
if(SIZE_TOOL AND EXISTS "${SIZE_TOOL}")
  execute_process(COMMAND "${SIZE_TOOL}" "${LIB}" OUTPUT_VARIABLE sections OUTPUT_STRIP_TRAILING_WHITESPACE)
endif()
get_filename_component(name "${LIB}" NAME)
file(WRITE "${OUT}" "${TIER}${name}: ${bytes} bytes\n${sections}\n")
