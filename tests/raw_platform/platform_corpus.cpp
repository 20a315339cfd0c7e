// Replays the platform fuzz target's committed inputs (seeds and past findings) on every
// tier: each one runs its native against the raw platform fed by the input's bytes.
#include <dirent.h>

#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include <gtest/gtest.h>

#include "tests/raw_platform/native_runner.h"

namespace {

std::vector<std::string> files_in(const std::string &dir) {
  std::vector<std::string> files;
  if (DIR *d = opendir(dir.c_str())) {
    while (dirent *e = readdir(d))
      if (e->d_name[0] != '.') files.push_back(dir + "/" + e->d_name);
    closedir(d);
  }
  return files;
}

void replay(const std::string &dir, size_t at_least) {
  std::vector<std::string> files = files_in(dir);
  EXPECT_GE(files.size(), at_least) << dir;
  for (const std::string &f : files) {
    SCOPED_TRACE(f);
    std::ifstream in(f, std::ios::binary);
    std::string bytes((std::istreambuf_iterator<char>(in)), std::istreambuf_iterator<char>());
    rawrun::fuzz_one(reinterpret_cast<const uint8_t *>(bytes.data()), bytes.size());
  }
}

TEST(PlatformCorpus, Seeds) { replay(PLATFORM_CORPUS "/seed", 163); }
TEST(PlatformCorpus, Findings) { replay(PLATFORM_CORPUS "/crash", 1); }

}  // namespace
