// One input of the Java input fuzzer: the bytes choose one of the natives that take Java
// texts or text arrays and build all of its arguments (texts, arrays, ints, booleans, bytes,
// byte arrays) through the fake JNIEnv, then call it against the default simulated gateway.
//
// Input layout (every read past the end gives zeros, so any byte string is an input):
//   <Class.method>\n        the native; a name that is no such native picks one by the sum of
//                           its bytes, so mutated names still spread over every native
//   then per Java parameter, in order:
//     I  tag byte: below 0xF0 the value tag - 16; 0xF0 and above: 4 bytes, big-endian
//     Z  one byte, its low bit          B  one byte
//     S  a text:   tag 0 null, 1 a string the JVM cannot copy, 3 piece + 2-byte big-endian
//                  repeat count, anything else piece once; a piece is a length byte and that
//                  many bytes, taken as they are (NULs and bytes that are not modified UTF-8
//                  included). A repeated text stops at 70000 bytes.
//     A  tag 0 null; else a 2-byte big-endian element count (at most 30000), a byte giving
//        1 to 8 element texts (low 3 bits + 1), those texts (as S); the elements cycle
//        through them, so null elements come from a null text; together the elements hold
//        at most 2000000 bytes (the longer the array, the shorter each element text)
//     Y  a text as S: null gives a null byte[], otherwise its bytes (at most 4096)
// A finding aborts with a message: a JNI misuse the fake recorded (bad releases, invalid
// modified UTF-8 in a reply, a call with an exception pending, ...), a Java text left
// borrowed where the native does not keep one on purpose, a byte[] left pinned, or more than
// 16 local references alive at once.
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
