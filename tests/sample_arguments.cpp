#include "tests/sample_arguments.h"

#include <string.h>

namespace samples {
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

std::vector<catalogue::Arg> arguments(fakejni::FakeJvm &jvm, const catalogue::Native &n, int set) {
  const char *text = kTexts[set % kTextCount];
  jint number = kInts[(set / kTextCount) % 3];
  const Texts *own = nullptr;
  for (const Texts &t : kOwnTexts)
    if (strcmp(t.method, n.method) == 0) own = &t;
  std::vector<catalogue::Arg> args;
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
  if (args.empty()) args.emplace_back();
  return args;
}

}  // namespace samples
