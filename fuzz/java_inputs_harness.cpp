// The Java input fuzzer's harness (layout of an input in java_inputs_harness.h).
//
// Every input starts from the default simulated gateway freshly loaded from the source tree's
// sim/gateway: setters change the state (an added rule is then listed, a blacklist grows by
// 30000 entries), and a state carried from input to input would make findings depend on the
// inputs before them. Reloading costs a fraction of a millisecond, far less than the natives
// fed with long texts. sim_reset leaves the configuration tree unsaved, so no input writes a
// file; system() and gethostbyname() are the simulator's host stand-ins, linked into every
// executable that runs this harness, so no route is changed and nothing is looked up.
#include "fuzz/java_inputs_harness.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <algorithm>
#include <vector>

#include "sim/sim_control.h"
#include "tests/fake_jni.h"
#include "tests/native_catalogue.h"

namespace fuzzjava {
namespace {

constexpr size_t kMaxText = 70000;
constexpr size_t kMaxElements = 30000;
constexpr size_t kMaxBytes = 4096;
constexpr int kLocalCapacity = 16;
// All elements of one array together hold at most this many bytes (30000 elements of 70000
// bytes would take 2 GiB): the longer the array, the shorter its element texts.
constexpr size_t kMaxArrayBytes = 2000000;

std::string source_root() {
  std::string file = __FILE__;  // <root>/fuzz/java_inputs_harness.cpp
  for (int i = 0; i < 2; ++i) file = file.substr(0, file.rfind('/'));
  return file;
}

const std::vector<const catalogue::Native *> &natives() {
  static std::vector<const catalogue::Native *> list = [] {
    std::vector<const catalogue::Native *> v;
    for (size_t i = 0; i < catalogue::kNativeCount; ++i) {
      const catalogue::Native &n = catalogue::kNatives[i];
      if (strchr(n.params, 'S') != nullptr || strchr(n.params, 'A') != nullptr) v.push_back(&n);
    }
    return v;
  }();
  return list;
}

// Texts some natives deliberately never give back (a refused or over-long text, a text whose
// pointer the platform keeps): at most this many may stay borrowed after one call.
struct Kept {
  const char *cls;
  const char *method;
  int texts;
};
const Kept kKept[] = {
    {"WlanConfigServiceImp", "setWLANSSIDSecurityJni", 1},         // an empty encryption
    {"IPPingDiagnosticsServiceImp", "startIPPingDiagnosticsJni", 1},          // a refused host
    {"TraceRouteDiagnosticsServiceImp", "startTraceRouteDiagnosticsJni", 1},  // a refused host
    {"HttpUploadDiagnosticsServiceImp", "startHttpUploadDiagnosticsJni", 1},      // the URL
    {"HttpDownloadDiagnosticsServiceImp", "startHttpDownloadDiagnosticsJni", 1},  // the URL
    {"LANIPConfigServiceImp", "setLANDHCPInfoJni", 3},       // enable other than TRUE/FALSE
    {"PortMappingConfigServiceImp", "addPortMappingJni", 1}, // a refused protocol or client
    {"TrafficMirrorServiceImp", "addMirrorRuleJni", 1},      // the first refused text
    {"VLANBindConfigServiceImp", "setVLANBindJni", 1},       // an over-long text
    {"VLANBindConfigServiceImp", "clearVLANBindJni", 1},     // an over-long text
    {"L2TPVPNServiceImp", "vpnOnJni", 1},                    // an over-long credential
    {"L2TPVPNServiceImp", "vpnOffJni", 1},                   // an over-long server
    {"VoIPInfoSubscribeServiceImp", "subscribeVoIPEventJni", 1},    // the subscriber
    {"VoIPInfoSubscribeServiceImp", "unSubscribeVoIPEventJni", 1},  // the subscriber
};

int kept_texts(const catalogue::Native &n) {
  for (const Kept &k : kKept)
    if (strcmp(k.cls, n.cls) == 0 && strcmp(k.method, n.method) == 0) return k.texts;
  return 0;
}

// Reads the input; past its end every read gives zeros.
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
  std::string line() {
    std::string s;
    while (pos_ < size_ && data_[pos_] != '\n') s.push_back(static_cast<char>(data_[pos_++]));
    if (pos_ < size_) ++pos_;
    return s;
  }

