// com.lumarest.smartgateway.lanservices.LANHostsInfoQueryServiceImp
#include <stdlib.h>
#include <string.h>

#include <algorithm>
#include <random>
#include <set>
#include <string>
#include <vector>

#include "common/platform_lan.h"
#include "common/hardened.h"
#include "tests/test_support.h"

#define NATIVE(m) Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_##m
extern "C" {
jstring NATIVE(getGatewayNameJni)(JNIEnv *, jobject);
jstring NATIVE(getLANHostInfoByMACJni)(JNIEnv *, jobject, jobjectArray);
jstring NATIVE(getLANHostInfoByInterfaceJni)(JNIEnv *, jobject, jstring);
jint NATIVE(getMacFilterModeJni)(JNIEnv *, jobject);
jstring NATIVE(getLANHostInfoByClassJni)(JNIEnv *, jobject, jstring);
jstring NATIVE(getLANHostStatsJni)(JNIEnv *, jobject, jobjectArray);
jstring NATIVE(getLANHostSpeedLimitInfoJni)(JNIEnv *, jobject, jobjectArray);
extern const char *HostClassStr[4];
}

namespace lan_hosts_info_query_service_test {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const char kFail[] = "{\"Result\":-1,\"List\":[]}";
const char kEmpty[] = "{\"Result\":0,\"List\":[]}";
const std::string kPrefix = "Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_";

struct Host {
  std::string mac = "00:11:22:33:44:55";
  std::string dhcp = "pc";
  std::string name = "";
  std::string ip = "192.168.1.2";
  std::string ipv6 = "";
  int port = 1;
  bool online = true;
  unsigned online_time = 60;
  int class_code = -1;  // -1: derived from the lists
};

class LANHostsInfoQueryService : public testsupport::BridgeTest {
 protected:
  int hosts_ = 0;
  void add(const Host &h) {
    std::string s = "host " + std::to_string(++hosts_);
    sim_set(s.c_str(), "mac", h.mac.c_str());
    sim_set(s.c_str(), "dhcp_name", h.dhcp.c_str());
    sim_set(s.c_str(), "device_name", h.name.c_str());
    sim_set(s.c_str(), "ip", h.ip.c_str());
    sim_set(s.c_str(), "ipv6", h.ipv6.c_str());
    sim_set(s.c_str(), "port", std::to_string(h.port).c_str());
    sim_set(s.c_str(), "online", h.online ? "1" : "0");
    sim_set(s.c_str(), "online_time", std::to_string(h.online_time).c_str());
    if (h.class_code >= 0) sim_set(s.c_str(), "class_code", std::to_string(h.class_code).c_str());
  }
  std::string by_class(const char *c) { return text(NATIVE(getLANHostInfoByClassJni)(env(), self(), jvm().str(c))); }
  std::string by_iface(const char *c) {
    return text(NATIVE(getLANHostInfoByInterfaceJni)(env(), self(), jvm().str(c)));
  }
  std::string by_mac(const std::vector<std::string> &macs) {
    return text(NATIVE(getLANHostInfoByMACJni)(env(), self(), jvm().array_of(macs)));
  }
};

std::string obj(const char *cls, const Host &h, const char *iface, const char *storage = "ON") {
  std::string ip = h.ipv6.empty() ? h.ip : h.ip + "," + h.ipv6;
  return std::string("{\"Class\":\"") + cls + "\",\"MAC\":\"" + h.mac + "\",\"DhcpName\":\"" + h.dhcp +
         "\",\"DeviceName\":\"" + h.name + "\",\"IP\":\"" + ip + "\",\"ConnectInterface\":\"" + iface +
         "\",\"OnlineTime\":\"" + std::to_string(h.online_time) + "\",\"StorageAccessStatus\":\"" +
         storage + "\"}";
}

Host host(const char *mac, const char *dhcp, int port = 1) {
  Host h;
  h.mac = mac;
  h.dhcp = dhcp;
  h.port = port;
  return h;
}

// ---- gateway name and filter mode

TEST_F(LANHostsInfoQueryService, GatewayNameIsPlainText) {
  sim_set("lan", "gateway_name", "Lumarest-HGU");
  EXPECT_EQ(text(NATIVE(getGatewayNameJni)(env(), self())), "Lumarest-HGU");
  EXPECT_EQ(log(), "brelo_sysGetGatewayName(1024)\n");
}

TEST_F(LANHostsInfoQueryService, GatewayNameIgnoresThePlatformResultAndStaysInItsBuffer) {
  sim_set("lan", "gateway_name", std::string(2000, 'g').c_str());
  sim_program_result("brelo_sysGetGatewayName", -1);
  EXPECT_EQ(text(NATIVE(getGatewayNameJni)(env(), self())), std::string(1023, 'g'));
}

TEST_F(LANHostsInfoQueryService, GatewayNameTracesTheReply) {
  sim_set("lan", "gateway_name", "gw");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(getGatewayNameJni)(env(), self());
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kPrefix + "getGatewayNameJni:N:getGatewayNameJni: return json = gw   leave============>\n");
}

