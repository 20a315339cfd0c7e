// com.lumarest.smartgateway.addressservices.LANIPConfigServiceImp and LANIPInfoQueryServiceImp
#include <string>

#include "tests/test_support.h"

#define CONFIG(m) Java_com_lumarest_smartgateway_addressservices_LANIPConfigServiceImp_##m
#define QUERY(m) Java_com_lumarest_smartgateway_addressservices_LANIPInfoQueryServiceImp_##m
extern "C" {
jint CONFIG(setLANHostIPJni)(JNIEnv *, jobject, jstring, jstring);
jint CONFIG(setLANDHCPInfoJni)(JNIEnv *, jobject, jstring, jstring, jstring, jint);
jstring QUERY(getLANHostIPJni)(JNIEnv *, jobject);
jstring QUERY(getLANDHCPInfoJni)(JNIEnv *, jobject);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

class LanAddress : public testsupport::BridgeTest {};

// ---- setLANHostIPJni ----

TEST_F(LanAddress, HostIPGoesToThePlatformAndItsResultComesBack) {
  EXPECT_EQ(CONFIG(setLANHostIPJni)(env(), self(), jvm().str("192.168.8.1"), jvm().str("255.255.0.0")), 0);
  EXPECT_STREQ(sim_get("lan_ip", "ipv4"), "192.168.8.1");
  EXPECT_STREQ(sim_get("lan_ip", "mask"), "255.255.0.0");
  // No syntax check of its own: whatever the platform answers is returned.
  EXPECT_EQ(CONFIG(setLANHostIPJni)(env(), self(), jvm().str("300.1.1.1"), jvm().str("mask")), -1);
  sim_program_result("brelo_lanSetLanHostIP", 7);
  EXPECT_EQ(CONFIG(setLANHostIPJni)(env(), self(), jvm().str("10.0.0.1"), jvm().str("255.0.0.0")), 7);
  EXPECT_EQ(log(),
            "brelo_lanSetLanHostIP(\"192.168.8.1\", \"255.255.0.0\")\n"
            "brelo_lanSetLanHostIP(\"300.1.1.1\", \"mask\")\n"
            "brelo_lanSetLanHostIP(\"10.0.0.1\", \"255.0.0.0\")\n");
  EXPECT_STREQ(sim_get("lan_ip", "ipv4"), "10.0.0.1");
}

TEST_F(LanAddress, HostIPReleasesBothTextsInOrderAndTraces) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  jstring address = jvm().str("192.168.8.1");
  jstring mask = jvm().str("255.255.255.0");
  EXPECT_EQ(CONFIG(setLANHostIPJni)(env(), self(), address, mask), 0);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_addressservices_LANIPConfigServiceImp_setLANHostIPJni:N:"
            "setLANHostIPJni: return code = 0   leave============>\n");
  EXPECT_EQ(jvm().events_text().rfind("GetStringUTFChars(s1)\nGetStringUTFChars(s2)\n"
                                      "ReleaseStringUTFChars(s1)\nReleaseStringUTFChars(s2)\n", 0),
            0u)
      << jvm().events_text();
}

TEST_F(LanAddress, HostIPOfNullTextsIsSafe) {
  EXPECT_EQ(CONFIG(setLANHostIPJni)(env(), self(), nullptr, jvm().failing_str()), -1);
  EXPECT_EQ(log(), "");  // a text that could not be had changes nothing
  EXPECT_EQ(jvm().null_releases(), 1);
}

// ---- setLANDHCPInfoJni ----

