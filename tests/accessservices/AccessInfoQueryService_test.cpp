// com.lumarest.smartgateway.accessservices.AccessInfoQueryServiceImp
#include <string>
#include <utility>
#include <vector>

#include "common/hardened.h"
#include "tests/test_support.h"

#define NATIVE(m) Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_##m
extern "C" {
jstring NATIVE(getPONIfPhyStatusJni)(JNIEnv *, jobject);
jint NATIVE(getPONIfUpTimeJni)(JNIEnv *, jobject);
jstring NATIVE(getPONIfRegisterStatusJni)(JNIEnv *, jobject);
jstring NATIVE(getUplinkIfStatsJni)(JNIEnv *, jobject);
jstring NATIVE(getWANIfListJni)(JNIEnv *, jobject);
jstring NATIVE(getWANIfStatsJni)(JNIEnv *, jobject, jint);
jstring NATIVE(getWANIfInfoJni)(JNIEnv *, jobject, jint);
jstring NATIVE(getWanIfBandwidthJni)(JNIEnv *, jobject, jint);
jstring NATIVE(getWANIfStatusJni)(JNIEnv *, jobject, jint);
jint NATIVE(getInternetWANIndexJni)(JNIEnv *, jobject);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const std::string kPrefix =
    "Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_";
const char kParameterError[] = "{\"Result\":-1,\"FailReason\":\"parameter error\"}";
const char kParameterNull[] = "{\"Result\":-1,\"FailReason\":\"parameter NULL\"}";

class AccessInfoQueryService : public testsupport::BridgeTest {
 protected:
  // A connection known to the platform, at (pvc, entry), with its list name.
  void add_wan(int index, int pvc, int entry, const std::string &name) {
    std::string s = "wan " + std::to_string(index);
    sim_set(s.c_str(), "PVC", std::to_string(pvc).c_str());
    sim_set(s.c_str(), "Entry", std::to_string(entry).c_str());
    sim_set(s.c_str(), "Name", name.c_str());
  }
  void set_wan(int index, const char *key, const std::string &value) {
    sim_set(("wan " + std::to_string(index)).c_str(), key, value.c_str());
  }
  std::string info(int index) { return text(NATIVE(getWANIfInfoJni)(env(), self(), index)); }
  std::string status(int index) { return text(NATIVE(getWANIfStatusJni)(env(), self(), index)); }
  // The value of one member of an information or status reply.
  std::string member(const std::string &reply, const std::string &key) {
    std::string k = "\"" + key + "\":\"";
    size_t at = reply.find(k);
    if (at == std::string::npos) return "<absent>";
    at += k.size();
    return reply.substr(at, reply.find('"', at) - at);
  }
  std::string trace_of(const std::string &method, const std::string &message) {
    return kPrefix + method + ":N:" + message;
  }
};

// ---- PON optical levels ----

TEST_F(AccessInfoQueryService, PhyStatusPrintsTheFiveWordsWithTheWireSpelling) {
  sim_set("pon", "TXPower", "2310");
  sim_set("pon", "RXPower", "-1870");
  sim_set("pon", "TransceiverTemperature", "47");
  sim_set("pon", "SupplyVoltage", "3285");
  sim_set("pon", "BiasCurrent", "12");
  EXPECT_EQ(text(NATIVE(getPONIfPhyStatusJni)(env(), self())),
            "{\"Result\":0,\"TXPower\":2310,\"RXPower\":-1870,\"TransceiverTemperature\":47,"
            "\"SupplyVottage\":3285,\"BiasCurrent\":12}");
  EXPECT_EQ(log(), "brelo_ponGetIfPhyStatusInfo()\n");
}

TEST_F(AccessInfoQueryService, PhyStatusIgnoresThePlatformsResult) {
  sim_program_result("brelo_ponGetIfPhyStatusInfo", -1);
  EXPECT_EQ(text(NATIVE(getPONIfPhyStatusJni)(env(), self())),
            "{\"Result\":0,\"TXPower\":0,\"RXPower\":0,\"TransceiverTemperature\":0,"
            "\"SupplyVottage\":0,\"BiasCurrent\":0}");
}

TEST_F(AccessInfoQueryService, PhyStatusPrintsExtremeWordsSigned) {
  sim_set("pon", "TXPower", "-2147483648");
  sim_set("pon", "BiasCurrent", "2147483647");
  std::string reply = text(NATIVE(getPONIfPhyStatusJni)(env(), self()));
  EXPECT_EQ(reply,
            "{\"Result\":0,\"TXPower\":-2147483648,\"RXPower\":0,\"TransceiverTemperature\":0,"
            "\"SupplyVottage\":0,\"BiasCurrent\":2147483647}");
}

TEST_F(AccessInfoQueryService, PhyStatusTracesItsReply) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  std::string reply = text(NATIVE(getPONIfPhyStatusJni)(env(), self()));
  EXPECT_EQ(mask_line_numbers(out.finish()),
            trace_of("getPONIfPhyStatusJni", "getPONIfPhyStatusJni: return json = " + reply +
                                                 "   leave============>\n"));
}

