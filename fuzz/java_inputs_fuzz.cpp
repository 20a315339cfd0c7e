// libFuzzer entry point of the Java input fuzzer (see java_inputs_harness.h).
#include "fuzz/java_inputs_harness.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  fuzzjava::run_one_input(data, size);
  return 0;
}