TEST_F(LANHostsInfoQueryService, FilterModeIsTheModeOrTheFailure) {
  sim_set("lan", "filter_mode", "2");
  EXPECT_EQ(NATIVE(getMacFilterModeJni)(env(), self()), 2);
  sim_program_result("brelo_lanGetFilterMode", -7);
  EXPECT_EQ(NATIVE(getMacFilterModeJni)(env(), self()), -7);
  EXPECT_EQ(log(), "brelo_lanGetFilterMode()\nbrelo_lanGetFilterMode()\n");
}

TEST_F(LANHostsInfoQueryService, FilterModeStartsAtZero) {
  EXPECT_EQ(NATIVE(getMacFilterModeJni)(env(), self()), 0);
}

// ---- the host object

TEST_F(LANHostsInfoQueryService, ByMacListsTheHostsWithAndWithoutIPv6) {
  Host a = host("00:E0:4C:68:01:A2", "desktop", 1);
  a.ipv6 = "2001:db8::2";
  a.name = "Study PC";
  Host b = host("9C:B6:D0:0A:44:E3", "android", 6);
  b.online_time = 4294967295u;
  add(a);
  add(b);
  EXPECT_EQ(by_mac({"00:e0:4c:68:01:a2", "9C:B6:D0:0A:44:E3"}),
            std::string("{\"Result\":0,\"List\":[") + obj("ONLINE", a, "LAN1") + "," +
                obj("ONLINE", b, "SSID2") + "]}");
  EXPECT_EQ(log(),
            "brelo_lanGethostInfoByMACArr([\"00:e0:4c:68:01:a2\", \"9C:B6:D0:0A:44:E3\"], 2)\n");
  EXPECT_EQ(jvm().outstanding(), 0);
}

TEST_F(LANHostsInfoQueryService, MacOctetsPrintInUpperCaseWithTwoDigits) {
  add(host("0a:1b:00:0c:d0:ff", "x"));
  std::string reply = by_mac({"0a:1b:00:0c:d0:ff"});
  EXPECT_NE(reply.find("\"MAC\":\"0A:1B:00:0C:D0:FF\""), std::string::npos) << reply;
}

TEST_F(LANHostsInfoQueryService, AttachmentPointsNameTheirInterface) {
  const int points[] = {0, 1, 4, 5, 12, 13, -1, 2147483647, -2147483647 - 1};
  const char *names[] = {"UNKNOWN", "LAN1", "LAN4", "SSID1", "SSID8", "UNKNOWN", "UNKNOWN", "UNKNOWN", "UNKNOWN"};
  for (size_t i = 0; i < sizeof points / sizeof points[0]; ++i) {
    char mac[18];
    snprintf(mac, sizeof mac, "00:00:00:00:00:%02X", static_cast<unsigned>(i));
    Host h = host(mac, "h", points[i]);
    add(h);
    EXPECT_EQ(by_mac({mac}), std::string("{\"Result\":0,\"List\":[") + obj("ONLINE", h, names[i]) + "]}")
        << points[i];
  }
}

TEST_F(LANHostsInfoQueryService, ClassCodesOutOfRangePrintAsUnknown) {
  Host h = host("00:00:00:00:00:01", "h");
  h.class_code = 4;
  add(h);
  Host g = host("00:00:00:00:00:02", "g");
  g.class_code = 0x7FFFFFFF;
  add(g);
  Host t = host("00:00:00:00:00:03", "t");
  t.class_code = 3;
  add(t);
  EXPECT_EQ(by_mac({h.mac, g.mac, t.mac}), std::string("{\"Result\":0,\"List\":[") + obj("UNKNOWN", h, "LAN1") +
                                              "," + obj("UNKNOWN", g, "LAN1") + "," + obj("TRUST", t, "LAN1") + "]}");
}

TEST_F(LANHostsInfoQueryService, StorageAccessFollowsTheStorageBlackList) {
  add(host("00:00:00:00:00:01", "h"));
  sim_set("lan", "storage_black_list", "00:00:00:00:00:01");
  std::string reply = by_mac({"00:00:00:00:00:01"});
  EXPECT_NE(reply.find("\"StorageAccessStatus\":\"OFF\"}"), std::string::npos) << reply;
}

TEST_F(LANHostsInfoQueryService, NamesThatAreNotUtf8ReachJavaRepaired) {
  Host h = host("00:00:00:00:00:01", "ok");
  add(h);
  sim_set("host 1", "device_name", "Caf\xE9 \xFF\xFE");
  std::string reply = by_mac({"00:00:00:00:00:01"});
  EXPECT_NE(reply.find("\"DeviceName\":\"Caf\xEF\xBF\xBD \xEF\xBF\xBD\xEF\xBF\xBD\""), std::string::npos) << reply;
  EXPECT_TRUE(jvm().errors().empty());
}

TEST_F(LANHostsInfoQueryService, FieldsFilledToTheBrimAreCutAtTheirLastByte) {
  Host h = host("00:00:00:00:00:01", std::string(300, 'd').c_str());
  h.name = std::string(256, 'n');
  h.ip = std::string(18, '1');
  h.ipv6 = std::string(256, '6');
  add(h);
  std::string reply = by_mac({"00:00:00:00:00:01"});
  EXPECT_NE(reply.find("\"DhcpName\":\"" + std::string(255, 'd') + "\",\"DeviceName\":\"" +
                       std::string(255, 'n') + "\",\"IP\":\"" + std::string(17, '1') + "," +
                       std::string(255, '6') + "\","),
            std::string::npos)
      << reply;
}

