// libFuzzer entry point of the platform fuzzer: the input's first bytes pick a native and its
// arguments, the rest is everything the platform answers (see tests/raw_platform/).
#include "tests/raw_platform/native_runner.h"

extern "C" int LLVMFuzzerTestOneInput(const uint8_t *data, size_t size) {
  rawrun::fuzz_one(data, size);
  return 0;
}
