// The committed fuzz corpora, as the tests of every tier replay them.
#ifndef TESTS_CORPUS_FILES_H
#define TESTS_CORPUS_FILES_H

#include <stddef.h>
#include <stdint.h>

#include <string>
#include <vector>

namespace corpus {

// The directory fuzz/corpus/<target>/<kind> of the source tree (kind: "seed" or "crash").
std::string dir(const std::string &target, const std::string &kind);

// The files of `dir` in name order, hidden ones left out; none when it cannot be read.
std::vector<std::string> files(const std::string &dir);

// The bytes of a file ("" when it cannot be read).
std::string contents(const std::string &path);

// A file of the source tree, by its path from the tree's root.
std::string source_file(const std::string &relative);

// Runs every file of fuzz/corpus/<target>/<kind> through `run` (a fuzz harness, which aborts
// on a finding), each under a GoogleTest trace naming it, and returns how many there were.
size_t replay(const std::string &target, const std::string &kind,
              void (*run)(const uint8_t *data, size_t size));

}  // namespace corpus

#endif