// ---- by MAC

TEST_F(LANHostsInfoQueryService, ByMacFailureIsTheEmptyFailureList) {
  add(host("00:00:00:00:00:01", "h"));
  sim_program_result("brelo_lanGethostInfoByMACArr", -1);
  EXPECT_EQ(by_mac({"00:00:00:00:00:01"}), kFail);
}

TEST_F(LANHostsInfoQueryService, ByMacOfAnEmptyArrayAsksWithACountOfZero) {
  add(host("00:00:00:00:00:01", "h"));
  EXPECT_EQ(by_mac({}), kEmpty);
  EXPECT_EQ(log(), "brelo_lanGethostInfoByMACArr([], 0)\n");
}

TEST_F(LANHostsInfoQueryService, ByMacOfBadTextsIsSafe) {
  add(host("00:00:00:00:00:01", "h"));
  EXPECT_EQ(by_mac({std::string(500, 'A')}), kEmpty);
  EXPECT_EQ(by_mac({"not a mac"}), kEmpty);
  EXPECT_EQ(by_mac({"", ""}), kEmpty);
  EXPECT_EQ(log(), "brelo_lanGethostInfoByMACArr([\"" + std::string(127, 'A') +
                       "\"], 1)\nbrelo_lanGethostInfoByMACArr([\"not a mac\"], 1)\n"
                       "brelo_lanGethostInfoByMACArr([], 0)\n");
}

TEST_F(LANHostsInfoQueryService, ByMacOf300TextsAsksFor256) {
  Host h = host("00:00:00:00:00:01", "h");
  h.name = std::string(200, 'n');
  add(h);
  std::vector<std::string> macs(300, "00:00:00:00:00:01");
  std::string reply = by_mac(macs);
  EXPECT_EQ(sim_log_count("brelo_lanGethostInfoByMACArr"), 1);
  EXPECT_NE(log().find(", ...], 256)\n"), std::string::npos) << log();
  if (bundle::hardened_profile()) {  // a cut reply: the failure reply instead
    EXPECT_EQ(reply, kFail);
    return;
  }
  // 256 copies of the host, each about 370 bytes: the reply is cut at 64 KiB - 1.
  EXPECT_EQ(reply.size(), 0xFFFFu);
  EXPECT_EQ(reply.rfind("{\"Result\":0,\"List\":[" + obj("ONLINE", h, "LAN1") + ",", 0), 0u);
  EXPECT_EQ(jvm().outstanding(), 0);
}

TEST_F(LANHostsInfoQueryService, ByMacOfAFailedElementAsksNothingAndAnswersNull) {
  jobjectArray a = jvm().array({jvm().str("00:00:00:00:00:01"), jvm().failing_str()});
  add(host("00:00:00:00:00:01", "h"));
  EXPECT_EQ(text(NATIVE(getLANHostInfoByMACJni)(env(), self(), a)), "<null>");
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().new_strings(), 0);
  EXPECT_EQ(jvm().pending_exception(), "java/lang/OutOfMemoryError");
}

TEST_F(LANHostsInfoQueryService, ByMacOfANullArrayIsAnEmptyQuery) {
  EXPECT_EQ(text(NATIVE(getLANHostInfoByMACJni)(env(), self(), nullptr)), kEmpty);
}

TEST_F(LANHostsInfoQueryService, ByMacTracesTheReply) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  by_mac({});
  std::string trace = mask_line_numbers(out.finish());
  EXPECT_NE(trace.find(kPrefix + "getLANHostInfoByMACJni:N:getLANHostInfoByMACJni: return json = " +
                       kEmpty + "   leave============>\n"),
            std::string::npos)
      << trace;
}

// ---- by interface

TEST_F(LANHostsInfoQueryService, InterfaceNamesSelectTheirAttachmentPoint) {
  Host a = host("00:00:00:00:00:01", "a", 1);
  Host b = host("00:00:00:00:00:02", "b", 7);
  add(a);
  add(b);
  EXPECT_EQ(by_iface("LAN1"), std::string("{\"Result\":0,\"List\":[") + obj("ONLINE", a, "LAN1") + "]}");
  EXPECT_EQ(by_iface("SSID3"), std::string("{\"Result\":0,\"List\":[") + obj("ONLINE", b, "SSID3") + "]}");
  EXPECT_EQ(by_iface("LAN7"), std::string("{\"Result\":0,\"List\":[") + obj("ONLINE", b, "SSID3") + "]}");
  EXPECT_EQ(by_iface("LAN4"), kEmpty);
  EXPECT_EQ(by_iface("SSID1"), kEmpty);
  EXPECT_EQ(by_iface("SSID8"), kEmpty);
  EXPECT_EQ(by_iface("LAN12"), kEmpty);
  EXPECT_EQ(by_iface("LAN 2x"), kEmpty);  // as sscanf reads it: blanks, then the number
  EXPECT_EQ(log(),
            "brelo_lanGethostInfobytype(\"1\", 5)\nbrelo_lanGethostInfobytype(\"7\", 5)\n"
            "brelo_lanGethostInfobytype(\"7\", 5)\nbrelo_lanGethostInfobytype(\"4\", 5)\n"
            "brelo_lanGethostInfobytype(\"5\", 5)\nbrelo_lanGethostInfobytype(\"12\", 5)\n"
            "brelo_lanGethostInfobytype(\"12\", 5)\nbrelo_lanGethostInfobytype(\"2\", 5)\n");
  EXPECT_EQ(jvm().acquired(), 8);
  EXPECT_EQ(jvm().released(), 8);
}

