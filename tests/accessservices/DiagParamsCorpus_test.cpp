// Replays the committed fuzzing corpora (seed inputs and every input that once made the
// diagnostics natives misbehave) through the fuzzer's harness, in every tier.

#include "fuzz/diag_params_harness.h"
#include "tests/corpus_files.h"
#include "tests/test_support.h"

namespace {

class DiagParamsCorpus : public ::testing::Test {
 protected:
  testsupport::FlagFile no_trace_{TRACE_FLAG_PATH, false};
};

TEST_F(DiagParamsCorpus, SeedInputs) {
  EXPECT_GT(corpus::replay("diag_params", "seed", fuzzdiag::run_one_input), 0u);
}

TEST_F(DiagParamsCorpus, PastCrashInputs) {
  EXPECT_GT(corpus::replay("diag_params", "crash", fuzzdiag::run_one_input), 0u);
}

}  // namespace