// ---- PON uptime and registration ----

TEST_F(AccessInfoQueryService, UpTimeIsThePlatformsValueUnchanged) {
  sim_set("pon", "Duration", "172800");
  EXPECT_EQ(NATIVE(getPONIfUpTimeJni)(env(), self()), 172800);
  sim_program_result("brelo_ponGetDuration", -7);
  EXPECT_EQ(NATIVE(getPONIfUpTimeJni)(env(), self()), -7);
  EXPECT_EQ(log(), "brelo_ponGetDuration()\nbrelo_ponGetDuration()\n");
}

TEST_F(AccessInfoQueryService, UpTimeTracesItsCode) {
  sim_set("pon", "Duration", "99");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(getPONIfUpTimeJni)(env(), self());
  EXPECT_EQ(mask_line_numbers(out.finish()),
            trace_of("getPONIfUpTimeJni",
                     "getPONIfUpTimeJni: return code = 99   leave============>\n"));
}

TEST_F(AccessInfoQueryService, RegisterStatusNamesEveryState) {
  const char *names[] = {"NO_REG_NO_AUTH", "REG_NO_AUTH", "REG_AUTH"};
  for (int code = 0; code < 3; ++code) {
    sim_program_result("brelo_ponGetRegInfo", code);
    EXPECT_EQ(text(NATIVE(getPONIfRegisterStatusJni)(env(), self())),
              std::string("{\"Result\":0,\"RegisterStatus\":\"") + names[code] + "\"}");
  }
  EXPECT_EQ(sim_log_count("brelo_ponGetRegInfo"), 3);
}

TEST_F(AccessInfoQueryService, RegisterStatusOfAnUnknownCodeIsEmpty) {
  for (int code : {3, -1, 1000000}) {
    sim_program_result("brelo_ponGetRegInfo", code);
    EXPECT_EQ(text(NATIVE(getPONIfRegisterStatusJni)(env(), self())),
              "{\"Result\":0,\"RegisterStatus\":\"\"}")
        << code;
  }
}

TEST_F(AccessInfoQueryService, RegisterStatusTracesItsReply) {
  sim_set("pon", "RegisterState", "2");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(getPONIfRegisterStatusJni)(env(), self());
  EXPECT_EQ(mask_line_numbers(out.finish()),
            trace_of("getPONIfRegisterStatusJni",
                     "getPONIfRegisterStatusJni: return json = "
                     "{\"Result\":0,\"RegisterStatus\":\"REG_AUTH\"}   leave============>\n"));
}

// ---- uplink counters ----

TEST_F(AccessInfoQueryService, UplinkStatsPrintsBothCountersUnsigned64) {
  sim_set("pon", "UsStats", "81234567890");
  sim_set("pon", "DsStats", "912345678901");
  EXPECT_EQ(text(NATIVE(getUplinkIfStatsJni)(env(), self())),
            "{\"Result\":0,\"UsStats\":81234567890,\"DsStats\":912345678901}");
  EXPECT_EQ(log(), "brelo_ponGetUplinkIfStats()\n");
}

TEST_F(AccessInfoQueryService, UplinkStatsIgnoresThePlatformsResult) {
  sim_program_result("brelo_ponGetUplinkIfStats", -1);
  EXPECT_EQ(text(NATIVE(getUplinkIfStatsJni)(env(), self())),
            "{\"Result\":0,\"UsStats\":0,\"DsStats\":0}");
}

TEST_F(AccessInfoQueryService, UplinkStatsTooLongForTheSixtyFourByteReplyIsCut) {
  sim_set("pon", "UsStats", "18446744073709551615");
  sim_set("pon", "DsStats", "18446744073709551615");
  std::string full =
      "{\"Result\":0,\"UsStats\":18446744073709551615,\"DsStats\":18446744073709551615}";
  // The hardened profile answers the failure reply instead of a cut one.
  EXPECT_EQ(text(NATIVE(getUplinkIfStatsJni)(env(), self())),
            bundle::hardened_profile() ? "{\"Result\":-1}" : full.substr(0, 63));
}

// ---- WAN list ----

TEST_F(AccessInfoQueryService, WanListIsOrderedByIndexNotByThePlatformsOrder) {
  add_wan(3, 2, 0, "3_OTHER_B_VID_45");
  add_wan(1, 0, 0, "1_TR069_R_VID_46");
  add_wan(2, 1, 0, "2_INTERNET_R_VID_41");
  EXPECT_EQ(text(NATIVE(getWANIfListJni)(env(), self())),
            "{\"Result\":0,\"List\":[{\"Index\":1,\"Name\":\"1_TR069_R_VID_46\"},"
            "{\"Index\":2,\"Name\":\"2_INTERNET_R_VID_41\"},"
            "{\"Index\":3,\"Name\":\"3_OTHER_B_VID_45\"}]}");
  EXPECT_EQ(log(), "brelo_wanGetIfList()\n");
}

