// Replays the platform fuzz target's committed inputs (seeds and past findings) on every
// tier: each one runs its native against the raw platform fed by the input's bytes.
#include <gtest/gtest.h>

#include "tests/corpus_files.h"
#include "tests/raw_platform/native_runner.h"

namespace {

TEST(PlatformCorpus, Seeds) { EXPECT_GE(corpus::replay("platform", "seed", rawrun::fuzz_one), 163u); }
TEST(PlatformCorpus, Findings) { EXPECT_GE(corpus::replay("platform", "crash", rawrun::fuzz_one), 1u); }

}  // namespace
