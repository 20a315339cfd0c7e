// com.lumarest.smartgateway.transferservices.TransferQueryServiceImp
#include <string>

#include "tests/test_support.h"

#define QUERY(m) Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_##m
extern "C" {
jstring QUERY(getVLANBindInfoJni)(JNIEnv *, jobject);
jstring QUERY(getLayer3ForwardingStaticConfigInfoJni)(JNIEnv *, jobject);
jstring QUERY(getLayer3ForwardingCurrentJni)(JNIEnv *, jobject);
jstring QUERY(getIPv6Layer3ForwardingStaticConfigInfoJni)(JNIEnv *, jobject);
jstring QUERY(getIPv6Layer3ForwardingCurrentJni)(JNIEnv *, jobject);
jstring QUERY(getIPTVStatusJni)(JNIEnv *, jobject);
}

namespace transfer_query_service_test {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const char kFail[] = "{\"Result\":-1}";
const char kEmpty[] = "{\"Result\":0,\"List\":[]}";

class TransferQuery : public testsupport::BridgeTest {
 protected:
  void ip4(const char *section, const char *dest, const char *mask, const char *gw, const char *ifname) {
    sim_set(section, "dest", dest);
    sim_set(section, "mask", mask);
    sim_set(section, "gateway", gw);
    sim_set(section, "interface", ifname);
  }
  void ip6(const char *section, const char *prefix, const char *hop, const char *ifname) {
    sim_set(section, "prefix", prefix);
    sim_set(section, "next_hop", hop);
    sim_set(section, "interface", ifname);
  }
};

// ---- VLAN bindings ----

TEST_F(TransferQuery, VlanBindingsAreListedByInterfaceName) {
  sim_set("vlan bind", "0", "100/10");
  sim_set("vlan bind", "4", "200/20");
  sim_set("vlan bind", "8", "300/30");
  EXPECT_EQ(text(QUERY(getVLANBindInfoJni)(env(), self())),
            "{\"Result\":0,\"List\":[{\"LanInterface\":\"LAN1\",\"Bind\":\"100/10\"},"
            "{\"LanInterface\":\"SSID1\",\"Bind\":\"200/20\"},"
            "{\"LanInterface\":\"SSID5\",\"Bind\":\"300/30\"}]}");
  EXPECT_EQ(log(), "brelo_vlanGetBindInfo()\n");
}

TEST_F(TransferQuery, VlanInterfaceNumbersOutsideTheTableAreEmpty) {
  sim_set("vlan bind", "-1", "a");
  sim_set("vlan bind", "3", "b");
  sim_set("vlan bind", "9", "c");
  sim_set("vlan bind", "2147483647", "d");
  EXPECT_EQ(text(QUERY(getVLANBindInfoJni)(env(), self())),
            "{\"Result\":0,\"List\":[{\"LanInterface\":\"\",\"Bind\":\"a\"},"
            "{\"LanInterface\":\"LAN4\",\"Bind\":\"b\"},{\"LanInterface\":\"\",\"Bind\":\"c\"},"
            "{\"LanInterface\":\"\",\"Bind\":\"d\"}]}");
}

TEST_F(TransferQuery, AnEmptyTableWithoutAnArrayIsAFailure) {
  // The platform succeeds but allocates nothing: still a failure.
  EXPECT_EQ(text(QUERY(getVLANBindInfoJni)(env(), self())), kFail);
  EXPECT_EQ(text(QUERY(getLayer3ForwardingStaticConfigInfoJni)(env(), self())), kFail);
  EXPECT_EQ(text(QUERY(getLayer3ForwardingCurrentJni)(env(), self())), kFail);
  EXPECT_EQ(text(QUERY(getIPv6Layer3ForwardingStaticConfigInfoJni)(env(), self())), kFail);
  EXPECT_EQ(text(QUERY(getIPv6Layer3ForwardingCurrentJni)(env(), self())), kFail);
  EXPECT_EQ(log(),
            "brelo_vlanGetBindInfo()\n"
            "brelo_routeinfoGetLayer3ForwardingStaticConfig(0)\n"
            "brelo_routeinfoGetLayer3ForwardingStaticConfig(1)\n"
            "brelo_routeinfoGetIp6Layer3ForwardingStaticConfig(0)\n"
            "brelo_routeinfoGetIp6Layer3ForwardingStaticConfig(1)\n");
}

TEST_F(TransferQuery, APlatformFailureWithAnArrayIsAFailureAndTheArrayIsFreed) {
  sim_set("vlan bind", "1", "x");
  ip4("ipv4 static route 1", "10.0.0.0", "255.0.0.0", "", "br0");
  ip6("ipv6 static route 1", "2001:db8::/32", "", "br0");
  for (const char *fn : {"brelo_vlanGetBindInfo", "brelo_routeinfoGetLayer3ForwardingStaticConfig",
                         "brelo_routeinfoGetIp6Layer3ForwardingStaticConfig"})
    sim_program_result(fn, 1);
  EXPECT_EQ(text(QUERY(getVLANBindInfoJni)(env(), self())), kFail);
  EXPECT_EQ(text(QUERY(getLayer3ForwardingStaticConfigInfoJni)(env(), self())), kFail);
  EXPECT_EQ(text(QUERY(getLayer3ForwardingCurrentJni)(env(), self())), kFail);
  EXPECT_EQ(text(QUERY(getIPv6Layer3ForwardingStaticConfigInfoJni)(env(), self())), kFail);
  EXPECT_EQ(text(QUERY(getIPv6Layer3ForwardingCurrentJni)(env(), self())), kFail);
  // (The sanitizer tier shows the arrays are freed on this path too.)
}

TEST_F(TransferQuery, VlanBindingFilledToTheBrimIsCutAtItsField) {
  sim_set("vlan bind", "1", std::string(300, 'v').c_str());
  EXPECT_EQ(text(QUERY(getVLANBindInfoJni)(env(), self())),
            "{\"Result\":0,\"List\":[{\"LanInterface\":\"LAN2\",\"Bind\":\"" + std::string(255, 'v') +
                "\"}]}");
}

TEST_F(TransferQuery, TenThousandBindingsAreListedWhole) {
  for (int i = 0; i < 10000; ++i) sim_set("vlan bind", std::to_string(i).c_str(), std::string(255, 'b').c_str());
  std::string reply = text(QUERY(getVLANBindInfoJni)(env(), self()));
  std::string expected = "{\"Result\":0,\"List\":[";
  for (int i = 0; i < 10000; ++i) {
    static const char *names[] = {"LAN1", "LAN2", "LAN3", "LAN4", "SSID1", "SSID2", "SSID3", "SSID4", "SSID5"};
    expected += std::string(i ? "," : "") + "{\"LanInterface\":\"" + (i < 9 ? names[i] : "") +
                "\",\"Bind\":\"" + std::string(255, 'b') + "\"}";
  }
  expected += "]}";
  EXPECT_EQ(reply, expected);
}

// ---- IPv4 routes ----

TEST_F(TransferQuery, StaticIpv4RoutesAreListedWithQuotedIndexes) {
  ip4("ipv4 static route 1", "10.20.0.0", "255.255.0.0", "192.168.1.254", "br0");
  ip4("ipv4 static route 16", "172.16.0.0", "255.240.0.0", "", "nas0_1");
  ip4("ipv4 current route 101", "0.0.0.0", "0.0.0.0", "100.64.0.1", "ppp0");
  EXPECT_EQ(text(QUERY(getLayer3ForwardingStaticConfigInfoJni)(env(), self())),
            "{\"Result\":0,\"List\":["
            "{\"Index\":\"1\",\"DestIPAddress\":\"10.20.0.0\",\"DestSubnetMask\":\"255.255.0.0\","
            "\"GatewayIPAddress\":\"192.168.1.254\",\"Interface\":\"br0\"},"
            "{\"Index\":\"16\",\"DestIPAddress\":\"172.16.0.0\",\"DestSubnetMask\":\"255.240.0.0\","
            "\"GatewayIPAddress\":\"\",\"Interface\":\"nas0_1\"}]}");
  EXPECT_EQ(log(), "brelo_routeinfoGetLayer3ForwardingStaticConfig(0)\n");
}

TEST_F(TransferQuery, CurrentIpv4RoutesComeFromTheTableInForce) {
  ip4("ipv4 static route 2", "10.20.0.0", "255.255.0.0", "192.168.1.254", "br0");
  ip4("ipv4 current route -7", "0.0.0.0", "0.0.0.0", "100.64.0.1", "ppp0");
  EXPECT_EQ(text(QUERY(getLayer3ForwardingCurrentJni)(env(), self())),
            "{\"Result\":0,\"List\":["
            "{\"Index\":\"-7\",\"DestIPAddress\":\"0.0.0.0\",\"DestSubnetMask\":\"0.0.0.0\","
            "\"GatewayIPAddress\":\"100.64.0.1\",\"Interface\":\"ppp0\"},"
            "{\"Index\":\"2\",\"DestIPAddress\":\"10.20.0.0\",\"DestSubnetMask\":\"255.255.0.0\","
            "\"GatewayIPAddress\":\"192.168.1.254\",\"Interface\":\"br0\"}]}");
  EXPECT_EQ(log(), "brelo_routeinfoGetLayer3ForwardingStaticConfig(1)\n");
}

TEST_F(TransferQuery, Ipv4RouteFieldsFilledToTheBrimAreCutAtTheirFields) {
  std::string big(400, 'z');
  ip4("ipv4 static route 3", big.c_str(), big.c_str(), big.c_str(), big.c_str());
  std::string f63(63, 'z'), f127(127, 'z');
  EXPECT_EQ(text(QUERY(getLayer3ForwardingStaticConfigInfoJni)(env(), self())),
            "{\"Result\":0,\"List\":[{\"Index\":\"3\",\"DestIPAddress\":\"" + f63 +
                "\",\"DestSubnetMask\":\"" + f63 + "\",\"GatewayIPAddress\":\"" + f63 +
                "\",\"Interface\":\"" + f127 + "\"}]}");
}

TEST_F(TransferQuery, RecordsWithEmptyFieldsGiveEmptyTexts) {
  sim_set("ipv4 static route 4", "dest", "");
  sim_set("ipv6 static route 5", "prefix", "");
  EXPECT_EQ(text(QUERY(getLayer3ForwardingStaticConfigInfoJni)(env(), self())),
            "{\"Result\":0,\"List\":[{\"Index\":\"4\",\"DestIPAddress\":\"\",\"DestSubnetMask\":\"\","
            "\"GatewayIPAddress\":\"\",\"Interface\":\"\"}]}");
  EXPECT_EQ(text(QUERY(getIPv6Layer3ForwardingStaticConfigInfoJni)(env(), self())),
            "{\"Result\":0,\"List\":[{\"Index\":\"5\",\"DestIPPrefix\":\"\",\"NextHop\":\"\",\"Interface\":\"\"}]}");
}

// Far beyond the platform's 4,096-byte reply: every record is listed, none cut.
TEST_F(TransferQuery, TenThousandFullIpv4RoutesAreListedWhole) {
  std::string f63(63, 'a'), f127(127, 'i');
  ip4("ipv4 current route -2147483648", f63.c_str(), f63.c_str(), f63.c_str(), f127.c_str());
  sim_set("ipv4 current route -2147483648", "repeat", "10000");
  std::string one = "{\"Index\":\"-2147483648\",\"DestIPAddress\":\"" + f63 + "\",\"DestSubnetMask\":\"" +
                    f63 + "\",\"GatewayIPAddress\":\"" + f63 + "\",\"Interface\":\"" + f127 + "\"}";
  std::string expected = "{\"Result\":0,\"List\":[";
  for (int i = 0; i < 10000; ++i) expected += (i ? "," : "") + one;
  expected += "]}";
  EXPECT_EQ(text(QUERY(getLayer3ForwardingCurrentJni)(env(), self())), expected);
}

// ---- IPv6 routes ----

TEST_F(TransferQuery, StaticIpv6RoutesAreListed) {
  ip6("ipv6 static route 1", "2001:db8:20::/48", "fe80::1", "br0");
  ip6("ipv6 current route 101", "::/0", "fe80::a", "ppp0");
  EXPECT_EQ(text(QUERY(getIPv6Layer3ForwardingStaticConfigInfoJni)(env(), self())),
            "{\"Result\":0,\"List\":[{\"Index\":\"1\",\"DestIPPrefix\":\"2001:db8:20::/48\","
            "\"NextHop\":\"fe80::1\",\"Interface\":\"br0\"}]}");
  EXPECT_EQ(text(QUERY(getIPv6Layer3ForwardingCurrentJni)(env(), self())),
            "{\"Result\":0,\"List\":[{\"Index\":\"101\",\"DestIPPrefix\":\"::/0\","
            "\"NextHop\":\"fe80::a\",\"Interface\":\"ppp0\"},"
            "{\"Index\":\"1\",\"DestIPPrefix\":\"2001:db8:20::/48\","
            "\"NextHop\":\"fe80::1\",\"Interface\":\"br0\"}]}");
  EXPECT_EQ(log(),
            "brelo_routeinfoGetIp6Layer3ForwardingStaticConfig(0)\n"
            "brelo_routeinfoGetIp6Layer3ForwardingStaticConfig(1)\n");
}

TEST_F(TransferQuery, TenThousandFullIpv6RoutesAreListedWhole) {
  std::string f63(63, 'h'), f127(127, 'p');
  ip6("ipv6 static route 9", f127.c_str(), f63.c_str(), f127.c_str());
  sim_set("ipv6 static route 9", "repeat", "10000");
  std::string one = "{\"Index\":\"9\",\"DestIPPrefix\":\"" + f127 + "\",\"NextHop\":\"" + f63 +
                    "\",\"Interface\":\"" + f127 + "\"}";
  std::string expected = "{\"Result\":0,\"List\":[";
  for (int i = 0; i < 10000; ++i) expected += (i ? "," : "") + one;
  expected += "]}";
  EXPECT_EQ(text(QUERY(getIPv6Layer3ForwardingStaticConfigInfoJni)(env(), self())), expected);
}

TEST_F(TransferQuery, ListRepliesTraceTheirJson) {
  sim_set("vlan bind", "2", "7");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  QUERY(getVLANBindInfoJni)(env(), self());
  QUERY(getLayer3ForwardingStaticConfigInfoJni)(env(), self());
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getVLANBindInfoJni:N:"
            "getVLANBindInfoJni: return json = {\"Result\":0,\"List\":[{\"LanInterface\":\"LAN3\",\"Bind\":\"7\"}]}"
            "   leave============>\n"
            "Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getLayer3ForwardingStaticConfigInfoJni:N:"
            "getLayer3ForwardingStaticConfigInfoJni: return json = {\"Result\":-1}   leave============>\n");
}