TEST_F(AccessInfoQueryService, WanListEmptyOnSuccess) {
  EXPECT_EQ(text(NATIVE(getWANIfListJni)(env(), self())), "{\"Result\":0,\"List\":[]}");
}

TEST_F(AccessInfoQueryService, WanListWithAnIndexOutsideOneToEightKeepsATrailingComma) {
  add_wan(2, 1, 0, "2_INTERNET_R_VID_41");
  add_wan(12, 11, 0, "12_OTHER_R_VID_12");
  // The hardened profile separates only the elements shown: valid JSON.
  EXPECT_EQ(text(NATIVE(getWANIfListJni)(env(), self())),
            bundle::hardened_profile() ? "{\"Result\":0,\"List\":[{\"Index\":2,\"Name\":\"2_INTERNET_R_VID_41\"}]}"
                 : "{\"Result\":0,\"List\":[{\"Index\":2,\"Name\":\"2_INTERNET_R_VID_41\"},]}");
}

TEST_F(AccessInfoQueryService, WanListNeverShowsIndexZeroOrNine) {
  add_wan(0, 0, 0, "zero");
  add_wan(9, 9, 0, "nine");
  add_wan(8, 8, 0, "eight");
  // Two elements that are never shown: the only one shown is followed by a comma.
  EXPECT_EQ(text(NATIVE(getWANIfListJni)(env(), self())),
            bundle::hardened_profile() ? "{\"Result\":0,\"List\":[{\"Index\":8,\"Name\":\"eight\"}]}"
                 : "{\"Result\":0,\"List\":[{\"Index\":8,\"Name\":\"eight\"},]}");
}

TEST_F(AccessInfoQueryService, WanListShowsARepeatedIndexOnceAndKeepsATrailingComma) {
  add_wan(2, 1, 0, "first");
  add_wan(4, 3, 0, "four");
  // "wan 02" is listed by the platform as index 2 as well.
  sim_set("wan 02", "PVC", "5");
  sim_set("wan 02", "Name", "second");
  EXPECT_EQ(text(NATIVE(getWANIfListJni)(env(), self())),
            bundle::hardened_profile() ? "{\"Result\":0,\"List\":[{\"Index\":2,\"Name\":\"first\"},"
                   "{\"Index\":4,\"Name\":\"four\"}]}"
                 : "{\"Result\":0,\"List\":[{\"Index\":2,\"Name\":\"first\"},"
                   "{\"Index\":4,\"Name\":\"four\"},]}");
}

TEST_F(AccessInfoQueryService, WanListNameFillingItsFieldIsShownWhole) {
  add_wan(1, 0, 0, std::string(40, 'n'));  // the platform keeps 31 characters
  EXPECT_EQ(text(NATIVE(getWANIfListJni)(env(), self())),
            "{\"Result\":0,\"List\":[{\"Index\":1,\"Name\":\"" + std::string(31, 'n') + "\"}]}");
}

TEST_F(AccessInfoQueryService, WanListWithoutAListIsParameterNullWithoutTrace) {
  sim_set("wan_common", "list_unavailable", "1");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(text(NATIVE(getWANIfListJni)(env(), self())), kParameterNull);
  EXPECT_EQ(out.finish(), "");
}

TEST_F(AccessInfoQueryService, WanListOfAFailedCallIsParameterNullAndTheListIsFreed) {
  add_wan(1, 0, 0, "1_TR069_R_VID_46");
  sim_program_result("brelo_wanGetIfList", 1);
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(text(NATIVE(getWANIfListJni)(env(), self())), kParameterNull);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            trace_of("getWANIfListJni", std::string("getWANIfListJni: return json = ") +
                                            kParameterNull + "   leave============>\n"));
}

TEST_F(AccessInfoQueryService, WanListTracesItsReply) {
  add_wan(1, 0, 0, "w");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(getWANIfListJni)(env(), self());
  EXPECT_EQ(mask_line_numbers(out.finish()),
            trace_of("getWANIfListJni",
                     "getWANIfListJni: return json = {\"Result\":0,\"List\":[{\"Index\":1,"
                     "\"Name\":\"w\"}]}   leave============>\n"));
}

// ---- WAN counters ----