 private:
  const uint8_t *data_;
  size_t size_;
  size_t pos_ = 0;
};

struct Text {
  enum { kNull, kFailing, kBytes } kind = kNull;
  std::string bytes;
};

Text read_text(Reader &in, size_t limit) {
  Text t;
  uint8_t tag = in.u8();
  if (tag == 0) return t;
  if (tag == 1) {
    t.kind = Text::kFailing;
    t.bytes = "x";
    return t;
  }
  t.kind = Text::kBytes;
  uint8_t length = in.u8();
  std::string piece;
  for (uint8_t i = 0; i < length; ++i) piece.push_back(static_cast<char>(in.u8()));
  size_t repeat = tag == 3 ? in.u16() : 1;
  for (size_t i = 0; i < repeat && t.bytes.size() < limit; ++i) t.bytes += piece;
  if (t.bytes.size() > limit) t.bytes.resize(limit);
  return t;
}

jstring make_string(fakejni::FakeJvm &jvm, const Text &t) {
  switch (t.kind) {
    case Text::kNull:
      return nullptr;
    case Text::kFailing:
      return jvm.failing_str(t.bytes);
    default:
      return jvm.str(t.bytes);
  }
}

const catalogue::Native &choose(Reader &in) {
  std::string name = in.line();
  const std::vector<const catalogue::Native *> &list = natives();
  unsigned sum = 0;
  for (const catalogue::Native *n : list)
    if (name == std::string(n->cls) + "." + n->method) return *n;
  for (unsigned char c : name) sum += c;
  return *list[sum % list.size()];
}

[[noreturn]] void finding(const catalogue::Native &n, const std::string &what) {
  fprintf(stderr, "java_inputs: %s.%s: %s\n", n.cls, n.method, what.c_str());
  abort();
}

}  // namespace

size_t native_count() { return natives().size(); }

std::string native_name(size_t i) {
  return std::string(natives()[i]->cls) + "." + natives()[i]->method;
}

void run_one_input(const uint8_t *data, size_t size) {
  Reader in(data, size);
  const catalogue::Native &native = choose(in);

  sim_reset();
  static const std::string state = source_root() + "/sim/gateway";
  if (sim_load(state.c_str()) != 0) {
    fprintf(stderr, "java_inputs: cannot load %s\n", state.c_str());
    abort();
  }

  fakejni::FakeJvm jvm;
  // The SSID security native gives the password back naming the encryption string, on
  // purpose; the VM frees a text by its pointer.
  if (strcmp(native.method, "setWLANSSIDSecurityJni") == 0) jvm.release_by_pointer(true);

  std::vector<catalogue::Arg> args(strlen(native.params));
  for (size_t p = 0; p < args.size(); ++p) {
    catalogue::Arg &arg = args[p];
    switch (native.params[p]) {
      case 'I': {
        uint8_t tag = in.u8();
        arg.i = tag < 0xF0 ? static_cast<jint>(tag) - 16 : static_cast<jint>(in.u32());
        break;
      }
      case 'Z':
        arg.z = static_cast<jboolean>(in.u8() & 1);
        break;
      case 'B':
        arg.b = static_cast<jbyte>(in.u8());
        break;
      case 'S':
        arg.s = make_string(jvm, read_text(in, kMaxText));
        break;
      case 'A': {
        if (in.u8() == 0) break;  // a null array
        size_t count = std::min<size_t>(in.u16(), kMaxElements);
        size_t kinds = (in.u8() & 7u) + 1;
        std::vector<Text> texts;
        size_t limit = count == 0 ? kMaxText : std::min(kMaxText, kMaxArrayBytes / count);
        for (size_t k = 0; k < kinds; ++k) texts.push_back(read_text(in, limit));
        std::vector<jstring> elements;
        for (size_t e = 0; e < count; ++e) elements.push_back(make_string(jvm, texts[e % kinds]));
        arg.a = jvm.array(elements);
        break;
      }
      case 'Y': {
        Text t = read_text(in, kMaxBytes);
        if (t.kind == Text::kNull) break;
        arg.y = t.kind == Text::kFailing ? jvm.failing_bytes(t.bytes) : jvm.bytes_of(t.bytes);
        break;
      }
    }
  }

  catalogue::Result result = native.call(jvm.env(), jvm.self(), args.data());

  if (result.kind == catalogue::Returns::kBool && result.number != JNI_TRUE &&
      result.number != JNI_FALSE)
    finding(native, "a boolean answer other than true or false");
  if (!jvm.errors().empty()) finding(native, "JNI misuse: " + jvm.errors().front());
  if (jvm.outstanding() > kept_texts(native))
    finding(native, std::to_string(jvm.outstanding()) + " Java text(s) left borrowed");
  if (jvm.pinned() != 0) finding(native, "a byte[] left pinned");
  // A native frame may hold 16 local references without asking the VM for more (beyond that
  // the VM under -Xcheck:jni warns): array elements must be deleted as they are used.
  if (jvm.max_live_local_refs() > kLocalCapacity)
    finding(native, std::to_string(jvm.max_live_local_refs()) + " local references at once");
}

}  // namespace fuzzjava