TEST_F(LANHostsInfoQueryService, InterfaceNamesOutsideTheRangesOrInTheWrongCaseFail) {
  const char *bad[] = {"ssid3", "lan1", "Lan1", "LAN0", "LAN13", "LAN-1", "SSID0", "SSID9",
                       "SSID-3", "LAN", "SSID", "", "WLAN1", "LAN99999999999999999999",
                       "SSID4294967297", "LAN4294967297", "LAN-4294967295", "SSID 9"};
  for (const char *name : bad) EXPECT_EQ(by_iface(name), kFail) << name;
  EXPECT_EQ(log(), "");
  EXPECT_EQ(text(NATIVE(getLANHostInfoByInterfaceJni)(env(), self(), nullptr)), kFail);
}

TEST_F(LANHostsInfoQueryService, InterfaceQueryFailureIsTheEmptyFailureList) {
  sim_program_result("brelo_lanGethostInfobytype", -2);
  EXPECT_EQ(by_iface("LAN2"), kFail);
  sim_program_result("brelo_lanGethostInfobytype", 1);
  EXPECT_EQ(by_iface("LAN2"), kFail);
}

TEST_F(LANHostsInfoQueryService, InterfaceTraceNamesTheFormerNative) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  by_iface("ssid3");
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kPrefix + "getLANHostInfoByInterfaceJni:N:lanservicesgetLANHostInfoBySSIDJni: return json = " +
                kFail + "   leave============>\n");
}

// ---- by class

TEST_F(LANHostsInfoQueryService, ClassNamesMatchInAnyCase) {
  Host a = host("00:00:00:00:00:01", "a");
  add(a);
  std::string expected = std::string("{\"Result\":0,\"List\":[") + obj("ONLINE", a, "LAN1") + "]}";
  EXPECT_EQ(by_class("online"), expected);
  EXPECT_EQ(by_class("OnLiNe"), expected);
  EXPECT_EQ(by_class("ONLINE"), expected);
  EXPECT_EQ(by_class("offline"), kEmpty);
  EXPECT_EQ(by_class("Trust"), kEmpty);
  EXPECT_EQ(log(),
            "brelo_lanGethostInfobytype(NULL, 0)\nbrelo_lanGethostInfobytype(NULL, 0)\n"
            "brelo_lanGethostInfobytype(NULL, 0)\nbrelo_lanGethostInfobytype(NULL, 1)\n"
            "brelo_lanGethostInfobytype(NULL, 3)\n");
}

TEST_F(LANHostsInfoQueryService, UnknownOrMissingClassNamesFailWithoutAsking) {
  for (const char *name : {"", "ONLINE ", "on", "BLOCKED", "ALL", "0"}) EXPECT_EQ(by_class(name), kFail) << name;
  EXPECT_EQ(text(NATIVE(getLANHostInfoByClassJni)(env(), self(), nullptr)), kFail);
  // A text that could not be copied: no reply string while the error is pending.
  EXPECT_EQ(text(NATIVE(getLANHostInfoByClassJni)(env(), self(), jvm().failing_str("ONLINE"))), "<null>");
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().null_releases(), 1);  // the failed copy is given back as NULL
}

TEST_F(LANHostsInfoQueryService, ClassQueryOnlyFailsOnMinusTwo) {
  Host a = host("00:00:00:00:00:01", "a");
  add(a);
  sim_program_result("brelo_lanGethostInfobytype", -2);
  EXPECT_EQ(by_class("ONLINE"), kFail);
  sim_program_result("brelo_lanGethostInfobytype", -1);
  EXPECT_EQ(by_class("ONLINE"), std::string("{\"Result\":0,\"List\":[") + obj("ONLINE", a, "LAN1") + "]}");
}

TEST_F(LANHostsInfoQueryService, ClassQueryOfNoHostsIsAnEmptyList) { EXPECT_EQ(by_class("OFFLINE"), kEmpty); }

TEST_F(LANHostsInfoQueryService, DuplicateLastRecordLeavesATrailingComma) {
  Host a = host("00:00:00:00:00:01", "a");
  add(a);
  add(host("00:00:00:00:00:01", "again"));
  // Invalid JSON: the hardened profile answers the failure reply.
  EXPECT_EQ(by_class("ONLINE"), bundle::hardened_profile() ? std::string(kFail)
                                 : std::string("{\"Result\":0,\"List\":[") + obj("ONLINE", a, "LAN1") + ",]}");
}

TEST_F(LANHostsInfoQueryService, AMacTextInsideAnEarlierNameSkipsTheHost) {
  Host a = host("00:00:00:00:00:01", "a");
  a.name = "twin of 00:00:00:00:00:02";
  Host b = host("00:00:00:00:00:02", "b");
  Host c = host("00:00:00:00:00:03", "c");
  c.ipv6 = "fe80::1";
  add(a);
  add(b);
  add(c);
  EXPECT_EQ(by_class("ONLINE"), std::string("{\"Result\":0,\"List\":[") + obj("ONLINE", a, "LAN1") + "," +
                                    obj("ONLINE", c, "LAN1") + "]}");
}