TEST_F(AccessInfoQueryService, WanStatsPrintsBothCounters) {
  add_wan(2, 1, 0, "w");
  set_wan(2, "UsStats", "18446744073709551615");
  set_wan(2, "DsStats", "912345678901");
  EXPECT_EQ(text(NATIVE(getWANIfStatsJni)(env(), self(), 2)),
            "{\"Result\":0,\"UsStats\":18446744073709551615,\"DsStats\":912345678901}");
  EXPECT_EQ(log(), "brelo_wanGetIfPackageStats(2)\n");
}

TEST_F(AccessInfoQueryService, WanStatsRefusedIsParameterError) {
  EXPECT_EQ(text(NATIVE(getWANIfStatsJni)(env(), self(), 7)), kParameterError);
  add_wan(2, 1, 0, "w");
  sim_program_result("brelo_wanGetIfPackageStats", 3);
  EXPECT_EQ(text(NATIVE(getWANIfStatsJni)(env(), self(), 2)), kParameterError);
  EXPECT_EQ(log(), "brelo_wanGetIfPackageStats(7)\nbrelo_wanGetIfPackageStats(2)\n");
}

TEST_F(AccessInfoQueryService, WanStatsTracesItsReply) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(getWANIfStatsJni)(env(), self(), 7);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            trace_of("getWANIfStatsJni", std::string("getWANIfStatsJni: return json = ") +
                                             kParameterError + "   leave============>\n"));
}

// ---- bandwidth ----

TEST_F(AccessInfoQueryService, BandwidthOfIndexOneIsAccepted) {
  add_wan(1, 0, 0, "w");
  set_wan(1, "UsBandwidth", "2048");
  set_wan(1, "DsBandwidth", "4096");
  EXPECT_EQ(text(NATIVE(getWanIfBandwidthJni)(env(), self(), 1)),
            "{\"Result\":0,\"UsBandwidth\":\"2048\",\"DsBandwidth\":\"4096\"}");
  EXPECT_EQ(log(), "brelo_wanGetIfBandwidth(1)\n");
}

TEST_F(AccessInfoQueryService, BandwidthBelowOneIsRefusedWithoutAPlatformCall) {
  for (int index : {0, -1, -2147483647 - 1}) {
    EXPECT_EQ(text(NATIVE(getWanIfBandwidthJni)(env(), self(), index)),
              "{\"Result\":-1,\"FailReason\":\"parameter WanIndex must greater than 1\"}")
        << index;
  }
  EXPECT_EQ(log(), "");
}

TEST_F(AccessInfoQueryService, BandwidthIgnoresThePlatformsResult) {
  sim_program_result("brelo_wanGetIfBandwidth", -1);
  EXPECT_EQ(text(NATIVE(getWanIfBandwidthJni)(env(), self(), 5)),
            "{\"Result\":0,\"UsBandwidth\":\"\",\"DsBandwidth\":\"\"}");
}

TEST_F(AccessInfoQueryService, BandwidthTextsStayWithinTheirBuffers) {
  add_wan(1, 0, 0, "w");
  set_wan(1, "UsBandwidth", std::string(300, 'u'));
  EXPECT_EQ(text(NATIVE(getWanIfBandwidthJni)(env(), self(), 1)),
            "{\"Result\":0,\"UsBandwidth\":\"" + std::string(127, 'u') +
                "\",\"DsBandwidth\":\"\"}");
}

TEST_F(AccessInfoQueryService, BandwidthTracesItsReply) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(getWanIfBandwidthJni)(env(), self(), 0);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            trace_of("getWanIfBandwidthJni",
                     "getWanIfBandwidthJni: return json = {\"Result\":-1,\"FailReason\":"
                     "\"parameter WanIndex must greater than 1\"}   leave============>\n"));
}

// ---- WAN information ----

class WanInfo : public AccessInfoQueryService {
 protected:
  void SetUp() override {
    AccessInfoQueryService::SetUp();
    add_wan(2, 1, 3, "2_INTERNET_R_VID_41");
    const std::pair<const char *, const char *> values[] = {
        {"LanInterface", "LAN1,LAN2,SSID1"},
        {"VLANMode", "2"},
        {"VLANIDMark", "41"},
        {"802-1pMark", "5"},
        {"MulticastVlan", "45"},
        {"LanInterface-DHCPEnable", "1"},
        {"IPMode", "3"},
        {"ConnectionType", "4"},
        {"NATEnabled", "1"},
        {"Username", "lmr0755123456"},
        {"AddressingType", "1"},
        {"ExternalIPAddress", "100.64.23.141"},
        {"SubnetMask", "255.255.255.255"},
        {"DefaultGateway", "100.64.0.1"},
        {"DNSEnabled", "1"},
        {"DNSServers", "202.96.128.86,202.96.134.33"},
        {"MACAddress", "00:1A:2B:3C:4D:62"},
        {"ConnectionTrigger", "1"},
        {"IPv6IPAddressOrigin", "2"},
        {"IPv6IPAddress", "240e:3a1::1"},
        {"IPv6DNSServers", "240e:1f:1::1"},
        {"IPv6PrefixDelegationEnabled", "1"},
        {"IPv6PrefixOrigin", "1"},
        {"IPv6Prefix", "240e:3a1::/60"},
        {"IPv6PrefixPltime", "172800"},
        {"IPv6PrefixVltime", "-1"},
        {"IPv6DefaultGateway", "fe80::1"},
        {"IPv6DsliteEnable", "1"},
        {"IPv6AftrMode", "1"},
        {"IPv6AftrAddress", "aftr.example"},
        {"ServiceList", "INTERNET"},
    };
    for (const auto &v : values) set_wan(2, v.first, v.second);
  }
};

