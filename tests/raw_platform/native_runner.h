// Runs one native of the catalogue against the raw platform with sample Java arguments, and
// tells what it answered and how it treated the fake JVM. Shared by the fault table test, the
// corpus replay and the platform fuzz target.
#ifndef TESTS_RAW_PLATFORM_NATIVE_RUNNER_H
#define TESTS_RAW_PLATFORM_NATIVE_RUNNER_H

#include <stddef.h>
#include <stdint.h>

#include <string>
#include <vector>

#include "tests/native_catalogue.h"
#include "tests/sample_arguments.h"

namespace rawrun {

// Sample argument sets (tests/sample_arguments.h).
constexpr int kArgSets = samples::kArgSets;

struct Outcome {
  std::string reply;               // "int:<n>", "bool:<n>", the text (escaped), or "<null>"
  std::vector<std::string> calls;  // platform functions called, in order
  std::vector<std::string> errors; // JNI misuse the fake JVM saw
  std::string pending;             // exception left pending
  int outstanding = 0;             // Java texts left borrowed
  int pinned = 0;                  // byte arrays left pinned
};

// Calls native `n` with argument set `set` (0 .. kArgSets - 1) on the platform as it is set
// up now (rawplatform::set_fault / set_bytes); the call log is reset first.
Outcome run(const catalogue::Native &n, int set);

// The argument set that reaches the most distinct platform functions on a neutral platform.
int best_set(const catalogue::Native &n);

// A reply text in one line: printable ASCII as is, other bytes as \xNN; texts longer than 160
// bytes are shortened to their first 120 bytes, their length and a hash.
std::string describe(const std::string &text);

// One fuzz input: byte 0 and 1 pick the native, byte 2 the argument set, the rest feeds the
// raw platform. Aborts, naming the native, on JNI misuse or a text left borrowed beyond what
// the same call leaves on a neutral platform.
void fuzz_one(const uint8_t *data, size_t size);

}  // namespace rawrun

#endif