TEST_F(TransferQuery, NoTraceWithoutTheFlagFile) {
  CaptureStdout out;
  QUERY(getVLANBindInfoJni)(env(), self());
  QUERY(getIPTVStatusJni)(env(), self());
  EXPECT_EQ(out.finish(), "");
}

TEST_F(TransferQuery, AFailedReplyStringIsHandedOnAsNull) {
  sim_set("vlan bind", "2", "7");
  jvm().fail_new_string(true);
  EXPECT_TRUE(jvm().is_null(QUERY(getVLANBindInfoJni)(env(), self())));
}

// ---- IPTV status ----

TEST_F(TransferQuery, IptvStatusNamesEveryCode) {
  const char *names[] = {"NO_IPTV_CONNECTION", "IPTV_DISCONNECT", "INVALID_MULTIVLAN",
                         "IPTV_BUSSINESS_NOK", "IPTV_BUSSINESS_OK"};
  for (int code = 0; code < 5; ++code) {
    sim_set("iptv", "status", std::to_string(code).c_str());
    EXPECT_EQ(text(QUERY(getIPTVStatusJni)(env(), self())), names[code]);
  }
  EXPECT_EQ(sim_log_count("brelo_iptvGetStatus"), 5);
}

TEST_F(TransferQuery, IptvStatusOutsideTheTableIsEmpty) {
  for (int code : {5, -1, 2147483647, -2147483647 - 1}) {
    sim_program_result("brelo_iptvGetStatus", code);
    EXPECT_EQ(text(QUERY(getIPTVStatusJni)(env(), self())), "") << code;
  }
}

TEST_F(TransferQuery, IptvStatusTracesTheName) {
  sim_set("iptv", "status", "3");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(text(QUERY(getIPTVStatusJni)(env(), self())), "IPTV_BUSSINESS_NOK");
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_getIPTVStatusJni:N:"
            "getIPTVStatusJni: return json = IPTV_BUSSINESS_NOK   leave============>\n");
}

}  // namespace transfer_query_service_test

// Unity builds compile several test files as one unit: the macros end with the file.
#undef QUERY