const char kInfoReply[] =
    "{\"Result\":0,\"LanInterface\":\"LAN1,LAN2,SSID1\",\"VLANMode\":\"2\",\"VLANIDMark\":\"41\","
    "\"802-1pMark\":\"5\",\"MulticastVlan\":\"45\",\"LanInterface-DHCPEnable\":\"TRUE\","
    "\"IPMode\":\"3\",\"ConnectionType\":\"PPPoE_Routed\",\"NATEnabled\":\"TRUE\","
    "\"Username\":\"lmr0755123456\",\"AddressingType\":\"DHCP\","
    "\"ExternalIPAddress\":\"100.64.23.141\",\"SubnetMask\":\"255.255.255.255\","
    "\"DefaultGateway\":\"100.64.0.1\",\"DNSEnabled\":\"TRUE\","
    "\"DNSServers\":\"202.96.128.86,202.96.134.33\",\"MACAddress\":\"00:1A:2B:3C:4D:62\","
    "\"ConnectionTrigger\":\"AlwaysOn\",\"IPv6IPAddressOrigin\":\"AutoConfigured\","
    "\"IPv6IPAddress\":\"240e:3a1::1\",\"IPv6DNSServers\":\"240e:1f:1::1\","
    "\"IPv6PrefixDelegationEnabled\":\"TRUE\",\"IPv6PrefixOrigin\":\"PrefixDelegation\","
    "\"IPv6Prefix\":\"240e:3a1::/60\",\"IPv6PrefixPltime\":\"172800\","
    "\"IPv6PrefixVltime\":\"-1\",\"IPv6DefaultGateway\":\"fe80::1\","
    "\"IPv6DsliteEnable\":\"TRUE\",\"IPv6AftrMode\":\"1\",\"IPv6AftrAddress\":\"aftr.example\","
    "\"ServiceList\":\"INTERNET\"}";

TEST_F(WanInfo, ReportsEveryMemberAsAString) { EXPECT_EQ(info(2), kInfoReply); }

TEST_F(WanInfo, CallsTheGettersInOrderWithPvcAndEntry) {
  info(2);
  const char *getters[] = {
      "brelo_wanGetLanInterface", "brelo_wanGetVlanMode", "brelo_wanGetVlanIdMark",
      "brelo_wanGet802_1p_priority", "brelo_wanGetMulticastVlan", "brelo_wanGetDhcpEnable",
      "brelo_wanGetIpMode", "brelo_wanGetConnectionType", "brelo_wanGetNatEnabled",
      "brelo_wanGetUsername", "brelo_wanGetAddressingType", "brelo_wanGetExternalIpAddress",
      "brelo_wanGetSubnetMask", "brelo_wanGetDefaultGateway", "brelo_wanGetDnsEnabled",
      "brelo_wanGetDnsServers", "brelo_wanGetMacAddress", "brelo_wanGetConnectionTrigger",
      "brelo_wanGetIpv6AddressOrigin", "brelo_wanGetIpv6IpAddress",
      "brelo_wanGetIpv6DnsServers", "brelo_wanGetIpv6PrefixDelegationEnabled",
      "brelo_wanGetIpv6PrefixOrigin", "brelo_wanGetIpv6Prefix", "brelo_wanGetIpv6PrefixPltime",
      "brelo_wanGetIpv6PrefixVltime", "brelo_wanGetIpv6DefaultGateway",
      "brelo_wanGetIpv6DsliteEnable", "brelo_wanGetIpv6AftrMode", "brelo_wanGetIpv6AftrAddress",
      "brelo_wanGetServiceList"};
  std::string expected = "brelo_wanGetPvcEntryIndex(2)\n";
  for (const char *g : getters) expected += std::string(g) + "(1, 3)\n";
  EXPECT_EQ(log(), expected);
}

TEST_F(WanInfo, UnknownIndexIsParameterErrorWithoutGetters) {
  EXPECT_EQ(info(5), kParameterError);
  EXPECT_EQ(log(), "brelo_wanGetPvcEntryIndex(5)\n");
}

