// com.lumarest.smartgateway.transferservices.TrafficMirrorServiceImp: rules that copy selected
// traffic (remote address and port range, direction, protocol, optionally one LAN host) to a
// mirror host and port.
//
// Up to 255 rules live in the configuration tree as nodes TrafficMirror_Entry0..254; an entry
// is in use exactly when its "mirrorToIP" is non-empty, and its index is the rule's identity
// towards Java. Every change is applied by a delayed commit of "TrafficMirror"; nothing is
// saved here.
#include <regex.h>
#include <stddef.h>
#include <stdint.h>
#include <stdio.h>
#include <stdlib.h>
#include <string.h>

#include "common/config_tree.h"
#include "common/ip_valid_check.h"
#include "common/json_list.h"
#include "common/native.h"
#include "common/native_reply.h"
#include "common/platform_addrcheck.h"
#include "common/platform_tcapi.h"
#include "transferservices/traffic_mirror_rule.h"

namespace {

constexpr int kMirrorEntries = 255;
constexpr size_t kNodeNameSize = 64;
constexpr size_t kRuleValueSize = 256;  // reads of the duplicate test and the query
constexpr size_t kSlotValueSize = 128;  // "mirrorToIP" reads of the slot search
constexpr size_t kMacMaxLength = 32;
constexpr int kMaxPort = 65535;
// 255 entries of 128 bytes: the reply of the rule list (a longer list is cut there).
constexpr size_t kRuleListSize = 32640;

// The text values of a rule in the configuration tree, in the order they are compared and
// written, each followed by a NUL; and the reply's names for them, in the same order. The
// mirror-to IP and port come after these.
const char kRuleKeys[] = "remoteAddress\0remotePort\0direction\0protocol\0hostMAC";
const char kRuleNames[] = "RemoteAddress\0RemotePort\0Direction\0Protocol\0HostMAC";
constexpr int kRuleTexts = 5;
const uint16_t kRuleOffsets[kRuleTexts] = {
    offsetof(traffic_mirror_rule, remoteAddress), offsetof(traffic_mirror_rule, remotePort),
    offsetof(traffic_mirror_rule, direction), offsetof(traffic_mirror_rule, protocol),
    offsetof(traffic_mirror_rule, hostMAC)};

// The next name of a NUL-separated list.
const char *next_name(const char *name) { return name + strlen(name) + 1; }

const char kCommitNode[] = "TrafficMirror";
constexpr int kCommitDelay = 3;

// Node names and tree values are written whole (terminated) before they are read, so the
// walks over the 255 entries do not zero their buffers.
void rule_node(char (&node)[kNodeNameSize], int index) {
  bundle::format_text(node, sizeof node, "%s_%s%d", "TrafficMirror", "Entry", index);
}

// A port ("80"), a negated port ("!80") or a range ("1000-2000"): digits, each number at most
// 65535, and the lower bound not above the final number. A leading "-" is refused; a "!"
// together with a range is refused as a non-digit. An empty text passes, and so does
// "1-2-3" (each "-" moves the number so far into the lower bound).
int portRangeValidCheck(const char *text) {
  const char *p = text;
  const char *dash = strchr(text, '-');
  if (dash == text) return -1;
  if (dash == nullptr && *p == '!') ++p;
  int32_t lower = 0, number = 0;
  for (; *p != '\0'; ++p) {
    if (*p == '-') {
      lower = number;
      number = 0;
    } else if (*p >= '0' && *p <= '9') {
      number = number * 10 + (*p - '0');
      if (number > kMaxPort) return -1;
    } else {
      return -1;
    }
  }
  return lower <= number ? 0 : -1;
}

// Six pairs of hexadecimal digits of either case separated by ":". -1 also when the pattern
// does not compile.
int macValidCheck(const char *mac) {
  regex_t pattern;
  if (regcomp(&pattern,
              "^[0-9a-fA-F]{2}:[0-9a-fA-F]{2}:[0-9a-fA-F]{2}:[0-9a-fA-F]{2}:[0-9a-fA-F]{2}:"
              "[0-9a-fA-F]{2}$",
              REG_EXTENDED) != 0)
    return -1;
  int status = regexec(&pattern, mac, 0, nullptr, 0);
  regfree(&pattern);
  BUNDLE_TRACE("regex: status: %d\n", status);
  return status == 0 ? 0 : -1;
}

bool one_of(const char *text, const char *a, const char *b, const char *c) {
  return strcmp(text, a) == 0 || strcmp(text, b) == 0 || strcmp(text, c) == 0;
}

// The texts of a rule, in the order they are taken and checked.
enum RuleText { kRemote, kPort, kDirection, kProtocol, kMac, kMirrorIp };

// NULL for an accepted text of kind `kind`, or the trace line that refuses it (its %s is the
// text). An empty host MAC is accepted as it is.
const char *refusal(int kind, const char *text) {
  switch (kind) {
    case kRemote:
      return checkIPDomainVaild(text) < 0 ? "IP(Domain) %s is not valid\n" : nullptr;
    case kPort:
      return portRangeValidCheck(text) < 0 ? "remotePort %s is not valid\n" : nullptr;
    case kDirection:
      return one_of(text, "UP", "DOWN", "ALL") ? nullptr : "direction %s is not valid\n";
    case kProtocol:
      return one_of(text, "TCP", "UDP", "TCP/UDP") ? nullptr : "protocol %s is not valid\n";
    case kMac:
      if (text[0] == '\0') return nullptr;
      if (strlen(text) > kMacMaxLength) return "mac len is  too long!\n";  // two blanks, spelled so
      return macValidCheck(text) < 0 ? "%s is an invalid MAC\n" : nullptr;
    default:
      return ipValidCheck(text) < 0 && sc_check_ip6_format(text) < 0 ? "mirror IP %s is not valid\n"
                                                                       : nullptr;
  }
}

// Takes one text of the rule into `out` (`size` bytes), checked by refusal().
bool take_rule_text(JNIEnv *env, bundle::TraceName native, jstring s, int kind, char *out,
                    size_t size) {
  return bundle::take_checked_text(env, native, s, refusal, kind, out, size);
}

// The first entry whose "mirrorToIP" is empty, or -1.
int find_free_mirror_entry() {
  for (int i = 0; i < kMirrorEntries; ++i) {
    char node[kNodeNameSize];
    char ip[kSlotValueSize];
    rule_node(node, i);
    bundle::tree_get(node, "mirrorToIP", ip);
    if (ip[0] == '\0') return i;
  }
  return -1;
}

// The checks and the store of addMirrorRuleJni. Each Java text is released once copied; on a
// refusal the text being checked is kept (never released), as the gateway has always done. A
// null remote address or host MAC means none.
int add_mirror_rule(JNIEnv *env, bundle::TraceName native, jstring jremote, jstring jport,
                    jstring jdirection, jstring jprotocol, jstring jmac, jstring jmirror_ip,
                    jint mirror_port) {
  char remote[512] = {};
  char port[64];
  char direction[64];
  char protocol[64];
  char mac[64] = {};
  char mirror_ip[128];
  if ((jremote != nullptr && !take_rule_text(env, native, jremote, kRemote, remote, sizeof remote)) ||
      !take_rule_text(env, native, jport, kPort, port, sizeof port) ||
      !take_rule_text(env, native, jdirection, kDirection, direction, sizeof direction) ||
      !take_rule_text(env, native, jprotocol, kProtocol, protocol, sizeof protocol) ||
      (jmac != nullptr && !take_rule_text(env, native, jmac, kMac, mac, sizeof mac)) ||
      !take_rule_text(env, native, jmirror_ip, kMirrorIp, mirror_ip, sizeof mirror_ip))
    return -1;

  // 1 to 65535, tested as port - 1 < 65535 unsigned.
  if (static_cast<uint32_t>(mirror_port) - 1u >= static_cast<uint32_t>(kMaxPort)) {
    BUNDLE_TRACE_AS(native, "mirrorToPort %d is not valid\n", static_cast<int>(mirror_port));
    return -1;
  }

  traffic_mirror_rule rule;
  memset(&rule, 0, sizeof rule);
  bundle::copy_padded(rule.remoteAddress, remote);
  bundle::copy_padded(rule.remotePort, port);
  bundle::copy_padded(rule.direction, direction);
  bundle::copy_padded(rule.protocol, protocol);
  bundle::copy_padded(rule.hostMAC, mac);
  bundle::copy_padded(rule.mirrorToIP, mirror_ip);
  rule.mirrorToPort = mirror_port;
  int index = -1;
  if (is_duplicated_traffic_mirror_rule(&rule, &index)) {
    // Not an error: the stored rule's index, and nothing committed.
    BUNDLE_TRACE_AS(native, "mirror rule is duplicated\n");
    return index;
  }

  index = find_free_mirror_entry();
  if (index < 0) {
    BUNDLE_TRACE_AS(native, "Mirror Entry is full\n");
    return -2;
  }

  char node[kNodeNameSize];
  char number[64];
  rule_node(node, index);
  const char *const values[kRuleTexts] = {remote, port, direction, protocol, mac};
  const char *key = kRuleKeys;
  for (int f = 0; f < kRuleTexts; ++f, key = next_name(key)) tcapi_set(node, key, values[f]);
  tcapi_set(node, "mirrorToIP", mirror_ip);
  snprintf(number, sizeof number, "%d", static_cast<int>(mirror_port));
  tcapi_set(node, "mirrorToPort", number);
  brelo_tcapi_delay_commit(kCommitNode, kCommitDelay);
  return index;
}

}  // namespace

