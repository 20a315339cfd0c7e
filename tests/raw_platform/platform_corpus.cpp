// Replays the platform fuzz target's committed inputs (seeds and past findings) on every
// tier: each one runs its native against the raw platform fed by the input's bytes.
#include <stdint.h>

#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/corpus_files.h"
#include "tests/raw_platform/native_runner.h"

namespace {

void replay(const char *kind, size_t at_least) {
  std::vector<std::string> files = corpus::files(corpus::dir("platform", kind));
  EXPECT_GE(files.size(), at_least) << kind;
  for (const std::string &f : files) {
    SCOPED_TRACE(f);
    std::string bytes = corpus::contents(f);
    rawrun::fuzz_one(reinterpret_cast<const uint8_t *>(bytes.data()), bytes.size());
  }
}

TEST(PlatformCorpus, Seeds) { replay("seed", 163); }
TEST(PlatformCorpus, Findings) { replay("crash", 1); }

}  // namespace
