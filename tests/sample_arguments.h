// Sample Java arguments for any native of the catalogue, for the programs that call every
// native without knowing what it takes (the platform fault table, the platform fuzz target,
// the simulator-share benchmark): every parameter of one kind gets the same value of a set.
#ifndef TESTS_SAMPLE_ARGUMENTS_H
#define TESTS_SAMPLE_ARGUMENTS_H

#include <vector>

#include "tests/fake_jni.h"
#include "tests/native_catalogue.h"

namespace samples {

// The number of sample sets: each text with each integer.
constexpr int kArgSets = 33;

// The arguments of set `set` (0 .. kArgSets - 1) for native `n`, made in `jvm`; at least one
// element, so the result's data() can always be passed to the catalogue's call.
std::vector<catalogue::Arg> arguments(fakejni::FakeJvm &jvm, const catalogue::Native &n, int set);

}  // namespace samples

#endif
