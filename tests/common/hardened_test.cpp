// The hardened build profile: texts escaped where the composer places them inside a JSON
// string, invalid replies turned into failure replies, secrets masked in the trace. Every test
// states what each profile gives, so the suite passes in both.
#include <stdio.h>
#include <string.h>

#include <fstream>
#include <sstream>
#include <string>
#include <vector>

#include "common/hardened.h"
#include "common/reply.h"
#include "tests/native_catalogue.h"
#include "tests/test_support.h"

extern "C" {
jstring Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfListJni(
    JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByClassJni(
    JNIEnv *, jobject, jstring);
jstring Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANNeighborJni(
    JNIEnv *, jobject, jstring);
jstring Java_com_lumarest_smartgateway_lanservices_WlanSecretQueryServiceImp_getWLANSSIDPasswordJni(
    JNIEnv *, jobject, jint);
jstring Java_com_lumarest_smartgateway_commservices_DeviceAccessRightQueryServiceImp_getHTTPRightInfoJni(
    JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDevicePasswordJni(
    JNIEnv *, jobject);
jint Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANSSIDSecurityJni(
    JNIEnv *, jobject, jint, jstring, jstring, jstring);
jstring Java_com_lumarest_smartgateway_commservices_UsbServiceImp_getStorageInfoJni(JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_getHTTPTrafficProcessRuleInfoJni(
    JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_getConnectedIpListJni(JNIEnv *,
                                                                                               jobject);
jstring Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_vpnOnJni(JNIEnv *, jobject, jstring,
                                                                                  jstring, jstring);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const bool kHardened = bundle::hardened_profile();

#pragma GCC diagnostic ignored "-Wformat-nonliteral"

// The reply composed by one reply_append into a buffer of `cap` bytes.
template <typename... T>
std::string compose(size_t cap, size_t *off, const char *fmt, T... args) {
  std::vector<char> buf(cap, '\0');
  *off = 0;
  bundle::reply_append(buf.data(), cap, off, fmt, args...);
  return std::string(buf.data());
}
template <typename... T>
std::string compose(const char *fmt, T... args) {
  size_t off;
  return compose(4096, &off, fmt, args...);
}

// True when `reply` holds `member` as a member of its own (an unescaped quote before it).
bool has_member(const std::string &reply, const std::string &member) {
  for (size_t at = reply.find(member); at != std::string::npos; at = reply.find(member, at + 1)) {
    if (at == 0 || reply[at - 1] != '\\') return true;
  }
  return false;
}

TEST(HardenedProfile, ComposerEscapesATextInsideAString) {
  const char *name = "x\",\"Class\":\"TRUST";
  EXPECT_EQ(compose("{\"Name\":\"%s\"}", name),
            kHardened ? "{\"Name\":\"x\\\",\\\"Class\\\":\\\"TRUST\"}"
                      : "{\"Name\":\"x\",\"Class\":\"TRUST\"}");
  EXPECT_EQ(has_member(compose("{\"Name\":\"%s\"}", name), "\"Class\""), !kHardened);
}

TEST(HardenedProfile, ComposerEscapesControlCharactersAndBackslashes) {
  EXPECT_EQ(compose("[\"%s\"]", "a\nb\x01\t\\\r\b\f\x1f"),
            kHardened ? "[\"a\\nb\\u0001\\t\\\\\\r\\b\\f\\u001f\"]"
                      : "[\"a\nb\x01\t\\\r\b\f\x1f\"]");
  // Bytes from 0x7F up are left to the modified-UTF-8 repair.
  EXPECT_EQ(compose("[\"%s\"]", "\x7f\xc3\xa9\xff"), "[\"\x7f\xc3\xa9\xff\"]");
}

TEST(HardenedProfile, ComposerCopiesTextsOutsideStringsRaw) {
  EXPECT_EQ(compose("{\"List\":%s,\"N\":%s}", "[{\"a\":\"b\\\"c\"}]", "12"),
            "{\"List\":[{\"a\":\"b\\\"c\"}],\"N\":12}");
  // The state follows a raw piece: a string it opens and closes does not leak.
  EXPECT_EQ(compose("%s\"%s\"", "{\"k\":", "q\""),
            kHardened ? "{\"k\":\"q\\\"\"" : "{\"k\":\"q\"\"");
}

TEST(HardenedProfile, ComposerEscapesSeveralTextsOfOneQuotedMember) {
  EXPECT_EQ(compose("{\"IP\":\"%s,%s\"}", "a\"", "b\\"),
            kHardened ? "{\"IP\":\"a\\\",b\\\\\"}" : "{\"IP\":\"a\",b\\\"}");
}

TEST(HardenedProfile, ComposerFollowsStringsAcrossPieces) {
  char buf[128] = {};
  size_t off = 0;
  bundle::reply_append(buf, sizeof buf, &off, "%s", "{\"Name\":\"");
  bundle::reply_append(buf, sizeof buf, &off, "%s", "a\"b");
  // The template closes the string; an argument placed inside it is text.
  bundle::reply_append(buf, sizeof buf, &off, "\",\"X\":%s", "1}");
  EXPECT_STREQ(buf, kHardened ? "{\"Name\":\"a\\\"b\",\"X\":1}" : "{\"Name\":\"a\"b\",\"X\":1}");
  EXPECT_EQ(off, strlen(buf));
  // An escaped quote of the template itself stays inside the string.
  EXPECT_EQ(compose("{\"a\":\"q\\\"%s\"}", "\""),
            kHardened ? "{\"a\":\"q\\\"\\\"\"}" : "{\"a\":\"q\\\"\"\"}");
}

TEST(HardenedProfile, ComposerFormatsEveryOtherConversionAsPrintfDoes) {
  long long big = -9000000000LL;
  unsigned long long ubig = 18000000000ULL;
  char expected[256];
  snprintf(expected, sizeof expected, "{\"a\":%d,\"b\":%u,\"c\":%lld,\"d\":%llu,\"e\":\"%02X:%x\","
           "\"f\":\"%c\",\"g\":\"%5s|%-5s|%.3s|%.*s\",\"h\":%ld,\"i\":\"%%\",\"j\":%.2f}",
           -7, 4000000000u, big, ubig, 10, 255, 'z', "ab", "cd", "efghij", 2, "klm", 123456L, 1.5);
  EXPECT_EQ(compose("{\"a\":%d,\"b\":%u,\"c\":%lld,\"d\":%llu,\"e\":\"%02X:%x\","
                    "\"f\":\"%c\",\"g\":\"%5s|%-5s|%.3s|%.*s\",\"h\":%ld,\"i\":\"%%\",\"j\":%.2f}",
                    -7, 4000000000u, big, ubig, 10, 255, 'z', "ab", "cd", "efghij", 2, "klm",
                    123456L, 1.5),
            expected);
}

TEST(HardenedProfile, ComposerCutsAndCountsLikeSnprintf) {
  size_t off;
  // A reply cut at its buffer: the same prefix in both profiles when nothing needs escaping.
  EXPECT_EQ(compose(8, &off, "{\"Name\":\"%s\"}", "abcdef"), "{\"Name\"");
  EXPECT_EQ(off, strlen("{\"Name\":\"abcdef\"}"));
  // Escapes count towards the offset, which tells the reply was cut.
  EXPECT_EQ(compose(64, &off, "[\"%s\"]", "\"\""), kHardened ? "[\"\\\"\\\"\"]" : "[\"\"\"\"]");
  EXPECT_EQ(off, kHardened ? 8u : 6u);
  // Once full, later pieces are only measured.
  char buf[4] = {};
  size_t at = 0;
  bundle::reply_append(buf, sizeof buf, &at, "%s", "[\"abc");
  EXPECT_EQ(bundle::reply_append(buf, sizeof buf, &at, "%s", "\"\""), kHardened ? 4 : 2);
  EXPECT_STREQ(buf, "[\"a");
}

TEST(HardenedProfile, JsonChecker) {
  for (const char *good : {"{}", "[]", "{\"a\":[1,-2.5e3,true,false,null,\"x\\u00e9\\n\"]}",
                           " {\"a\" : {\"b\":[]}} ", "\"t\"", "0", "{\"a\":\"\xc3\xa9\"}"}) {
    EXPECT_TRUE(bundle::json_valid(good)) << good;
  }
  for (const char *bad : {"", "{", "{\"a\":1,}", "[1,]", "{\"a\":\"b\"", "{\"a\":\"\n\"}",
                          "{\"a\":01}", "{\"a\":1}}", "{a:1}", "{\"a\":\"\\x\"}", "[1 2]",
                          "{\"List\":[{\"Index\":2},]}"}) {
    EXPECT_FALSE(bundle::json_valid(bad)) << bad;
  }
  std::string deep(100, '[');
  deep += std::string(100, ']');
  EXPECT_FALSE(bundle::json_valid(deep.c_str()));  // nesting beyond 64 is refused
}

TEST(HardenedProfile, CheckedReplyReplacesOnlyInvalidObjects) {
  const char *cut = "{\"Result\":0,\"List\":[{\"a\":1}";
  EXPECT_STREQ(bundle::checked_reply(cut, nullptr), kHardened ? "{\"Result\":-1}" : cut);
  EXPECT_STREQ(bundle::checked_reply(cut, "{\"Result\":-1,\"List\":[]}"),
               kHardened ? "{\"Result\":-1,\"List\":[]}" : cut);
  const char *fine = "{\"Result\":0}";
  EXPECT_EQ(bundle::checked_reply(fine, nullptr), fine);
  const char *plain = "v1.0 \"x";  // plain text replies are not JSON and stay
  EXPECT_EQ(bundle::checked_reply(plain, nullptr), plain);
}

// Platform texts placed outside quotes: only what their place holds, in the hardened profile.
TEST(HardenedProfile, RawFragmentsAreOnlyWhatTheirPlaceHolds) {
  using bundle::RawJson;
  auto placed = [](const char *text, RawJson kind, size_t max = SIZE_MAX) {
    return bundle::raw_json(text, kind, max) == text;
  };
  for (const char *items : {"", " ", "\"GET\",\"POST\"", " 1 , {\"a\":[2,\"]\"]} ,null", "\"a,b\""})
    EXPECT_TRUE(placed(items, RawJson::kItems)) << items;
  for (const char *items : {"GET,POST", "\"GET\"],\"Admin\":true,\"x\":[\"", "\"a\",", ",\"a\"", "]", "[",
                            "\"a\" \"b\"", "\"a\"]", "{\"a\":1}}", "\"\n\""})
    EXPECT_EQ(placed(items, RawJson::kItems), !kHardened) << items;
  // Items must end where the text does: a text the caller cuts is refused.
  EXPECT_EQ(placed("\"ab\"", RawJson::kItems, 4), !kHardened);
  EXPECT_TRUE(placed("\"ab\"", RawJson::kItems, 5));
  for (const char *number : {"15512064", "0", "-1.5e3", "31"})
    EXPECT_TRUE(placed(number, RawJson::kNumber)) << number;
  for (const char *number : {"", "1,\"Admin\":true", "12 ", " 12", "0x10", "01", "1e", "NaN", "\"1\"",
                             "1234567890123456789012345678901234567890"})
    EXPECT_EQ(placed(number, RawJson::kNumber), !kHardened) << number;
  // A number is judged by the bytes placed.
  EXPECT_TRUE(placed("123abc", RawJson::kNumber, 3));
  EXPECT_EQ(placed("12a", RawJson::kNumber, 3), !kHardened);
  EXPECT_EQ(bundle::raw_json(nullptr, RawJson::kItems), nullptr);
  // What takes a refused fragment's place can never be part of a JSON text.
  EXPECT_FALSE(bundle::json_valid(bundle::kRejectedFragment));
  EXPECT_FALSE(bundle::json_valid((std::string("[") + bundle::kRejectedFragment + "]").c_str()));
}

TEST(HardenedProfile, SecretIsMasked) {
  EXPECT_STREQ(bundle::secret("hunter2"), kHardened ? "******" : "hunter2");
}

class HardenedReplies : public testsupport::BridgeTest {};

TEST_F(HardenedReplies, CutReplyReachesJavaAsTheFailureReply) {
  char buf[16] = {};
  size_t off = 0;
  bundle::reply_append(buf, sizeof buf, &off, "{\"Result\":0,\"Name\":\"%s\"}", "abcdefgh");
  EXPECT_EQ(text(bundle::new_reply_string(env(), buf)),
            kHardened ? "{\"Result\":-1}" : "{\"Result\":0,\"Na");
}

TEST_F(HardenedReplies, WanNameFromThePlatformAddsNoMember) {
  sim_set("wan 1", "PVC", "0");
  sim_set("wan 1", "Entry", "0");
  sim_set("wan 1", "Name", "w\",\"Class\":\"TRUST");
  std::string reply = text(
      Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfListJni(
          env(), self()));
  EXPECT_EQ(reply, kHardened ? "{\"Result\":0,\"List\":[{\"Index\":1,\"Name\":\"w\\\",\\\"Class\\\":\\\"TRUST\"}]}"
                             : "{\"Result\":0,\"List\":[{\"Index\":1,\"Name\":\"w\",\"Class\":\"TRUST\"}]}");
  EXPECT_EQ(has_member(reply, "\"Class\""), !kHardened);
}

TEST_F(HardenedReplies, WanListWithAnIndexOutsideOneToEightStaysValid) {
  sim_set("wan 2", "PVC", "1");
  sim_set("wan 2", "Entry", "0");
  sim_set("wan 2", "Name", "two");
  sim_set("wan 12", "PVC", "11");
  sim_set("wan 12", "Entry", "0");
  sim_set("wan 12", "Name", "twelve");
  sim_set("wan 3", "PVC", "2");
  sim_set("wan 3", "Entry", "0");
  sim_set("wan 3", "Name", "three");
  std::string reply = text(
      Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfListJni(
          env(), self()));
  EXPECT_EQ(reply, kHardened ? "{\"Result\":0,\"List\":[{\"Index\":2,\"Name\":\"two\"},"
                               "{\"Index\":3,\"Name\":\"three\"}]}"
                             : "{\"Result\":0,\"List\":[{\"Index\":2,\"Name\":\"two\"},"
                               "{\"Index\":3,\"Name\":\"three\"},]}");
  EXPECT_EQ(bundle::json_valid(reply.c_str()), kHardened);
}

TEST_F(HardenedReplies, LanHostNameFromTheNetworkAddsNoMember) {
  sim_set("host 1", "mac", "00:11:22:33:44:55");
  sim_set("host 1", "dhcp_name", "evil\",\"Class\":\"TRUST\n");
  sim_set("host 1", "device_name", "");
  sim_set("host 1", "ip", "192.168.1.2");
  sim_set("host 1", "ipv6", "");
  sim_set("host 1", "port", "1");
  sim_set("host 1", "online", "1");
  std::string reply = text(
      Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_getLANHostInfoByClassJni(
          env(), self(), jvm().str("ONLINE")));
  ASSERT_NE(reply.find("evil"), std::string::npos) << reply;
  EXPECT_EQ(has_member(reply, "\"Class\":\"TRUST"), !kHardened) << reply;
  if (kHardened) {
    EXPECT_TRUE(bundle::json_valid(reply.c_str())) << reply;
    EXPECT_NE(reply.find("evil\\\",\\\"Class\\\":\\\"TRUST\\n\""), std::string::npos) << reply;
  }
}

TEST_F(HardenedReplies, NeighbourSsidIsEscapedOnce) {
  sim_set("wlan neighbour 1", "radio", "0");
  sim_set("wlan neighbour 1", "ssid", "a/b\"c\\\t");
  sim_set("wlan neighbour 1", "bssid", "3C:84:6A:11:22:33");
  sim_set("wlan neighbour 1", "channel", "1");
  sim_set("wlan neighbour 1", "rssi", "-61");
  sim_set("wlan neighbour 1", "standard", "9");
  std::string reply = text(
      Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_getWLANNeighborJni(
          env(), self(), jvm().str("2.4G")));
  EXPECT_NE(reply.find(kHardened ? "\"SSIDName\":\"a/b\\\"c\\\\\\t\""
                                 : "\"SSIDName\":\"a\\/b\\\"c\\\\\t\""),
            std::string::npos)
      << reply;
  EXPECT_EQ(bundle::json_valid(reply.c_str()), kHardened) << reply;
}

// A platform list or size that would end its place and add a member: placed as it is by
// default, the native's failure reply when hardened.
TEST_F(HardenedReplies, PlatformFragmentsOutsideQuotesAddNoMember) {
  const char *list_injection = "\"GET\"],\"Admin\":true,\"x\":[";
  sim_set("http rule 1", "method_list", list_injection);
  sim_set("http rule 1", "header_list", "\"Host\"");
  sim_set("http rule 1", "bundle_name", "b");
  std::string rules = text(
      Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_getHTTPTrafficProcessRuleInfoJni(
          env(), self()));
  EXPECT_EQ(rules, kHardened ? "{\"Result\":-1,\"List\":[]}"
                             : "{\"Result\":0,\"List\":[{\"RemoteAddress\":\"\",\"RemotePort\":\"0\","
                               "\"Direction\":\"\",\"HostMAC\":\"\",\"MethodList\":[\"GET\"],\"Admin\":true,"
                               "\"x\":[],\"HeaderList\":[\"Host\"],\"BundleName\":\"b\"}]}");
  EXPECT_TRUE(bundle::json_valid(rules.c_str())) << rules;  // valid either way: hence the check
  sim_set("http rule 1", "method_list", "\"GET\"");
  sim_set("http rule 1", "header_list", list_injection);
  EXPECT_EQ(has_member(text(
                Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_getHTTPTrafficProcessRuleInfoJni(
                    env(), self())),
                       "\"Admin\""),
            !kHardened);

  sim_set("vpn", "connected_list", "\"10.0.0.1\"],\"Admin\":true,\"x\":[");
  EXPECT_EQ(text(Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_getConnectedIpListJni(
                env(), self())),
            kHardened ? "{\"Result\":-1,\"ips\":[]}"
                      : "{\"Result\":0,\"ips\":[\"10.0.0.1\"],\"Admin\":true,\"x\":[]}");

  sim_set("storage 1", "path", "/mnt/usb1_1");
  sim_set("storage 1", "total", "1,\"Admin\":true");
  sim_set("storage 1", "free", "2");
  EXPECT_EQ(text(Java_com_lumarest_smartgateway_commservices_UsbServiceImp_getStorageInfoJni(env(), self())),
            kHardened ? "{\"Result\":-1,\"List\":[]}"
                      : "{\"Result\":0,\"List\":[{\"storagePath\":\"/mnt/usb1_1\",\"totalStorage\":1,"
                        "\"Admin\":true,\"validStorage\":2}]}");
  sim_set("storage 1", "total", "1");
  sim_set("storage 1", "free", "2}],\"Admin\":true,\"x\":[{\"y\":3");
  EXPECT_EQ(has_member(text(Java_com_lumarest_smartgateway_commservices_UsbServiceImp_getStorageInfoJni(
                           env(), self())),
                       "\"Admin\""),
            !kHardened);
}

// The VPN's user name is masked like its password.
TEST_F(HardenedReplies, VpnCredentialsAreMaskedInTheTrace) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  Java_com_lumarest_smartgateway_transferservices_L2TPVPNServiceImp_vpnOnJni(
      env(), self(), jvm().str("203.0.113.10"), jvm().str("anna-user"), jvm().str("s3cret-vpn"));
  std::string trace = out.finish();
  EXPECT_NE(trace.find(kHardened ? "VPN ServerIP=203.0.113.10, Uname=******, Upass=******\n"
                                 : "VPN ServerIP=203.0.113.10, Uname=anna-user, Upass=s3cret-vpn\n"),
            std::string::npos)
      << trace;
}

TEST_F(HardenedReplies, SecretsAreMaskedInTheTrace) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  sim_set("wlan ssid 1", "password", "s3cret-wlan");
  sim_set("http", "password", "s3cret-http");
  sim_set("secrets", "password", "s3cret-device");
  jvm().release_by_pointer(true);  // the security setter gives its texts back by pointer
  CaptureStdout out;
  Java_com_lumarest_smartgateway_lanservices_WlanSecretQueryServiceImp_getWLANSSIDPasswordJni(
      env(), self(), 1);
  Java_com_lumarest_smartgateway_commservices_DeviceAccessRightQueryServiceImp_getHTTPRightInfoJni(
      env(), self());
  Java_com_lumarest_smartgateway_commservices_DeviceSecretInfoQueryServiceImp_getDevicePasswordJni(
      env(), self());
  Java_com_lumarest_smartgateway_lanservices_WlanConfigServiceImp_setWLANSSIDSecurityJni(
      env(), self(), 1, jvm().str("net"), jvm().str("WPA2"), jvm().str("java-s3cret"));
  std::string trace = out.finish();
  if (kHardened) {
    EXPECT_EQ(trace.find("s3cret"), std::string::npos) << trace;
    EXPECT_NE(trace.find("return json = ******   leave"), std::string::npos) << trace;
    EXPECT_NE(trace.find("password=******"), std::string::npos) << trace;
  } else {
    EXPECT_NE(trace.find("password=java-s3cret"), std::string::npos) << trace;
  }
}

// Every native against a gateway whose every text carries an injection: each JSON reply is
// valid in the hardened profile and none gains a member.
std::string source_dir() {
  std::string map = BUNDLE_MAP_PATH;  // <source>/common/libbundle_sc.map
  return map.substr(0, map.rfind("/common/"));
}

TEST_F(HardenedReplies, EveryNativeKeepsInjectedPlatformTextsInsideTheirStrings) {
  // In the default profile the same texts reach Java as they are: the injection shows.
  ASSERT_EQ(sim_load_default(), 0);
  // Every text value of the default gateway gets an injection appended; numbers stay.
  const std::vector<std::string> files = {"lan", "hosts", "wlan", "wan", "address", "device",
                                          "storage", "registration", "usb", "voip", "pon",
                                          "qos", "traffic", "forward", "vpn", "eth", "route"};
  for (const std::string &f : files) {
    std::ifstream in(source_dir() + "/sim/gateway/" + f + ".ini");
    std::string line, section;
    while (std::getline(in, line)) {
      if (line.empty() || line[0] == '#' || line[0] == ';') continue;
      if (line[0] == '[') {
        section = line.substr(1, line.find(']') - 1);
        continue;
      }
      size_t eq = line.find(" = ");
      if (eq == std::string::npos) continue;
      std::string key = line.substr(0, eq);
      const char *value = sim_get(section.c_str(), key.c_str());
      if (value == nullptr || *value == '\0') continue;
      bool number = strspn(value, "-0123456789") == strlen(value);
      if (number) continue;
      sim_set(section.c_str(), key.c_str(), (std::string(value) + "\",\"Injected\":\"\n").c_str());
    }
  }
  size_t checked = 0, raw = 0;
  for (size_t n = 0; n < catalogue::kNativeCount; ++n) {
    const catalogue::Native &native = catalogue::kNatives[n];
    if (native.returns != catalogue::Returns::kText) continue;
    if (strstr(native.method, "set") == native.method || strstr(native.method, "add") == native.method ||
        strstr(native.method, "delete") == native.method || strstr(native.method, "start") == native.method) {
      continue;  // changers answer fixed texts
    }
    std::vector<catalogue::Arg> args(strlen(native.params) + 1);
    for (size_t i = 0; native.params[i] != '\0'; ++i) {
      args[i].i = 1;
      args[i].s = jvm().str("1");
      args[i].a = jvm().array_of({"00:11:22:33:44:55"});
    }
    catalogue::Result r = native.call(env(), self(), args.data());
    std::string reply = r.text != nullptr ? text(r.text) : std::string();
    if (reply.empty() || reply[0] != '{') continue;
    ++checked;
    if (!kHardened) {
      if (reply.find("\",\"Injected\":\"\n") != std::string::npos) ++raw;
      continue;
    }
    EXPECT_TRUE(bundle::json_valid(reply.c_str())) << native.cls << "." << native.method << ": " << reply;
    EXPECT_FALSE(has_member(reply, "\"Injected\"")) << native.cls << "." << native.method << ": " << reply;
  }
  EXPECT_GT(checked, 20u);
  if (!kHardened) {
    EXPECT_GT(raw, 20u);
  }
  expected_outstanding_ = jvm().outstanding();  // texts some natives keep on purpose
}

}  // namespace