TEST_F(LanAddress, DhcpEnableTextIsReadInAnyCase) {
  EXPECT_EQ(CONFIG(setLANDHCPInfoJni)(env(), self(), jvm().str("true"), jvm().str("192.168.1.10"),
                                      jvm().str("192.168.1.99"), 3600), 0);
  EXPECT_EQ(CONFIG(setLANDHCPInfoJni)(env(), self(), jvm().str("True"), jvm().str("192.168.1.10"),
                                      jvm().str("192.168.1.99"), 60), 0);
  EXPECT_EQ(CONFIG(setLANDHCPInfoJni)(env(), self(), jvm().str("TRUE"), jvm().str("192.168.1.10"),
                                      jvm().str("192.168.1.99"), 60), 0);
  EXPECT_EQ(CONFIG(setLANDHCPInfoJni)(env(), self(), jvm().str("fAlSe"), jvm().str("192.168.1.10"),
                                      jvm().str("192.168.1.20"), -5), 0);
  EXPECT_EQ(log(),
            "brelo_lanSetLANDHCPInfo(1, \"192.168.1.10\", \"192.168.1.99\", 3600)\n"
            "brelo_lanSetLANDHCPInfo(1, \"192.168.1.10\", \"192.168.1.99\", 60)\n"
            "brelo_lanSetLANDHCPInfo(1, \"192.168.1.10\", \"192.168.1.99\", 60)\n"
            "brelo_lanSetLANDHCPInfo(0, \"192.168.1.10\", \"192.168.1.20\", -5)\n");
  EXPECT_STREQ(sim_get("dhcp_server", "enabled"), "0");
  EXPECT_STREQ(sim_get("dhcp_server", "end"), "192.168.1.20");
  EXPECT_STREQ(sim_get("dhcp_server", "lease"), "-5");
  EXPECT_EQ(jvm().released(), 12);
}

TEST_F(LanAddress, DhcpOtherEnableTextsReturnAtOnceAndKeepTheTexts) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  for (const char *bad : {"1", "yes", "", "TRUE ", "FALSEY"})
    EXPECT_EQ(CONFIG(setLANDHCPInfoJni)(env(), self(), jvm().str(bad), jvm().str("192.168.1.10"),
                                        jvm().str("192.168.1.99"), 1), -1)
        << bad;
  EXPECT_EQ(out.finish(), "");  // returns before any trace
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().released(), 0);
  expected_outstanding_ = 15;  // the three texts of each refused call are never given back
}

TEST_F(LanAddress, DhcpNullEnableTextIsRefusedLikeAnInvalidOne) {
  EXPECT_EQ(CONFIG(setLANDHCPInfoJni)(env(), self(), nullptr, jvm().str("a"), jvm().str("b"), 1), -1);
  EXPECT_EQ(CONFIG(setLANDHCPInfoJni)(env(), self(), jvm().failing_str(), jvm().str("a"), jvm().str("b"), 1), -1);
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().released(), 0);
  // The first call keeps its two pool texts; after the failed copy nothing more is asked for.
  expected_outstanding_ = 2;
}

TEST_F(LanAddress, DhcpRangesGoToThePlatformAsGiven) {
  sim_set("dhcp_server", "start", "192.168.1.2");
  // Reversed and malformed ranges are the platform's to judge; its answer is returned.
  EXPECT_EQ(CONFIG(setLANDHCPInfoJni)(env(), self(), jvm().str("TRUE"), jvm().str("192.168.1.200"),
                                      jvm().str("192.168.1.10"), 3600), -1);
  EXPECT_EQ(CONFIG(setLANDHCPInfoJni)(env(), self(), jvm().str("TRUE"), jvm().str("192.168.1"),
                                      jvm().str("x.y.z.w"), 3600), -1);
  EXPECT_EQ(CONFIG(setLANDHCPInfoJni)(env(), self(), jvm().str("TRUE"), nullptr, jvm().str(std::string(300, '9')),
                                      2147483647), -1);
  EXPECT_EQ(log(),
            "brelo_lanSetLANDHCPInfo(1, \"192.168.1.200\", \"192.168.1.10\", 3600)\n"
            "brelo_lanSetLANDHCPInfo(1, \"192.168.1\", \"x.y.z.w\", 3600)\n"
            "brelo_lanSetLANDHCPInfo(1, \"\", \"" + std::string(300, '9') + "\", 2147483647)\n");
  EXPECT_STREQ(sim_get("dhcp_server", "start"), "192.168.1.2");
  sim_program_result("brelo_lanSetLANDHCPInfo", 5);
  EXPECT_EQ(CONFIG(setLANDHCPInfoJni)(env(), self(), jvm().str("false"), jvm().str("1.1.1.1"),
                                      jvm().str("1.1.1.2"), 0), 5);
}