extern "C" {

int is_duplicated_traffic_mirror_rule(const traffic_mirror_rule *rule, int *index) {
  if (rule == nullptr) return 0;
  // The rule's texts, terminated within their fields whatever the caller left there.
  traffic_mirror_rule r;
  memcpy(&r, rule, sizeof r);
  bundle::terminate_field(r.remoteAddress);
  bundle::terminate_field(r.remotePort);
  bundle::terminate_field(r.direction);
  bundle::terminate_field(r.protocol);
  bundle::terminate_field(r.hostMAC);
  bundle::terminate_field(r.mirrorToIP);

  char value[kRuleValueSize];  // every read leaves a terminated text (empty when absent)
  for (int i = 0; i < kMirrorEntries; ++i) {
    char node[kNodeNameSize];
    rule_node(node, i);
    bundle::tree_get(node, "mirrorToIP", value);
    if (value[0] == '\0' || strcmp(value, r.mirrorToIP) != 0) continue;
    // Compared in this order, up to the first difference.
    bool same = true;
    const char *key = kRuleKeys;
    for (int f = 0; f < kRuleTexts && same; ++f, key = next_name(key)) {
      bundle::tree_get(node, key, value);
      same = strcmp(value, reinterpret_cast<const char *>(&r) + kRuleOffsets[f]) == 0;
    }
    if (!same) continue;
    bundle::tree_get(node, "mirrorToPort", value);
    if (bundle::tree_atoi(value) != r.mirrorToPort) continue;
    BUNDLE_TRACE("%s:%d===duplicated mirror rule=====\n", __func__, __LINE__);
    if (index != nullptr) *index = i;
    return 1;
  }
  return 0;
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficMirrorServiceImp_addMirrorRuleJni(
    JNIEnv *env, jobject, jstring remoteAddress, jstring remotePort, jstring direction,
    jstring protocol, jstring hostMAC, jstring mirrorToIP, jint mirrorToPort) {
  int rc = add_mirror_rule(env, BUNDLE_NATIVE, remoteAddress, remotePort, direction, protocol,
                           hostMAC, mirrorToIP, mirrorToPort);
  return BUNDLE_CODE_REPLY(rc);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficMirrorServiceImp_deleteMirrorRuleJni(
    JNIEnv *, jobject, jint entryIndex) {
  // The index as given: no range check, no test that the entry exists.
  char node[kNodeNameSize];
  rule_node(node, entryIndex);
  tcapi_unset(node);
  brelo_tcapi_delay_commit(kCommitNode, kCommitDelay);
  return BUNDLE_CODE_REPLY(0);
}

JNIEXPORT jint JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficMirrorServiceImp_deleteAllMirrorRuleJni(
    JNIEnv *, jobject) {
  for (int i = 0; i < kMirrorEntries; ++i) {
    char node[kNodeNameSize];
    rule_node(node, i);
    tcapi_unset(node);
  }
  brelo_tcapi_delay_commit(kCommitNode, kCommitDelay);
  return BUNDLE_CODE_REPLY(0);
}

// "Mirro" is the Java method's own spelling; Java binds by this name.
JNIEXPORT jstring JNICALL
Java_com_lumarest_smartgateway_transferservices_TrafficMirrorServiceImp_getMirroRuleInfoJni(
    JNIEnv *env, jobject) {
  char *reply = static_cast<char *>(malloc(kRuleListSize));
  const char *text = "{\"Result\":-1,\"FailReason\":\"No enough memory\"}";
  if (reply != nullptr) {
    reply[0] = '\0';
    size_t off = 0;
    bundle::reply_append(reply, kRuleListSize, &off, "{\"Result\":0,\"List\":[");
    for (int i = 0; i < kMirrorEntries; ++i) {
      char node[kNodeNameSize];
      char mirror_ip[kRuleValueSize];
      rule_node(node, i);
      bundle::tree_get(node, "mirrorToIP", mirror_ip);
      if (mirror_ip[0] == '\0') continue;
      char values[kRuleTexts][kRuleValueSize], mirror_port[kRuleValueSize];
      const char *key = kRuleKeys;
      for (int f = 0; f < kRuleTexts; ++f, key = next_name(key))
        bundle::tree_get(node, key, values[f], kRuleValueSize);
      bundle::tree_get(node, "mirrorToPort", mirror_port);
      bundle::append_object_opener(reply, kRuleListSize, &off);
      const char *name = kRuleNames;
      for (int f = 0; f < kRuleTexts; ++f, name = next_name(name))
        bundle::reply_append(reply, kRuleListSize, &off, "\"%s\":\"%s\",", name, values[f]);
      bundle::reply_append(reply, kRuleListSize, &off, "\"MirrorToIP\":\"%s\",", mirror_ip);
      bundle::reply_append(reply, kRuleListSize, &off, "\"MirrorToPort\":%d}", bundle::tree_atoi(mirror_port));
    }
    bundle::reply_append(reply, kRuleListSize, &off, "]}");
    text = reply;
  }
  jstring result = BUNDLE_JSON_REPLY(env, text);
  free(reply);
  return result;
}

}  // extern "C"