TEST_F(WanInfo, OnlyMinusOneFromTheIndexLookupIsAFailure) {
  sim_program_result("brelo_wanGetPvcEntryIndex", -2);
  EXPECT_EQ(info(2), kInfoReply);
  sim_program_result("brelo_wanGetPvcEntryIndex", 1);
  EXPECT_EQ(info(2), kInfoReply);
  sim_program_result("brelo_wanGetPvcEntryIndex", -1);
  EXPECT_EQ(info(2), kParameterError);
}

TEST_F(WanInfo, MulticastVlanZeroIsShownAsMinusOne) {
  set_wan(2, "MulticastVlan", "0");
  EXPECT_EQ(member(info(2), "MulticastVlan"), "-1");
  set_wan(2, "MulticastVlan", "-1");
  EXPECT_EQ(member(info(2), "MulticastVlan"), "-1");
  set_wan(2, "MulticastVlan", "4094");
  EXPECT_EQ(member(info(2), "MulticastVlan"), "4094");
}

TEST_F(WanInfo, FlagsAreTrueOnlyForOne) {
  const char *flags[] = {"LanInterface-DHCPEnable", "NATEnabled", "DNSEnabled",
                         "IPv6PrefixDelegationEnabled", "IPv6DsliteEnable"};
  for (const char *value : {"0", "2", "-1"}) {
    for (const char *f : flags) set_wan(2, f, value);
    std::string reply = info(2);
    for (const char *f : flags) EXPECT_EQ(member(reply, f), "FALSE") << f << "=" << value;
  }
}

TEST_F(WanInfo, AftrModeIsOneOrZero) {
  set_wan(2, "IPv6AftrMode", "2");
  EXPECT_EQ(member(info(2), "IPv6AftrMode"), "0");
  set_wan(2, "IPv6AftrMode", "0");
  EXPECT_EQ(member(info(2), "IPv6AftrMode"), "0");
}

TEST_F(WanInfo, EveryTableTextForEveryCode) {
  struct Table {
    const char *key;
    std::vector<const char *> texts;
  };
  const Table tables[] = {
      {"ConnectionType",
       {"", "IP_Routed", "IP_Bridged", "PPPoE_Bridged", "PPPoE_Routed", "PPPoE_Hybrid"}},
      {"AddressingType", {"", "DHCP", "Static"}},
      {"ConnectionTrigger", {"", "AlwaysOn", "OnDemand", "Manual"}},
      {"IPv6IPAddressOrigin", {"None", "DHCPv6", "AutoConfigured", "Static"}},
      {"IPv6PrefixOrigin", {"None", "PrefixDelegation", "RouterAdvertisement", "Static"}},
  };
  for (const Table &t : tables) {
    for (size_t code = 0; code < t.texts.size(); ++code) {
      set_wan(2, t.key, std::to_string(code));
      EXPECT_EQ(member(info(2), t.key), t.texts[code]) << t.key << " " << code;
    }
    // A code beyond the table reads as the empty text.
    for (long code : {static_cast<long>(t.texts.size()), -1L, 2147483647L}) {
      set_wan(2, t.key, std::to_string(code));
      EXPECT_EQ(member(info(2), t.key), "") << t.key << " " << code;
    }
    set_wan(2, t.key, "1");
  }
}

TEST_F(WanInfo, GettersThatWriteNothingGiveZeroAndTheTablesFirstEntry) {
  sim_reset();
  add_wan(6, 5, 0, "bare");
  EXPECT_EQ(info(6),
            "{\"Result\":0,\"LanInterface\":\"\",\"VLANMode\":\"0\",\"VLANIDMark\":\"0\","
            "\"802-1pMark\":\"0\",\"MulticastVlan\":\"-1\",\"LanInterface-DHCPEnable\":\"FALSE\","
            "\"IPMode\":\"0\",\"ConnectionType\":\"\",\"NATEnabled\":\"FALSE\",\"Username\":\"\","
            "\"AddressingType\":\"\",\"ExternalIPAddress\":\"\",\"SubnetMask\":\"\","
            "\"DefaultGateway\":\"\",\"DNSEnabled\":\"FALSE\",\"DNSServers\":\"\","
            "\"MACAddress\":\"\",\"ConnectionTrigger\":\"\",\"IPv6IPAddressOrigin\":\"None\","
            "\"IPv6IPAddress\":\"\",\"IPv6DNSServers\":\"\","
            "\"IPv6PrefixDelegationEnabled\":\"FALSE\",\"IPv6PrefixOrigin\":\"None\","
            "\"IPv6Prefix\":\"\",\"IPv6PrefixPltime\":\"0\",\"IPv6PrefixVltime\":\"0\","
            "\"IPv6DefaultGateway\":\"\",\"IPv6DsliteEnable\":\"FALSE\",\"IPv6AftrMode\":\"0\","
            "\"IPv6AftrAddress\":\"\",\"ServiceList\":\"\"}");
}

