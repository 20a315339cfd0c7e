// Replays the committed fuzzing corpora (seed inputs and every input that once made the
// diagnostics natives misbehave) through the fuzzer's harness, in every tier.

// 64-bit directory offsets, so readdir also works for a 32-bit target under qemu on a 64-bit
// host's file system.
#define _FILE_OFFSET_BITS 64
#include <dirent.h>
#include <stdio.h>

#include <string>
#include <vector>

#include "fuzz/diag_params_harness.h"
#include "tests/test_support.h"

namespace {

std::string source_root() {
  std::string file = __FILE__;  // <root>/tests/accessservices/DiagParamsCorpus_test.cpp
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

class DiagParamsCorpus : public ::testing::Test {
 protected:
  void replay(const char *corpus) {
    testsupport::FlagFile no_trace(TRACE_FLAG_PATH, false);
    std::vector<std::string> inputs = files_of(source_root() + "/fuzz/corpus/diag_params/" + corpus);
    ASSERT_FALSE(inputs.empty()) << corpus;
    for (const std::string &path : inputs) {
      SCOPED_TRACE(path);
      std::string data = contents(path);
      fuzzdiag::run_one_input(reinterpret_cast<const uint8_t *>(data.data()), data.size());
    }
  }
};

TEST_F(DiagParamsCorpus, SeedInputs) { replay("seed"); }

TEST_F(DiagParamsCorpus, PastCrashInputs) { replay("crash"); }

}  // namespace