TEST_F(LanAddress, DhcpTracesAndReleasesInOrder) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  jstring enable = jvm().str("TRUE");
  jstring start = jvm().str("192.168.1.10");
  jstring end = jvm().str("192.168.1.99");
  EXPECT_EQ(CONFIG(setLANDHCPInfoJni)(env(), self(), enable, start, end, 1), 0);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_addressservices_LANIPConfigServiceImp_setLANDHCPInfoJni:N:"
            "setLANDHCPInfoJni: return code = 0   leave============>\n");
  EXPECT_EQ(jvm().events_text().rfind("GetStringUTFChars(s1)\nGetStringUTFChars(s2)\nGetStringUTFChars(s3)\n"
                                      "ReleaseStringUTFChars(s1)\nReleaseStringUTFChars(s2)\n"
                                      "ReleaseStringUTFChars(s3)\n", 0),
            0u)
      << jvm().events_text();
}

// ---- getLANHostIPJni ----

TEST_F(LanAddress, HostIPQueryJoinsBothIPv6AddressesWithAComma) {
  sim_set("lan_ip", "ipv4", "192.168.1.1");
  sim_set("lan_ip", "mask", "255.255.255.0");
  sim_set("lan_ip", "ipv6_first", "fe80::1");
  sim_set("lan_ip", "ipv6_second", "2001:db8::1");
  sim_set("lan_ip", "prefix_len", "64");
  EXPECT_EQ(text(QUERY(getLANHostIPJni)(env(), self())),
            "{\"Result\":0,\"LocalIPv4\":\"192.168.1.1\",\"LocalIPv6\":\"fe80::1,2001:db8::1\","
            "\"Submask\":\"255.255.255.0\",\"Prefix_len\":\"64\"}");
  EXPECT_EQ(log(), "brelo_lanGetHostIP()\n");
}

TEST_F(LanAddress, HostIPQueryWithoutIPv6GivesAnEmptyText) {
  sim_set("lan_ip", "ipv4", "192.168.1.1");
  sim_set("lan_ip", "ipv6_second", "2001:db8::1");  // the second alone is written, without a comma
  EXPECT_EQ(text(QUERY(getLANHostIPJni)(env(), self())),
            "{\"Result\":0,\"LocalIPv4\":\"192.168.1.1\",\"LocalIPv6\":\"2001:db8::1\","
            "\"Submask\":\"\",\"Prefix_len\":\"\"}");
  sim_unset("lan_ip", "ipv6_second");
  EXPECT_EQ(text(QUERY(getLANHostIPJni)(env(), self())),
            "{\"Result\":0,\"LocalIPv4\":\"192.168.1.1\",\"LocalIPv6\":\"\",\"Submask\":\"\",\"Prefix_len\":\"\"}");
}

TEST_F(LanAddress, HostIPQueryKeepsTheCommaOfALoneFirstAddress) {
  sim_set("lan_ip", "ipv6_first", "fe80::1");
  EXPECT_EQ(text(QUERY(getLANHostIPJni)(env(), self())),
            "{\"Result\":0,\"LocalIPv4\":\"\",\"LocalIPv6\":\"fe80::1,\",\"Submask\":\"\",\"Prefix_len\":\"\"}");
}

TEST_F(LanAddress, HostIPQueryOfAnEmptyPlatformAndOfBrimFullTexts) {
  EXPECT_EQ(text(QUERY(getLANHostIPJni)(env(), self())),
            "{\"Result\":0,\"LocalIPv4\":\"\",\"LocalIPv6\":\"\",\"Submask\":\"\",\"Prefix_len\":\"\"}");
  sim_set("lan_ip", "ipv4", std::string(100, '4').c_str());
  sim_set("lan_ip", "ipv6_first", std::string(400, 'a').c_str());
  sim_set("lan_ip", "ipv6_second", std::string(400, 'b').c_str());
  EXPECT_EQ(text(QUERY(getLANHostIPJni)(env(), self())),
            "{\"Result\":0,\"LocalIPv4\":\"" + std::string(31, '4') + "\",\"LocalIPv6\":\"" +
                std::string(253, 'a') + "," + std::string(253, 'b') +
                "\",\"Submask\":\"\",\"Prefix_len\":\"\"}");
}