TEST_F(LANHostsInfoQueryService, MacTextsInOtherCaseOrSplitAcrossFieldsDoNotCount) {
  Host a = host("00:00:00:00:00:01", "aa:bb:cc:dd:ee:ff");  // lower case: not the same text
  a.name = "AA:BB:CC:DD:EE";                                 // cut short
  Host b = host("AA:BB:CC:DD:EE:FF", "b");
  add(a);
  add(b);
  EXPECT_EQ(by_class("ONLINE"), std::string("{\"Result\":0,\"List\":[") + obj("ONLINE", a, "LAN1") + "," +
                                    obj("ONLINE", b, "LAN1") + "]}");
}

void go_offline(const char *, void *ctx) { sim_set(static_cast<const char *>(ctx), "online", "0"); }

TEST_F(LANHostsInfoQueryService, BlockJoinsPresentAndOfflineBlockedHostsOnce) {
  Host a = host("00:00:00:00:00:01", "a");
  Host b = host("00:00:00:00:00:02", "b");
  b.online = false;
  add(a);
  add(b);
  sim_set("lan", "black_list", "00:00:00:00:00:01,00:00:00:00:00:02");
  EXPECT_EQ(by_class("block"), std::string("{\"Result\":0,\"List\":[") + obj("BLOCK", a, "LAN1") + "," +
                                   obj("BLOCK", b, "LAN1") + "]}");
  EXPECT_EQ(log(), "brelo_lanGethostInfobytype(NULL, 2)\nbrelo_lanGethostInfobyBlockOffline()\n");
}

TEST_F(LANHostsInfoQueryService, BlockSkipsOfflineHostsAlreadyListedLeavingTheirComma) {
  Host a = host("00:00:00:00:00:01", "a");
  add(a);
  sim_set("lan", "black_list", "00:00:00:00:00:01");
  // The host goes offline between the two platform calls, so both lists hold it.
  sim_program_hook("brelo_lanGethostInfobyBlockOffline", go_offline, const_cast<char *>("host 1"));
  EXPECT_EQ(by_class("BLOCK"), bundle::hardened_profile() ? std::string(kFail)
                                : std::string("{\"Result\":0,\"List\":[") + obj("BLOCK", a, "LAN1") + ",]}");
}

TEST_F(LANHostsInfoQueryService, BlockWithoutPresentHostsListsTheOfflineOnesAlone) {
  Host b = host("00:00:00:00:00:02", "b");
  b.online = false;
  add(b);
  sim_set("lan", "black_list", "00:00:00:00:00:02");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(by_class("BLOCK"), std::string("{\"Result\":0,\"List\":[") + obj("BLOCK", b, "LAN1") + "]}");
  std::string trace = mask_line_numbers(out.finish());
  EXPECT_EQ(log(), "brelo_lanGethostInfobytype(NULL, 2)\nbrelo_lanGethostInfobyBlockOffline()\n");
  EXPECT_NE(trace.find(kPrefix + "getLANHostInfoByClassJni:N:get BlockOffline ret 0\n"), std::string::npos)
      << trace;
}

TEST_F(LANHostsInfoQueryService, BlockWhoseFirstCallFailsFallsBackToTheOfflineList) {
  Host a = host("00:00:00:00:00:01", "a");
  Host b = host("00:00:00:00:00:02", "b");
  b.online = false;
  add(a);
  add(b);
  sim_set("lan", "black_list", "00:00:00:00:00:01,00:00:00:00:00:02");
  sim_program_result("brelo_lanGethostInfobytype", -1);
  EXPECT_EQ(by_class("BLOCK"), std::string("{\"Result\":0,\"List\":[") + obj("BLOCK", b, "LAN1") + "]}");
  EXPECT_EQ(sim_log_count("brelo_lanGethostInfobyBlockOffline"), 1);
}

TEST_F(LANHostsInfoQueryService, BlockWhoseOfflineFallbackFailsFails) {
  sim_program_result("brelo_lanGethostInfobyBlockOffline", -2);
  EXPECT_EQ(by_class("BLOCK"), kFail);
  sim_program_result("brelo_lanGethostInfobyBlockOffline", -1);
  EXPECT_EQ(by_class("BLOCK"), kFail);
}

TEST_F(LANHostsInfoQueryService, BlockSecondCallResultDecides) {
  Host a = host("00:00:00:00:00:01", "a");
  Host b = host("00:00:00:00:00:02", "b");
  b.online = false;
  add(a);
  add(b);
  sim_set("lan", "black_list", "00:00:00:00:00:01,00:00:00:00:00:02");
  std::string first_only = std::string("{\"Result\":0,\"List\":[") + obj("BLOCK", a, "LAN1") + "]}";
  sim_program_result("brelo_lanGethostInfobyBlockOffline", -1);
  EXPECT_EQ(by_class("BLOCK"), first_only);  // the walk stops, still Result 0
  sim_program_result("brelo_lanGethostInfobyBlockOffline", -2);
  EXPECT_EQ(by_class("BLOCK"), kFail);
  sim_program_result("brelo_lanGethostInfobyBlockOffline", 0);
  sim_set("host 2", "online", "1");  // no offline blocked host: no second comma
  EXPECT_EQ(by_class("BLOCK"), std::string("{\"Result\":0,\"List\":[") + obj("BLOCK", a, "LAN1") + "," +
                                   obj("BLOCK", b, "LAN1") + "]}");
}

