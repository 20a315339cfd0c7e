// The configuration-tree fuzzer's harness (layout of an input in tree_values_harness.h).
//
// The values come in on demand: a hook on tcapi_get reads which node and attribute the call
// asks for (sim_hook_arguments), takes the input's next item and puts that value into the tree
// (or removes the attribute) before the read answers. So whatever nodes a native
// walks (every WAN of the index list, every rule slot), each read is fed, and the rest of the
// gateway stays the default one, consistent, so natives get past their other platform calls.
#include "fuzz/tree_values_harness.h"

#include <string.h>

#include <string>
#include <vector>

#include "fuzz/native_input.h"
#include "sim/sim_control.h"
#include "tests/native_catalogue.h"

namespace fuzztree {
namespace {

// The natives that read the tree (tcapi_get); TreeValuesCorpus checks the list against the
// platform calls every native makes.
const char *const kTreeNatives[] = {
    "PortMappingQueryServiceImp.getPortMappingInfoJni",
    "PortMappingConfigServiceImp.addPortMappingJni",
    "PortMappingConfigServiceImp.deletePortMappingJni",
    "PortMappingConfigServiceImp.setPortMappingSwitchJni",
    "TrafficMonitoringConfigServiceImp.addTrafficMonitoringDestAddressJni",
    "TrafficMonitoringConfigServiceImp.deleteTrafficMonitoringDestAddressJni",
    "TrafficMonitoringConfigServiceImp.getTrafficMonitoringDestAddressInfoJni",
    "TrafficMirrorServiceImp.addMirrorRuleJni",
    "TrafficMirrorServiceImp.getMirroRuleInfoJni",
    "WlanQueryServiceImp.getGuestSSIDInfoJni",
    "WlanQueryServiceImp.getWLANHostInfoJni",
};

// Values the natives parse: numbers at and past the int bounds, lists, the words they compare
// against, separators, texts that are not UTF-8.
const char *const kValues[] = {
    "", "0", "1", "-1", "7", "65535", "65536", "2147483647", "2147483648", "-2147483648",
    "4294967296", "99999999999999999999", "0x10", " 8", "8 ", "1e3", "Yes", "No", "yes",
    "TCP", "UDP", "TCP/UDP", "BOTH", "ALL", "UP", "DOWN", "Route", "Bridge", "INTERNET",
    "TR069", "INTERNET_TR069", "IPTV", "TAG", "UNTAG", "0,8,16,24", "0,8,16,24,",
    ",,,", "0,,8", "-8,8", "2147483647,0", "999,1000,4095", "192.168.1.20", "0.0.0.0",
    "255.255.255.255", "256.1.1.1", "00:E0:4C:68:01:A2", "00:11:22:33:44:55", "zz:zz",
    "www.example.com", "192.0.2.7,198.51.100.1", ";;", "|", "com.example.bundle",
    "\xC0\x80", "\xFF\xFE", "\xED\xA0\x80", "\xE2\x82", "%s%n%x", "\"quoted\"", "{\"a\":1}",
};
constexpr size_t kValueCount = sizeof kValues / sizeof kValues[0];
constexpr size_t kMaxValue = 4095;

const std::vector<const catalogue::Native *> &natives() {
  static std::vector<const catalogue::Native *> list = [] {
    std::vector<const catalogue::Native *> v;
    for (const char *name : kTreeNatives)
      for (size_t i = 0; i < catalogue::kNativeCount; ++i) {
        const catalogue::Native &n = catalogue::kNatives[i];
        if (name == fuzzinput::name_of(n)) v.push_back(&n);
      }
    return v;
  }();
  return list;
}

// Splits the arguments of the tcapi_get being made, "<node>", "<attribute>", into its texts.
bool read_asked(std::string *node, std::string *attr) {
  const char *args = sim_hook_arguments();
  if (args == nullptr) return false;
  std::string text = args;
  size_t sep = text.find("\", \"");
  if (text.size() < 2 || text.front() != '"' || text.back() != '"' || sep == std::string::npos)
    return false;
  *node = text.substr(1, sep - 1);
  *attr = text.substr(sep + 4, text.size() - 1 - (sep + 4));
  return true;
}

// Runs at every tcapi_get: the input's next item becomes the value read.
void feed(const char *, void *ctx) {
  fuzzinput::Reader &in = *static_cast<fuzzinput::Reader *>(ctx);
  uint8_t tag = in.u8();
  std::string node, attr;
  if (tag == 0 || !read_asked(&node, &attr)) return;
  std::string section = "tcapi " + node;
  if (tag == 1) {
    sim_unset(section.c_str(), attr.c_str());
    return;
  }
  std::string value;
  if (tag == 2 || tag == 3) {
    uint8_t length = in.u8();
    std::string piece;
    for (uint8_t i = 0; i < length; ++i) piece.push_back(static_cast<char>(in.u8()));
    size_t repeat = tag == 3 ? in.u8() : 1;
    for (size_t i = 0; i < repeat && value.size() < kMaxValue; ++i) value += piece;
    if (value.size() > kMaxValue) value.resize(kMaxValue);
  } else {
    value = kValues[tag % kValueCount];
  }
  sim_set(section.c_str(), attr.c_str(), value.c_str());
}

}  // namespace

size_t native_count() { return natives().size(); }

std::string native_name(size_t i) { return fuzzinput::name_of(*natives()[i]); }

void run_one_input(const uint8_t *data, size_t size) {
  fuzzinput::run_native_input(
      "tree_values", natives(), data, size,
      [](fuzzinput::Reader &in) { sim_program_hook("tcapi_get", feed, &in); },
      [] { sim_program_hook("tcapi_get", nullptr, nullptr); });
}

}  // namespace fuzztree
