#include "fuzz/native_input.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <algorithm>

#include "sim/sim_control.h"

namespace fuzzinput {
namespace {

constexpr size_t kMaxText = 70000;
constexpr size_t kMaxElements = 30000;
constexpr size_t kMaxBytes = 4096;
constexpr int kLocalCapacity = 16;
// All elements of one array together hold at most this many bytes (30000 elements of 70000
// bytes would take 2 GiB): the longer the array, the shorter its element texts.
constexpr size_t kMaxArrayBytes = 2000000;

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

}  // namespace

std::string Reader::line() {
  std::string s;
  while (pos_ < size_ && data_[pos_] != '\n') s.push_back(static_cast<char>(data_[pos_++]));
  if (pos_ < size_) ++pos_;
  return s;
}

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
  size_t repeat = tag == 3 ? in.u8() : tag == 4 ? in.u16() : 1;
  for (size_t i = 0; i < repeat && t.bytes.size() < limit; ++i) t.bytes += piece;
  if (t.bytes.size() > limit) t.bytes.resize(limit);
  return t;
}

std::string name_of(const catalogue::Native &native) {
  return std::string(native.cls) + "." + native.method;
}

const catalogue::Native &choose(const std::string &name,
                                const std::vector<const catalogue::Native *> &list) {
  for (const catalogue::Native *n : list) {
    // name == "<cls>.<method>", compared in place (no text built per native and input).
    size_t cls = strlen(n->cls);
    if (name.size() == cls + 1 + strlen(n->method) && name.compare(0, cls, n->cls) == 0 &&
        name[cls] == '.' && name.compare(cls + 1, std::string::npos, n->method) == 0)
      return *n;
  }
  unsigned sum = 0;
  for (unsigned char c : name) sum += c;
  return *list[sum % list.size()];
}

std::vector<catalogue::Arg> read_arguments(Reader &in, fakejni::FakeJvm &jvm,
                                           const catalogue::Native &native) {
  std::vector<catalogue::Arg> args(std::max<size_t>(strlen(native.params), 1));
  for (size_t p = 0; native.params[p] != '\0'; ++p) {
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
        uint8_t tag = in.u8();
        if (tag == 0) break;  // a null array
        size_t count = tag == 1 ? std::min<size_t>(in.u16(), kMaxElements) : in.u8();
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
  return args;
}

void default_gateway() {
  // Another user of the simulator (a unit test) may have replaced or forgotten the snapshot:
  // then the gateway is loaded again.
  static unsigned long snapshot = 0;
  if (sim_restore(snapshot) == 0) return;
  std::string state = __FILE__;  // <root>/fuzz/native_input.cpp
  for (int i = 0; i < 2; ++i) state = state.substr(0, state.rfind('/'));
  state += "/sim/gateway";
  sim_reset();
  if (sim_load(state.c_str()) != 0) {
    fprintf(stderr, "fuzz: cannot load %s\n", state.c_str());
    abort();
  }
  snapshot = sim_snapshot();
}

void run_native_input(const char *target, const std::vector<const catalogue::Native *> &list,
                      const uint8_t *data, size_t size, void (*before)(Reader &in),
                      void (*after)()) {
  Reader in(data, size);
  const catalogue::Native &native = choose(in.line(), list);
  DefaultGateway gateway;
  fakejni::FakeJvm jvm;
  prepare(jvm, native);
  std::vector<catalogue::Arg> args = read_arguments(in, jvm, native);
  if (before != nullptr) before(in);
  catalogue::Result result = native.call(jvm.env(), jvm.self(), args.data());
  if (after != nullptr) after();
  check_call(target, native, jvm, result);
}

void prepare(fakejni::FakeJvm &jvm, const catalogue::Native &native) {
  if (strcmp(native.method, "setWLANSSIDSecurityJni") == 0) jvm.release_by_pointer(true);
}

void finding(const char *target, const catalogue::Native &native, const std::string &what) {
  fprintf(stderr, "%s: %s.%s: %s\n", target, native.cls, native.method, what.c_str());
  abort();
}

void check_call(const char *target, const catalogue::Native &native, fakejni::FakeJvm &jvm,
                const catalogue::Result &result) {
  if (result.kind == catalogue::Returns::kBool && result.number != JNI_TRUE &&
      result.number != JNI_FALSE)
    finding(target, native, "a boolean answer other than true or false");
  if (!jvm.errors().empty()) finding(target, native, "JNI misuse: " + jvm.errors().front());
  if (jvm.outstanding() > kept_texts(native))
    finding(target, native, std::to_string(jvm.outstanding()) + " Java text(s) left borrowed");
  if (jvm.pinned() != 0) finding(target, native, "a byte[] left pinned");
  // A native frame may hold 16 local references without asking the VM for more (beyond that
  // the VM under -Xcheck:jni warns): array elements must be deleted as they are used.
  if (jvm.max_live_local_refs() > kLocalCapacity)
    finding(target, native, std::to_string(jvm.max_live_local_refs()) + " local references at once");
}

}  // namespace fuzzinput