TEST_F(LANHostsInfoQueryService, BlockOfNothingIsAnEmptyList) {
  EXPECT_EQ(by_class("BLOCK"), kEmpty);
  EXPECT_EQ(log(), "brelo_lanGethostInfobytype(NULL, 2)\nbrelo_lanGethostInfobyBlockOffline()\n");
}

TEST_F(LANHostsInfoQueryService, ClassQueryTracesTheReplyAndReleasesTheName) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  by_class("TRUST");
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kPrefix + "getLANHostInfoByClassJni:N:getLANHostInfoByClassJni: return json = " + kEmpty +
                "   leave============>\n");
  EXPECT_EQ(jvm().events_text().find("ReleaseStringUTFChars") != std::string::npos, true);
}

TEST_F(LANHostsInfoQueryService, HostClassTableIsExported) {
  EXPECT_STREQ(HostClassStr[0], "ONLINE");
  EXPECT_STREQ(HostClassStr[1], "OFFLINE");
  EXPECT_STREQ(HostClassStr[2], "BLOCK");
  EXPECT_STREQ(HostClassStr[3], "TRUST");
}

// ---- counters and limits

TEST_F(LANHostsInfoQueryService, StatsListTheCountersWithTheBlankBeforeTheComma) {
  add(host("00:00:00:00:00:01", "a"));
  add(host("00:00:00:00:00:02", "b"));
  sim_set("host 1", "up_bytes", "18446744073709551615");
  sim_set("host 1", "down_bytes", "5");
  sim_set("host 2", "up_bytes", "4294967296");
  EXPECT_EQ(text(NATIVE(getLANHostStatsJni)(env(), self(), jvm().array_of({"00:00:00:00:00:01", "00:00:00:00:00:02"}))),
            "{\"Result\":0,\"List\":[{\"UsStats\":18446744073709551615 ,\"DsStats\":5},"
            "{\"UsStats\":4294967296 ,\"DsStats\":0}]}");
  EXPECT_EQ(log(),
            "brelo_lanGethostStatsAndSpeedByMacAddr([\"00:00:00:00:00:01\", \"00:00:00:00:00:02\"], 2, \"Stats\")\n");
}

TEST_F(LANHostsInfoQueryService, SpeedLimitsListTheLimitsSigned) {
  add(host("00:00:00:00:00:01", "a"));
  sim_set("host 1", "up_limit", "-1");
  sim_set("host 1", "down_limit", "2147483647");
  EXPECT_EQ(text(NATIVE(getLANHostSpeedLimitInfoJni)(env(), self(), jvm().array_of({"00:00:00:00:00:01"}))),
            "{\"Result\":0,\"List\":[{\"UpSpeed\":-1,\"DownSpeed\":2147483647}]}");
  EXPECT_NE(log().find(", 1, \"SpeedMax\")"), std::string::npos);
}

TEST_F(LANHostsInfoQueryService, StatsFailuresAndEmptyLists) {
  EXPECT_EQ(text(NATIVE(getLANHostStatsJni)(env(), self(), jvm().array_of({}))), kEmpty);
  sim_program_result("brelo_lanGethostStatsAndSpeedByMacAddr", -1);
  EXPECT_EQ(text(NATIVE(getLANHostStatsJni)(env(), self(), jvm().array_of({"x"}))), kFail);
  EXPECT_EQ(text(NATIVE(getLANHostSpeedLimitInfoJni)(env(), self(), jvm().array_of({"x"}))), kFail);
}

TEST_F(LANHostsInfoQueryService, StatsOfManyHostsStayWithinTheirBuffer) {
  std::vector<std::string> macs;
  for (int i = 0; i < 300; ++i) {
    char mac[18];
    snprintf(mac, sizeof mac, "00:00:00:00:%02X:%02X", i / 256, i % 256);
    macs.push_back(mac);
    add(host(mac, "h"));
    sim_set(("host " + std::to_string(i + 1)).c_str(), "up_bytes", "18446744073709551615");
  }
  std::string reply = text(NATIVE(getLANHostStatsJni)(env(), self(), jvm().array_of(macs)));
  if (bundle::hardened_profile()) {  // a cut reply: the failure reply instead
    EXPECT_EQ(reply, kFail);
    return;
  }
  EXPECT_EQ(reply.size(), 8191u);
  EXPECT_NE(log().find("], 256, \"Stats\")"), std::string::npos);
}

TEST_F(LANHostsInfoQueryService, StatsTraceTheReply) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(getLANHostSpeedLimitInfoJni)(env(), self(), jvm().array_of({}));
  std::string trace = mask_line_numbers(out.finish());
  EXPECT_NE(trace.find(kPrefix + "getLANHostSpeedLimitInfoJni:N:getLANHostSpeedLimitInfoJni: return json = " +
                       kEmpty + "   leave============>\n"),
            std::string::npos)
      << trace;
}

