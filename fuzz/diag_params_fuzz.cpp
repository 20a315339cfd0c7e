// libFuzzer entry point of the diagnostics parameter fuzzer (see diag_params_harness.h).
#include "fuzz/diag_params_harness.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  fuzzdiag::run_one_input(data, size);
  return 0;
}
