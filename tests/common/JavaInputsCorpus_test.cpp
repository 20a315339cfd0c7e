// Replays the committed corpora of the Java input fuzzer (seed inputs and every input that
// once made a native misbehave) through the fuzzer's harness, in every tier.

#include <string>
#include <vector>

#include "fuzz/java_inputs_harness.h"
#include "tests/corpus_files.h"
#include "tests/test_support.h"

namespace {

class JavaInputsCorpus : public ::testing::Test {
 protected:
  testsupport::FlagFile no_trace_{TRACE_FLAG_PATH, false};
};

TEST_F(JavaInputsCorpus, SeedInputs) {
  EXPECT_GT(corpus::replay("java_inputs", "seed", fuzzjava::run_one_input), 0u);
}

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

TEST_F(JavaInputsCorpus, PastCrashInputs) {
  corpus::replay("java_inputs", "crash", fuzzjava::run_one_input);
}

}  // namespace