// ---- the class query against its plain quadratic form

// The reply as a plain walk composes it: every record's MAC text is searched with strstr in
// the whole reply so far, and the reply is cut at 64 KiB - 1 characters.
class PlainClassReply {
 public:
  PlainClassReply() { add("{\"Result\":0,\"List\":["); }
  void walk(const LanHostRecord *list, int count) {
    for (int i = 0; i < count; ++i) {
      char mac[18];
      snprintf(mac, sizeof mac, "%02X:%02X:%02X:%02X:%02X:%02X", list[i].mac[0], list[i].mac[1], list[i].mac[2],
               list[i].mac[3], list[i].mac[4], list[i].mac[5]);
      if (strstr(reply_.c_str(), mac) != nullptr) continue;
      add(object(list[i], mac));
      if (i < count - 1) add(",");
    }
  }
  void add(const std::string &piece) {
    reply_ += piece;
    if (reply_.size() > 0xFFFF) reply_.resize(0xFFFF);
  }
  const std::string &text() const { return reply_; }

 private:
  static std::string field(const char *f, size_t cap) { return std::string(f, strnlen(f, cap - 1)); }
  static std::string object(const LanHostRecord &r, const char *mac) {
    static const char *const classes[] = {"ONLINE", "OFFLINE", "BLOCK", "TRUST"};
    std::string iface = r.attach_point >= 1 && r.attach_point <= 4    ? "LAN" + std::to_string(r.attach_point)
                        : r.attach_point >= 5 && r.attach_point <= 12 ? "SSID" + std::to_string(r.attach_point - 4)
                                                                      : "UNKNOWN";
    std::string ipv6 = field(r.ipv6, sizeof r.ipv6);
    std::string ip = field(r.ipv4, sizeof r.ipv4) + (ipv6.empty() ? "" : "," + ipv6);
    return std::string("{\"Class\":\"") + (r.host_class < 4 ? classes[r.host_class] : "UNKNOWN") +
           "\",\"MAC\":\"" + mac + "\",\"DhcpName\":\"" + field(r.dhcp_name, sizeof r.dhcp_name) +
           "\",\"DeviceName\":\"" + field(r.device_name, sizeof r.device_name) + "\",\"IP\":\"" + ip +
           "\",\"ConnectInterface\":\"" + iface + "\",\"OnlineTime\":\"" + std::to_string(r.online_time) +
           "\",\"StorageAccessStatus\":\"" + (r.storage_access ? "ON" : "OFF") + "\"}";
  }
  std::string reply_;
};

class ClassQueryOracle : public LANHostsInfoQueryService {
 protected:
  std::mt19937 rng_{12345};
  std::vector<std::string> pool_;

  int pick(int n) { return static_cast<int>(rng_() % static_cast<unsigned>(n)); }
  std::string random_mac() {
    char mac[18];
    // One pick per statement: argument evaluation order differs between compilers and CPUs,
    // and every tier must generate the same tables.
    int b0 = pick(3);
    int b1 = pick(256);
    int b2 = pick(4);
    int b4 = pick(256);
    int b5 = pick(2) ? 0xAB : pick(256);
    snprintf(mac, sizeof mac, "%02X:%02X:%02X:%02X:%02X:%02X", b0, b1, b2, 0x10, b4, b5);
    return mac;
  }
  // Text made of pieces of other hosts' MAC texts, whole ones, lower-case ones, runs of MAC
  // windows and plain words.
  std::string random_text(size_t max_len) {
    std::string t;
    int pieces = max_len > 100 ? 10 + pick(12) : pick(6);
    for (int p = 0; p < pieces; ++p) {
      const std::string &m = pool_[pick(static_cast<int>(pool_.size()))];
      switch (pick(7)) {
        case 0: t += m; break;
        case 1: t += m.substr(0, 1 + pick(16)); break;
        case 2: t += m.substr(pick(17)); break;
        case 3: {
          std::string l = m;
          for (char &c : l) c = static_cast<char>(tolower(c));
          t += l;
          break;
        }
        case 4: t += m + ":" + m.substr(3); break;  // overlapping windows
        case 5: t += "host-" + std::to_string(pick(1000)); break;
        default: t += " "; break;
      }
    }
    if (max_len > 100) t += std::string(pick(200), 'x');
    if (t.size() > max_len) t.resize(max_len);
    return t;
  }
  void generate(int n, bool fat, int cls, double offline_share) {
    pool_.clear();
    for (int i = 0; i < (fat ? 2 * n : n / 2 + 2); ++i) pool_.push_back(random_mac());
    for (int i = 0; i < n; ++i) {
      std::string s = "host " + std::to_string(++hosts_);
      sim_set(s.c_str(), "mac", pool_[pick(static_cast<int>(pool_.size()))].c_str());
      sim_set(s.c_str(), "dhcp_name", random_text(fat ? 300 : 40).c_str());
      sim_set(s.c_str(), "device_name", random_text(fat ? 300 : 40).c_str());
      int ip3 = pick(256);
      int ip4 = pick(256);
      sim_set(s.c_str(), "ip", ("192.168." + std::to_string(ip3) + "." + std::to_string(ip4)).c_str());
      sim_set(s.c_str(), "ipv6", pick(3) == 0 ? ("fe80::" + random_text(60)).c_str() : "");
      sim_set(s.c_str(), "port", std::to_string(pick(15) - 1).c_str());
      sim_set(s.c_str(), "online", (rng_() % 1000) < offline_share * 1000 ? "0" : "1");
      sim_set(s.c_str(), "online_time", std::to_string(rng_()).c_str());
      sim_set(s.c_str(), "class_code", std::to_string(cls).c_str());
    }
  }
  // What the plain walk answers for the lists the platform hands out right now.
  std::string plain(int cls) {
    PlainClassReply r;
    LanHostRecord *list = nullptr;
    int count = 0;
    brelo_lanGethostInfobytype(&list, &count, nullptr, cls);
    if (cls == 2 && count == 0) {
      // Without present blocked hosts the offline list is the whole answer.
      free(list);
      list = nullptr;
      brelo_lanGethostInfobyBlockOffline(&list, &count);
      cls = -1;
    }
    r.walk(list, count);
    free(list);
    if (cls == 2) {
      list = nullptr;
      count = 0;
      brelo_lanGethostInfobyBlockOffline(&list, &count);
      if (count != 0) {
        r.add(",");
        r.walk(list, count);
      }
      free(list);
    }
    r.add("]}");
    sim_clear_log();
    return r.text();
  }
  void check(const char *name, int cls) {
    std::string expected = bundle::checked_reply(plain(cls).c_str(), kFail);  // hardened: valid or the failure
    std::string reply = by_class(name);
    ASSERT_EQ(reply.size(), expected.size());
    ASSERT_TRUE(reply == expected) << "first difference at " << std::mismatch(reply.begin(), reply.end(), expected.begin()).first - reply.begin();
  }
};

