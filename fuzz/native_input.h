// What the fuzz harnesses that call natives through the fake JNIEnv share: reading an input
// (past its end every read gives zeros, so any byte string is an input), choosing a native by
// its name line, building its Java arguments from the input's bytes, and the checks that make
// a call a finding.
//
// Argument layout, per Java parameter in order:
//   I  tag byte: below 0xF0 the value tag - 16; 0xF0 and above: 4 bytes, big-endian
//   Z  one byte, its low bit          B  one byte
//   S  a text: a tag byte, then
//        0  null                        1  a string the JVM cannot copy
//        3  piece + 1-byte repeat count 4  piece + 2-byte big-endian repeat count
//        any other tag: the piece once
//      a piece is a length byte and that many bytes, taken as they are (NULs and bytes that
//      are not modified UTF-8 included). A repeated text stops at 70000 bytes.
//   A  a tag byte: 0 null; 1 a 2-byte big-endian element count (at most 30000); any other tag
//      a 1-byte element count. Then a byte giving 1 to 8 element texts (low 3 bits + 1) and
//      those texts (as S); the elements cycle through them, so null elements come from a null
//      text; together the elements hold at most 2000000 bytes (the longer the array, the
//      shorter each element text)
//   Y  a text as S: null gives a null byte[], otherwise its bytes (at most 4096)
// Only one tag of 256 makes a text or an array huge: a mutated input is short and quick to run
// far more often than not, and the inputs at the bounds stay a minority of what the fuzzer
// runs.
#ifndef FUZZ_NATIVE_INPUT_H
#define FUZZ_NATIVE_INPUT_H

#include <stddef.h>
#include <stdint.h>

#include <string>
#include <vector>

#include "tests/fake_jni.h"
#include "tests/native_catalogue.h"

namespace fuzzinput {

// Reads an input; past its end every read gives zeros.
class Reader {
 public:
  Reader(const uint8_t *data, size_t size) : data_(data), size_(size) {}
  uint8_t u8() { return pos_ < size_ ? data_[pos_++] : 0; }
  uint16_t u16() {
    uint16_t hi = u8();
    return static_cast<uint16_t>(hi << 8 | u8());
  }
  uint32_t u32() {
    uint32_t v = u16();
    return v << 16 | u16();
  }
  // Up to and without the first newline (or the end).
  std::string line();
  bool at_end() const { return pos_ >= size_; }

 private:
  const uint8_t *data_;
  size_t size_;
  size_t pos_ = 0;
};

// A text of the input: null, one the JVM cannot copy, or bytes.
struct Text {
  enum { kNull, kFailing, kBytes } kind = kNull;
  std::string bytes;
};

// A text as the layout above gives it, at most `limit` bytes long.
Text read_text(Reader &in, size_t limit);

// "Class.method".
std::string name_of(const catalogue::Native &native);

// The native named by `name` ("Class.method") among `list`; a name that is none of them picks
// one by the sum of its bytes, so mutated names still spread over every native.
const catalogue::Native &choose(const std::string &name,
                                const std::vector<const catalogue::Native *> &list);

// The Java arguments of `native`, read from `in` as laid out above and made in `jvm`; at least
// one element, so data() can always be passed to the catalogue's call.
std::vector<catalogue::Arg> read_arguments(Reader &in, fakejni::FakeJvm &jvm,
                                           const catalogue::Native &native);

// Prepares `jvm` for a call of `native` (the SSID security native gives the password back
// naming the encryption string, on purpose; the VM frees a text by its pointer).
void prepare(fakejni::FakeJvm &jvm, const catalogue::Native &native);

// Aborts, naming `target` and the native, when the call went wrong: a boolean answer other
// than true or false, a JNI misuse the fake recorded (bad releases, invalid modified UTF-8 in
// a reply, a call with an exception pending, ...), a Java text left borrowed where the native
// does not keep one on purpose, a byte[] left pinned, or more than 16 local references alive
// at once.
void check_call(const char *target, const catalogue::Native &native, fakejni::FakeJvm &jvm,
                const catalogue::Result &result);

// Puts the default simulated gateway of the source tree's sim/gateway in place: loaded and
// remembered (sim_snapshot) at the first call, restored (sim_restore) at every later one, which
// costs next to nothing when the previous input changed nothing and a copy of what it changed
// otherwise, far less than reading the state files again. Nothing is saved: the configuration
// tree has no save path.
void default_gateway();

// The default gateway for the life of one input: put in place at the start, and restored again
// at the end, so that what the input added to the gateway is freed within the input (libFuzzer
// takes a run with more allocations than frees for a possible leak and checks it, slowly).
class DefaultGateway {
 public:
  DefaultGateway() { default_gateway(); }
  ~DefaultGateway() { default_gateway(); }
  DefaultGateway(const DefaultGateway &) = delete;
  DefaultGateway &operator=(const DefaultGateway &) = delete;
};

// One input of a target whose inputs name a native of `list` on their first line and then give
// its Java arguments: the native is called with them on the default gateway (DefaultGateway)
// and the call checked (check_call). `before`, when given, runs just before the call with the
// reader past the arguments, `after` just after it.
void run_native_input(const char *target, const std::vector<const catalogue::Native *> &list,
                      const uint8_t *data, size_t size, void (*before)(Reader &in) = nullptr,
                      void (*after)() = nullptr);

// Prints "<target>: Class.method: what" and aborts: a finding.
[[noreturn]] void finding(const char *target, const catalogue::Native &native,
                          const std::string &what);

}  // namespace fuzzinput

#endif