TEST_F(WanInfo, ScratchIntIsResetBeforeEveryGetter) {
  // The platform answers for the PVC/entry pair but writes no ints: every int member starts
  // from 0 again instead of carrying the previous getter's value.
  sim_reset();
  add_wan(2, 1, 3, "w");
  set_wan(2, "VLANMode", "3");
  std::string reply = info(2);
  EXPECT_EQ(member(reply, "VLANMode"), "3");
  EXPECT_EQ(member(reply, "VLANIDMark"), "0");
}

TEST_F(WanInfo, OverLongPlatformTextsAreCutAtEachMembersCapacity) {
  const std::pair<const char *, size_t> texts[] = {
      {"LanInterface", 128},       {"Username", 64},        {"ExternalIPAddress", 32},
      {"SubnetMask", 32},          {"DefaultGateway", 32},  {"DNSServers", 65},
      {"MACAddress", 64},          {"IPv6IPAddress", 64},   {"IPv6DNSServers", 129},
      {"IPv6Prefix", 65},          {"IPv6DefaultGateway", 64}, {"IPv6AftrAddress", 120},
      {"ServiceList", 128},
  };
  for (const auto &t : texts) set_wan(2, t.first, std::string(300, 'x'));
  std::string reply = info(2);
  for (const auto &t : texts)
    EXPECT_EQ(member(reply, t.first), std::string(t.second - 1, 'x')) << t.first;
  // Everything else is untouched by the long texts.
  EXPECT_EQ(member(reply, "VLANMode"), "2");
  EXPECT_EQ(member(reply, "IPv6AftrMode"), "1");
  EXPECT_LT(reply.size(), 4096u);
  EXPECT_EQ(reply.substr(reply.size() - 2), "\"}");
}

TEST_F(WanInfo, NumbersAreCutAtTheirMembersCapacity) {
  // Four bytes hold a VLAN mode of up to three characters.
  set_wan(2, "VLANMode", "12345");
  set_wan(2, "VLANIDMark", "-2147483648");
  EXPECT_EQ(member(info(2), "VLANMode"), "123");
  EXPECT_EQ(member(info(2), "VLANIDMark"), "-2147483648");
}

TEST_F(WanInfo, TextsAreNotEscaped) {
  set_wan(2, "Username", "a\"b\\c");
  // Escaped in the hardened profile.
  EXPECT_NE(info(2).find(bundle::hardened_profile() ? "\"Username\":\"a\\\"b\\\\c\","
                            : "\"Username\":\"a\"b\\c\","),
            std::string::npos);
}

TEST_F(WanInfo, TracesItsReply) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  info(2);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            trace_of("getWANIfInfoJni", std::string("getWANIfInfoJni: return json = ") +
                                            kInfoReply + "   leave============>\n"));
}

TEST_F(WanInfo, TracesTheParameterError) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  info(9);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            trace_of("getWANIfInfoJni", std::string("getWANIfInfoJni: return json = ") +
                                            kParameterError + "   leave============>\n"));
}

// ---- WAN status ----

TEST_F(AccessInfoQueryService, StatusReportsUptimeAndTheThreeCodes) {
  add_wan(4, 3, 2, "w");
  set_wan(4, "Uptime", "3550");
  set_wan(4, "ConnectionStatus", "3");
  set_wan(4, "IPv6ConnStatus", "2");
  set_wan(4, "LastConnectionError", "3");
  EXPECT_EQ(status(4),
            "{\"Result\":0,\"Uptime\":\"3550\",\"ConnectionStatus\":\"Disconnected\","
            "\"IPv6ConnStatus\":\"Connected\",\"LastConnectionError\":\"ERROR_ISP_TIME_OUT\"}");
  EXPECT_EQ(log(),
            "brelo_wanGetPvcEntryIndex(4)\nbrelo_wanGetUptime(3, 2)\n"
            "brelo_wanGetIpv4ConnStatus(3, 2)\nbrelo_wanGetIpv6ConnStatus(3, 2)\n"
            "brelo_wanGetLastConnectionError(3, 2)\n");
}

TEST_F(AccessInfoQueryService, StatusOfAnUnknownIndexIsParameterError) {
  EXPECT_EQ(status(3), kParameterError);
  EXPECT_EQ(log(), "brelo_wanGetPvcEntryIndex(3)\n");
}