TEST_F(ClassQueryOracle, SmallTablesGiveThePlainReply) {
  for (int round = 0; round < 60; ++round) {
    sim_reset();
    hosts_ = 0;
    generate(1 + pick(40), false, 0, 0);
    check("ONLINE", 0);
  }
}

TEST_F(ClassQueryOracle, BlockedTablesInTwoListsGiveThePlainReply) {
  for (int round = 0; round < 40; ++round) {
    sim_reset();
    hosts_ = 0;
    generate(1 + pick(60), false, 2, 0.5);
    check("BLOCK", 2);
  }
}

TEST_F(ClassQueryOracle, TablesCutAt64KiBGiveThePlainReply) {
  for (int round = 0; round < 6; ++round) {
    sim_reset();
    hosts_ = 0;
    generate(320 + pick(200), true, round % 2 ? 2 : 0, 0.4);
    std::string expected = plain(round % 2 ? 2 : 0);
    EXPECT_EQ(expected.size(), 0xFFFFu);
    check(round % 2 ? "block" : "online", round % 2 ? 2 : 0);
  }
}

TEST_F(ClassQueryOracle, NamesFullOfMacTextsGiveThePlainReply) {
  // More distinct MAC-shaped windows than a reply normally holds.
  for (int i = 0; i < 120; ++i) {
    std::string name[2];
    for (int j = 0; j < 2; ++j) {
      for (int k = 0; k < 14; ++k) {
        char mac[18];
        snprintf(mac, sizeof mac, "%02X:%02X:%02X:%02X:%02X:%02X", i, k, j, (i + k) % 5, j, k % 3);
        name[j] += mac;
        name[j] += ":";
      }
    }
    std::string s = "host " + std::to_string(++hosts_);
    char mac[18];
    snprintf(mac, sizeof mac, "%02X:%02X:00:00:00:%02X", (i * 7) % 120, i % 14, (i % 14) % 3);
    sim_set(s.c_str(), "mac", mac);
    sim_set(s.c_str(), "dhcp_name", name[0].c_str());
    sim_set(s.c_str(), "device_name", name[1].substr(3 * (i % 4)).c_str());
    sim_set(s.c_str(), "class_code", "0");
  }
  check("ONLINE", 0);
  // The reply holds far more distinct MAC-shaped texts than an index of the usual size takes.
  std::string reply = plain(0);
  std::set<std::string> windows;
  for (size_t at = 0; at + 17 <= reply.size(); ++at) {
    bool shaped = true;
    for (size_t k = 0; k < 17 && shaped; ++k)
      shaped = k % 3 == 2 ? reply[at + k] == ':' : isxdigit(static_cast<unsigned char>(reply[at + k])) && !islower(reply[at + k]);
    if (shaped) windows.insert(reply.substr(at, 17));
  }
  EXPECT_GT(windows.size(), 8192u);
}

TEST_F(ClassQueryOracle, EveryHostTwiceGivesThePlainReply) {
  generate(30, false, 0, 0);
  for (int i = 1; i <= 30; ++i) {
    std::string s = "host " + std::to_string(++hosts_);
    std::string from = "host " + std::to_string(i);
    for (const char *key : {"mac", "dhcp_name", "device_name", "ip", "ipv6", "port", "class_code"})
      sim_set(s.c_str(), key, sim_get(from.c_str(), key));
  }
  check("online", 0);
}

}  // namespace lan_hosts_info_query_service_test

// Unity builds compile several test files as one unit: the macros end with the file.
#undef NATIVE
