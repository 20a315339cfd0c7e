// 64-bit directory offsets, so readdir also works for a 32-bit target under qemu on a 64-bit
// host's file system.
#define _FILE_OFFSET_BITS 64
#include "tests/corpus_files.h"

#include <dirent.h>
#include <stdio.h>

#include <algorithm>

#include <gtest/gtest.h>

namespace corpus {

std::string source_file(const std::string &relative) {
  std::string root = __FILE__;  // <root>/tests/corpus_files.cpp
  for (int i = 0; i < 2; ++i) root = root.substr(0, root.rfind('/'));
  return root + "/" + relative;
}

std::string dir(const std::string &target, const std::string &kind) {
  return source_file("fuzz/corpus/" + target + "/" + kind);
}

size_t replay(const std::string &target, const std::string &kind,
              void (*run)(const uint8_t *data, size_t size)) {
  std::vector<std::string> inputs = files(dir(target, kind));
  for (const std::string &path : inputs) {
    SCOPED_TRACE(path);
    std::string data = contents(path);
    run(reinterpret_cast<const uint8_t *>(data.data()), data.size());
  }
  return inputs.size();
}

std::vector<std::string> files(const std::string &dir) {
  std::vector<std::string> found;
  if (DIR *d = opendir(dir.c_str())) {
    while (dirent *e = readdir(d))
      if (e->d_name[0] != '.') found.push_back(dir + "/" + e->d_name);
    closedir(d);
  }
  std::sort(found.begin(), found.end());
  return found;
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

}  // namespace corpus
