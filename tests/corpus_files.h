// The committed fuzz corpora, as the tests of every tier replay them.
#ifndef TESTS_CORPUS_FILES_H
#define TESTS_CORPUS_FILES_H

#include <string>
#include <vector>

namespace corpus {

// The directory fuzz/corpus/<target>/<kind> of the source tree (kind: "seed" or "crash").
std::string dir(const std::string &target, const std::string &kind);

// The files of `dir` in name order, hidden ones left out; none when it cannot be read.
std::vector<std::string> files(const std::string &dir);

// The bytes of a file ("" when it cannot be read).
std::string contents(const std::string &path);

}  // namespace corpus

#endif
