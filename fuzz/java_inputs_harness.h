// One input of the Java input fuzzer: the bytes choose one of the natives that take Java
// texts or text arrays and build all of its arguments (texts, arrays, ints, booleans, bytes,
// byte arrays) through the fake JNIEnv, then call it against the default simulated gateway.
//
// Input layout (every read past the end gives zeros, so any byte string is an input):
//   <Class.method>\n        the native; a name that is no such native picks one by the sum of
//                           its bytes, so mutated names still spread over every native
//   then every Java parameter in order, laid out as fuzz/native_input.h describes.
// A finding aborts with a message (fuzzinput::check_call): a JNI misuse the fake recorded, a
// Java text left borrowed where the native does not keep one on purpose, a byte[] left pinned,
// or more than 16 local references alive at once.
#ifndef FUZZ_JAVA_INPUTS_HARNESS_H
#define FUZZ_JAVA_INPUTS_HARNESS_H

#include <stddef.h>
#include <stdint.h>

#include <string>

namespace fuzzjava {

// The natives fed by this target: those taking at least one Java text or text array.
size_t native_count();
// "Class.method" of the i-th of them.
std::string native_name(size_t i);

// Runs one input; aborts (after printing what went wrong) on a finding.
void run_one_input(const uint8_t *data, size_t size);

}  // namespace fuzzjava

#endif
