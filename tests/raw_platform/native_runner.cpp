#include "tests/raw_platform/native_runner.h"

#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include <set>

#include "tests/fake_jni.h"
#include "tests/raw_platform/raw_platform.h"

namespace rawrun {
namespace {

// Texts the natives take: MAC addresses, addresses, names, JSON parameters, radio and port
// names, URLs. A set pairs one text with one integer.
const char *const kTexts[] = {
    "00:11:22:33:44:55",
    "192.168.1.2",
    "{\"WANName\":\"1_INTERNET_R_VID_\",\"NumberOfRepetitions\":1,\"Timeout\":1000}",
    "1",
    "2.4G",
    "LAN1",
    "http://192.0.2.1/file",
    "5G",
    "TRUE",
    "BLOCK",
    "TCP",
};
constexpr int kTextCount = sizeof kTexts / sizeof kTexts[0];
const jint kInts[] = {1, 0, 2};
static_assert(kArgSets == kTextCount * 3, "every text with every integer");

// Natives whose texts must differ from one another to reach the platform: their texts in
// parameter order, whatever the set.
struct Texts {
  const char *method;
  const char *texts[4];
};
const Texts kOwnTexts[] = {
    {"addPortMappingJni", {"TCP", "192.168.1.2"}},
    {"startHttpUploadDiagnosticsJni",
     {"http://192.0.2.1/upload", "{\"TestFileLength\":1000,\"Connections\":1}"}},
    {"setLANDHCPInfoJni", {"TRUE", "192.168.1.10", "192.168.1.100"}},
};

}  // namespace

std::string describe(const std::string &text) {
  auto escape = [](const std::string &s) {
    std::string out;
    for (unsigned char c : s) {
      if (c >= 0x20 && c < 0x7F && c != '\\') {
        out += static_cast<char>(c);
      } else {
        char hex[8];
        snprintf(hex, sizeof hex, "\\x%02X", c);
        out += hex;
      }
    }
    return out;
  };
  if (text.size() <= 160) return escape(text);
  uint32_t h = 2166136261u;  // FNV-1a
  for (unsigned char c : text) h = (h ^ c) * 16777619u;
  char tail[64];
  snprintf(tail, sizeof tail, "...(%zu bytes, fnv %08x)", text.size(), h);
  return escape(text.substr(0, 120)) + tail;
}

Outcome run(const catalogue::Native &n, int set) {
  fakejni::FakeJvm jvm;
  // A release naming another string than the one borrowed from frees by the pointer, as
  // HotSpot does (one native does so on purpose).
  jvm.release_by_pointer(true);
  const char *text = kTexts[set % kTextCount];
  jint number = kInts[(set / kTextCount) % 3];
  std::vector<catalogue::Arg> args;
  const Texts *own = nullptr;
  for (const Texts &t : kOwnTexts)
    if (strcmp(t.method, n.method) == 0) own = &t;
  int text_index = 0;
  for (const char *p = n.params; *p != '\0'; ++p) {
    catalogue::Arg a;
    switch (*p) {
      case 'I': a.i = number; break;
      case 'Z': a.z = JNI_TRUE; break;
      case 'B': a.b = static_cast<jbyte>(number); break;
      case 'S':
        a.s = jvm.str(own != nullptr && text_index < 4 && own->texts[text_index] != nullptr
                          ? own->texts[text_index]
                          : text);
        ++text_index;
        break;
      case 'A': a.a = jvm.array_of({text}); break;
      case 'Y': a.y = jvm.bytes_of("\x01\x02\x03\x04"); break;
      default: break;
    }
    args.push_back(a);
  }
  catalogue::Arg none;
  // The call log of this run only.
  size_t before = rawplatform::calls().size();
  catalogue::Result r = n.call(jvm.env(), jvm.self(), args.empty() ? &none : args.data());
  Outcome o;
  o.calls.assign(rawplatform::calls().begin() + static_cast<long>(before),
                 rawplatform::calls().end());
  switch (r.kind) {
    case catalogue::Returns::kInt: o.reply = "int:" + std::to_string(r.number); break;
    case catalogue::Returns::kBool: o.reply = "bool:" + std::to_string(r.number); break;
    case catalogue::Returns::kText:
      o.reply = r.text == nullptr ? "<null>" : describe(jvm.text(r.text));
      break;
  }
  o.errors = jvm.errors();
  o.pending = jvm.pending_exception();
  o.outstanding = jvm.outstanding();
  o.pinned = jvm.pinned();
  return o;
}

int best_set(const catalogue::Native &n) {
  int best = 0;
  size_t most = 0;
  for (int set = 0; set < kArgSets; ++set) {
    rawplatform::reset();
    Outcome o = run(n, set);
    std::set<std::string> distinct(o.calls.begin(), o.calls.end());
    if (distinct.size() > most) {
      most = distinct.size();
      best = set;
    }
  }
  rawplatform::reset();
  return best;
}

void fuzz_one(const uint8_t *data, size_t size) {
  if (size < 3) return;
  size_t index = (static_cast<size_t>(data[0]) << 8 | data[1]) % catalogue::kNativeCount;
  const catalogue::Native &n = catalogue::kNatives[index];
  int set = data[2] % kArgSets;

  // What the same call leaves borrowed on a neutral platform: deliberate keeps.
  rawplatform::reset();
  Outcome neutral = run(n, set);

  rawplatform::reset();
  rawplatform::set_bytes(data + 3, size - 3);
  Outcome o = run(n, set);
  rawplatform::reset();

  auto fail = [&](const std::string &what) {
    fprintf(stderr, "platform_fuzz: %s.%s (argument set %d): %s\n", n.cls, n.method, set,
            what.c_str());
    for (auto &e : o.errors) fprintf(stderr, "  %s\n", e.c_str());
    abort();
  };
  // PLATFORM_FUZZ_DEBUG=1 tells what each input reached and what the native answered.
  if (getenv("PLATFORM_FUZZ_DEBUG") != nullptr) {
    std::string called;
    for (const std::string &c : o.calls) called += c + " ";
    fprintf(stderr, "%s.%s (set %d): %s-> %s\n", n.cls, n.method, set, called.c_str(),
            o.reply.c_str());
  }
  if (!o.errors.empty()) fail("JNI misuse");
  if (!o.pending.empty()) fail("exception left pending: " + o.pending);
  if (o.outstanding > neutral.outstanding) fail("Java texts left borrowed");
  if (o.pinned > neutral.pinned) fail("byte arrays left pinned");
}

}  // namespace rawrun
