// Replays the committed corpora of the Java input fuzzer (seed inputs and every input that
// once made a native misbehave) through the fuzzer's harness, in every tier.

// 64-bit directory offsets, so readdir also works for a 32-bit target under qemu on a 64-bit
// host's file system.
#define _FILE_OFFSET_BITS 64
#include <dirent.h>
#include <stdio.h>

#include <algorithm>
#include <string>
#include <vector>

#include "fuzz/java_inputs_harness.h"
#include "tests/test_support.h"

namespace {

std::string source_root() {
  std::string file = __FILE__;  // <root>/tests/common/JavaInputsCorpus_test.cpp
  for (int i = 0; i < 3; ++i) file = file.substr(0, file.rfind('/'));
  return file;
}

std::vector<std::string> files_of(const std::string &dir) {
  std::vector<std::string> files;
  if (DIR *d = opendir(dir.c_str())) {
    while (dirent *e = readdir(d))
      if (e->d_name[0] != '.') files.push_back(dir + "/" + e->d_name);
    closedir(d);
  }
  std::sort(files.begin(), files.end());
  return files;
}

std::string contents(const std::string &path) {
  std::string data;
  if (FILE *f = fopen(path.c_str(), "rb")) {
    char buf[4096];
    size_t n;
    while ((n = fread(buf, 1, sizeof buf, f)) > 0) data.append(buf, n);
    fclose(f);
  }
  return data;
}

class JavaInputsCorpus : public ::testing::Test {
 protected:
  void replay(const char *corpus, bool may_be_empty) {
    testsupport::FlagFile no_trace(TRACE_FLAG_PATH, false);
    std::vector<std::string> inputs = files_of(source_root() + "/fuzz/corpus/java_inputs/" + corpus);
    if (!may_be_empty) {
      ASSERT_FALSE(inputs.empty()) << corpus;
    }
    for (const std::string &path : inputs) {
      SCOPED_TRACE(path);
      std::string data = contents(path);
      fuzzjava::run_one_input(reinterpret_cast<const uint8_t *>(data.data()), data.size());
    }
  }
};

TEST_F(JavaInputsCorpus, SeedInputs) { replay("seed", false); }

// Every native taking Java texts or arrays has a seed named after it.
TEST_F(JavaInputsCorpus, EveryNativeHasSeeds) {
  std::vector<std::string> seeds = files_of(source_root() + "/fuzz/corpus/java_inputs/seed");
  std::string all;
  for (const std::string &path : seeds) all += contents(path).substr(0, contents(path).find('\n')) + "\n";
  for (size_t i = 0; i < fuzzjava::native_count(); ++i)
    EXPECT_NE(all.find(fuzzjava::native_name(i) + "\n"), std::string::npos) << fuzzjava::native_name(i);
}

TEST_F(JavaInputsCorpus, PastCrashInputs) { replay("crash", true); }

}  // namespace