TEST_F(AccessInfoQueryService, StatusNamesEveryCode) {
  add_wan(1, 0, 0, "w");
  const char *statuses[] = {"Unconfigured", "Connecting", "Connected", "Disconnected"};
  for (int code = 0; code < 4; ++code) {
    set_wan(1, "ConnectionStatus", std::to_string(code));
    set_wan(1, "IPv6ConnStatus", std::to_string(code));
    std::string reply = status(1);
    EXPECT_EQ(member(reply, "ConnectionStatus"), statuses[code]);
    EXPECT_EQ(member(reply, "IPv6ConnStatus"), statuses[code]);
  }
  const char *errors[] = {"ERROR_NONE",           "ERROR_UNKNOWN",
                          "ERROR_AUTHENTICATION_FAILURE", "ERROR_ISP_TIME_OUT",
                          "ERROR_SERVER_OUT_OF_RESOURCES", "ERROR_ISP_DISCONNECT"};
  for (int code = 0; code < 6; ++code) {
    set_wan(1, "LastConnectionError", std::to_string(code));
    EXPECT_EQ(member(status(1), "LastConnectionError"), errors[code]);
  }
}

TEST_F(AccessInfoQueryService, StatusCodesOutsideTheTablesAreEmpty) {
  add_wan(1, 0, 0, "w");
  set_wan(1, "Uptime", "-5");
  set_wan(1, "ConnectionStatus", "4");
  set_wan(1, "IPv6ConnStatus", "-1");
  set_wan(1, "LastConnectionError", "6");
  EXPECT_EQ(status(1),
            "{\"Result\":0,\"Uptime\":\"-5\",\"ConnectionStatus\":\"\","
            "\"IPv6ConnStatus\":\"\",\"LastConnectionError\":\"\"}");
}

TEST_F(AccessInfoQueryService, StatusGettersThatWriteNothingGiveTheFirstEntries) {
  add_wan(1, 0, 0, "w");
  EXPECT_EQ(status(1),
            "{\"Result\":0,\"Uptime\":\"0\",\"ConnectionStatus\":\"Unconfigured\","
            "\"IPv6ConnStatus\":\"Unconfigured\",\"LastConnectionError\":\"ERROR_NONE\"}");
}

TEST_F(AccessInfoQueryService, StatusTracesItsReply) {
  add_wan(1, 0, 0, "w");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  std::string reply = status(1);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            trace_of("getWANIfStatusJni",
                     "getWANIfStatusJni: return json = " + reply + "   leave============>\n"));
}

// ---- Internet WAN ----

TEST_F(AccessInfoQueryService, InternetWanIndexIsThePlatformsValueUnchanged) {
  sim_set("wan_common", "internet_index", "2");
  EXPECT_EQ(NATIVE(getInternetWANIndexJni)(env(), self()), 2);
  sim_program_result("brelo_wanGetInternetWANIndex", -1);
  EXPECT_EQ(NATIVE(getInternetWANIndexJni)(env(), self()), -1);
  EXPECT_EQ(log(), "brelo_wanGetInternetWANIndex()\nbrelo_wanGetInternetWANIndex()\n");
}

TEST_F(AccessInfoQueryService, InternetWanIndexTracesItsCode) {
  sim_set("wan_common", "internet_index", "4");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(getInternetWANIndexJni)(env(), self());
  EXPECT_EQ(mask_line_numbers(out.finish()),
            trace_of("getInternetWANIndexJni",
                     "getInternetWANIndexJni: return code = 4   leave============>\n"));
}

// ---- the default gateway ----

TEST_F(AccessInfoQueryService, DefaultGatewayHasALineAndFourConnections) {
  ASSERT_EQ(sim_load_default(), 0);
  EXPECT_EQ(text(NATIVE(getWANIfListJni)(env(), self())),
            "{\"Result\":0,\"List\":[{\"Index\":1,\"Name\":\"1_TR069_R_VID_46\"},"
            "{\"Index\":2,\"Name\":\"2_INTERNET_R_VID_41\"},"
            "{\"Index\":3,\"Name\":\"3_OTHER_B_VID_45\"},"
            "{\"Index\":4,\"Name\":\"4_INTERNET_R_VID_43\"}]}");
  EXPECT_EQ(NATIVE(getInternetWANIndexJni)(env(), self()), 2);
  EXPECT_EQ(member(info(1), "ServiceList"), "TR069");
  EXPECT_EQ(member(info(1), "MulticastVlan"), "-1");
  EXPECT_EQ(member(info(2), "ConnectionType"), "PPPoE_Routed");
  EXPECT_EQ(member(info(3), "ConnectionType"), "IP_Bridged");
  EXPECT_EQ(member(info(3), "MulticastVlan"), "45");
  EXPECT_EQ(member(info(4), "IPv6DsliteEnable"), "TRUE");
  EXPECT_EQ(member(info(4), "IPv6AftrAddress"), "aftr.lumarest.example");
  EXPECT_EQ(text(NATIVE(getPONIfRegisterStatusJni)(env(), self())),
            "{\"Result\":0,\"RegisterStatus\":\"REG_AUTH\"}");
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef NATIVE
