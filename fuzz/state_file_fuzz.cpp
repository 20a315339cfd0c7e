// libFuzzer entry point of the state-file fuzzer (see state_file_harness.h).
#include "fuzz/state_file_harness.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  fuzzstate::run_one_input(data, size);
  return 0;
}