TEST_F(LanAddress, HostIPQueryTracesTheReply) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  QUERY(getLANHostIPJni)(env(), self());
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_addressservices_LANIPInfoQueryServiceImp_getLANHostIPJni:N:"
            "getLANHostIPJni: return json = {\"Result\":0,\"LocalIPv4\":\"\",\"LocalIPv6\":\"\","
            "\"Submask\":\"\",\"Prefix_len\":\"\"}   leave============>\n");
}

// ---- getLANDHCPInfoJni ----

TEST_F(LanAddress, DhcpQueryReportsTheServer) {
  sim_set("dhcp_server", "enabled", "1");
  sim_set("dhcp_server", "start", "192.168.1.2");
  sim_set("dhcp_server", "end", "192.168.1.254");
  sim_set("dhcp_server", "lease", "86400");
  EXPECT_EQ(text(QUERY(getLANDHCPInfoJni)(env(), self())),
            "{\"Result\":0,\"EnableDHCPServer\":\"TRUE\",\"DHCPStartIP\":\"192.168.1.2\","
            "\"DHCPEndIP\":\"192.168.1.254\",\"DHCPDuration\":86400}");
  EXPECT_EQ(log(), "brelo_dhcpdGetServerSettings()\n");
}

TEST_F(LanAddress, DhcpQueryCallsOnlyOneTrue) {
  for (const char *v : {"0", "2", "-1"}) {
    sim_set("dhcp_server", "enabled", v);
    EXPECT_EQ(text(QUERY(getLANDHCPInfoJni)(env(), self())),
              "{\"Result\":0,\"EnableDHCPServer\":\"FALSE\",\"DHCPStartIP\":\"\",\"DHCPEndIP\":\"\","
              "\"DHCPDuration\":0}")
        << v;
  }
  sim_set("dhcp_server", "lease", "-2147483648");
  sim_set("dhcp_server", "start", std::string(50, '1').c_str());  // cut at the 19 of its field
  EXPECT_EQ(text(QUERY(getLANDHCPInfoJni)(env(), self())),
            "{\"Result\":0,\"EnableDHCPServer\":\"FALSE\",\"DHCPStartIP\":\"" + std::string(19, '1') +
                "\",\"DHCPEndIP\":\"\",\"DHCPDuration\":-2147483648}");
}

TEST_F(LanAddress, DhcpQueryOfAnEmptyPlatformAndItsTrace) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  const std::string empty =
      "{\"Result\":0,\"EnableDHCPServer\":\"FALSE\",\"DHCPStartIP\":\"\",\"DHCPEndIP\":\"\",\"DHCPDuration\":0}";
  EXPECT_EQ(text(QUERY(getLANDHCPInfoJni)(env(), self())), empty);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_addressservices_LANIPInfoQueryServiceImp_getLANDHCPInfoJni:N:"
            "getLANDHCPInfoJni: return json = " + empty + "   leave============>\n");
}

TEST_F(LanAddress, SettersChangeWhatTheQueriesReturn) {
  ASSERT_EQ(sim_load_default(), 0);
  sim_set_save_path(nullptr);
  EXPECT_EQ(CONFIG(setLANHostIPJni)(env(), self(), jvm().str("10.1.1.1"), jvm().str("255.255.255.128")), 0);
  EXPECT_EQ(CONFIG(setLANDHCPInfoJni)(env(), self(), jvm().str("false"), jvm().str("10.1.1.5"),
                                      jvm().str("10.1.1.50"), 7200), 0);
  EXPECT_EQ(text(QUERY(getLANHostIPJni)(env(), self())),
            "{\"Result\":0,\"LocalIPv4\":\"10.1.1.1\",\"LocalIPv6\":\"fe80::1,240e:3a1:4c2:71d0::1\","
            "\"Submask\":\"255.255.255.128\",\"Prefix_len\":\"64\"}");
  EXPECT_EQ(text(QUERY(getLANDHCPInfoJni)(env(), self())),
            "{\"Result\":0,\"EnableDHCPServer\":\"FALSE\",\"DHCPStartIP\":\"10.1.1.5\","
            "\"DHCPEndIP\":\"10.1.1.50\",\"DHCPDuration\":7200}");
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef CONFIG
#undef QUERY
