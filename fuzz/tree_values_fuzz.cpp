// libFuzzer entry point of the configuration-tree fuzzer (see tree_values_harness.h).
#include "fuzz/tree_values_harness.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  fuzztree::run_one_input(data, size);
  return 0;
}
