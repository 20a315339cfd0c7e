# Runs the unit tests of the host build and of the MIPS build (under qemu) with a reply
# transcript each, and fails unless both tiers handed Java byte-identical replies.
#   cmake -DHOST_TESTS=... -DMIPS_TESTS=... -DQEMU=... -DSYSROOT=... -DOUT=dir -P compare_replies.cmake
file(MAKE_DIRECTORY "${OUT}")
set(host_file "${OUT}/replies-host.txt")
set(mips_file "${OUT}/replies-mips.txt")
file(REMOVE "${host_file}" "${mips_file}")

# Tests whose natives run on several threads at once answer in no fixed order: left out.
set(one_thread "--gtest_filter=-SimConcurrency.*")
set(ENV{BUNDLE_REPLY_TRANSCRIPT} "${host_file}")
execute_process(COMMAND "${HOST_TESTS}" --gtest_brief=1 ${one_thread} RESULT_VARIABLE rc OUTPUT_QUIET)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "host unit tests failed while transcribing")
endif()
set(ENV{BUNDLE_REPLY_TRANSCRIPT} "${mips_file}")
execute_process(COMMAND "${QEMU}" -L "${SYSROOT}" "${MIPS_TESTS}" --gtest_brief=1 ${one_thread} RESULT_VARIABLE rc
                OUTPUT_QUIET)
if(NOT rc EQUAL 0)
  message(FATAL_ERROR "MIPS unit tests failed while transcribing")
endif()

# Counted by line feeds: replies hold brackets, which CMake lists do not keep apart.
file(READ "${host_file}" host_text)
string(REGEX MATCHALL "\n" feeds "${host_text}")
list(LENGTH feeds n)
execute_process(COMMAND "${CMAKE_COMMAND}" -E compare_files "${host_file}" "${mips_file}"
                RESULT_VARIABLE differ)
if(differ)
  execute_process(COMMAND diff "${host_file}" "${mips_file}" OUTPUT_VARIABLE d)
  string(SUBSTRING "${d}" 0 4000 d)
  message(FATAL_ERROR "replies differ between x86-64 and MIPS:\n${d}")
endif()
message(STATUS "${n} replies byte-identical on x86-64 and 32-bit big-endian MIPS")
