// Replays the committed corpora of the Java input fuzzer (seed inputs and every input that
// once made a native misbehave) through the fuzzer's harness, in every tier.

#include <stdint.h>

#include <string>
#include <vector>

#include "fuzz/java_inputs_harness.h"
#include "tests/corpus_files.h"
#include "tests/test_support.h"

namespace {

class JavaInputsCorpus : public ::testing::Test {
 protected:
  void replay(const char *kind, bool may_be_empty) {
    testsupport::FlagFile no_trace(TRACE_FLAG_PATH, false);
    std::vector<std::string> inputs = corpus::files(corpus::dir("java_inputs", kind));
    if (!may_be_empty) {
      ASSERT_FALSE(inputs.empty()) << kind;
    }
    for (const std::string &path : inputs) {
      SCOPED_TRACE(path);
      std::string data = corpus::contents(path);
      fuzzjava::run_one_input(reinterpret_cast<const uint8_t *>(data.data()), data.size());
    }
  }
};

TEST_F(JavaInputsCorpus, SeedInputs) { replay("seed", false); }

// Every native taking Java texts or arrays has a seed named after it.
TEST_F(JavaInputsCorpus, EveryNativeHasSeeds) {
  std::vector<std::string> seeds = corpus::files(corpus::dir("java_inputs", "seed"));
  std::string all;
  for (const std::string &path : seeds) {
    std::string data = corpus::contents(path);
    all += data.substr(0, data.find('\n')) + "\n";
  }
  for (size_t i = 0; i < fuzzjava::native_count(); ++i)
    EXPECT_NE(all.find(fuzzjava::native_name(i) + "\n"), std::string::npos) << fuzzjava::native_name(i);
}

TEST_F(JavaInputsCorpus, PastCrashInputs) { replay("crash", true); }

}  // namespace
