// Replays the committed fuzzing corpora (seed inputs and every input that once made the
// diagnostics natives misbehave) through the fuzzer's harness, in every tier.

#include <stdint.h>

#include <string>
#include <vector>

#include "fuzz/diag_params_harness.h"
#include "tests/corpus_files.h"
#include "tests/test_support.h"

namespace {

class DiagParamsCorpus : public ::testing::Test {
 protected:
  void replay(const char *kind) {
    testsupport::FlagFile no_trace(TRACE_FLAG_PATH, false);
    std::vector<std::string> inputs = corpus::files(corpus::dir("diag_params", kind));
    ASSERT_FALSE(inputs.empty()) << kind;
    for (const std::string &path : inputs) {
      SCOPED_TRACE(path);
      std::string data = corpus::contents(path);
      fuzzdiag::run_one_input(reinterpret_cast<const uint8_t *>(data.data()), data.size());
    }
  }
};

TEST_F(DiagParamsCorpus, SeedInputs) { replay("seed"); }

TEST_F(DiagParamsCorpus, PastCrashInputs) { replay("crash"); }

}  // namespace
