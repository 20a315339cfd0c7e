// com.lumarest.smartgateway.accessservices.WanConfigServiceImp
#include <stddef.h>
#include <string.h>

#include <string>

#include "common/platform_wan.h"
#include "common/hardened.h"
#include "tests/test_support.h"

#define NATIVE(m) Java_com_lumarest_smartgateway_accessservices_WanConfigServiceImp_##m
extern "C" {
jint NATIVE(addWANIfJni)(JNIEnv *, jobject, jstring, jstring, jstring);
jint NATIVE(setWANIfJni)(JNIEnv *, jobject, jint, jstring);
jint NATIVE(deleteWANIfJni)(JNIEnv *, jobject, jint);
jstring Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfListJni(
    JNIEnv *, jobject);
jstring Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfInfoJni(
    JNIEnv *, jobject, jint);
jint Java_com_lumarest_smartgateway_addressservices_PortMappingConfigServiceImp_addPortMappingJni(
    JNIEnv *, jobject, jint, jint, jint, jstring, jstring);
jstring Java_com_lumarest_smartgateway_addressservices_PortMappingQueryServiceImp_getPortMappingInfoJni(
    JNIEnv *, jobject);
}

namespace wan_config_service_test {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const std::string kPrefix = "Java_com_lumarest_smartgateway_accessservices_WanConfigServiceImp_";

class WanConfigService : public testsupport::BridgeTest {
 protected:
  void add_wan(int index, int pvc) {
    std::string s = "wan " + std::to_string(index);
    sim_set(s.c_str(), "PVC", std::to_string(pvc).c_str());
    sim_set(s.c_str(), "Entry", "0");
    sim_set(s.c_str(), "Name", ("wan" + std::to_string(index)).c_str());
  }
  std::string wan(int index, const char *key) {
    const char *v = sim_get(("wan " + std::to_string(index)).c_str(), key);
    return v != nullptr ? v : "<absent>";
  }
  jint add(jstring mode, jstring vid, jstring type) {
    return NATIVE(addWANIfJni)(env(), self(), mode, vid, type);
  }
  jint add(const std::string &mode, const std::string &vid, const std::string &type) {
    jstring m = jvm().str(mode);  // made in order: s1, s2, s3
    jstring v = jvm().str(vid);
    jstring t = jvm().str(type);
    return add(m, v, t);
  }
  jint set(jint index, const std::string &json) {
    return NATIVE(setWANIfJni)(env(), self(), index, jvm().str(json));
  }
  std::string list() {
    return text(
        Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfListJni(
            env(), self()));
  }
};

// ---- addWANIfJni ----

TEST_F(WanConfigService, AddReturnsTheNewWanIdAndTheListShowsIt) {
  add_wan(1, 0);
  EXPECT_EQ(add("2", "41", "IP_Routed"), 2);
  EXPECT_EQ(log(), "brelo_wanAddIf(\"2\", \"41\", \"IP_Routed\")\n");
  EXPECT_EQ(list(), "{\"Result\":0,\"List\":[{\"Index\":1,\"Name\":\"wan1\"},"
                    "{\"Index\":2,\"Name\":\"2_INTERNET_R_VID_41\"}]}");
  EXPECT_EQ(wan(2, "VLANIDMark"), "41");
  EXPECT_EQ(wan(2, "ConnectionType"), "1");
}

TEST_F(WanConfigService, AddBorrowsAndReleasesEachTextInTurn) {
  add("2", "41", "PPPoE_Bridged");
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\n"
            "GetStringUTFChars(s2)\nReleaseStringUTFChars(s2)\n"
            "GetStringUTFChars(s3)\nReleaseStringUTFChars(s3)\n");
}

TEST_F(WanConfigService, AddPassesThePlatformsResultThrough) {
  sim_program_result("brelo_wanAddIf", 7);
  EXPECT_EQ(add("2", "41", "IP_Routed"), 7);
  sim_program_result("brelo_wanAddIf", -1);
  EXPECT_EQ(add("2", "41", "IP_Routed"), -1);
  EXPECT_EQ(sim_log_count("brelo_wanAddIf"), 2);
}

TEST_F(WanConfigService, AddOfATextThatCannotBeHadIsMinusOneAtOnce) {
  jstring mode = jvm().failing_str();
  jstring vid = jvm().str("41");
  jstring type = jvm().str("IP_Routed");
  EXPECT_EQ(add(mode, vid, type), -1);
  EXPECT_EQ(jvm().events_text(), "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1,NULL)\n");
  EXPECT_EQ(log(), "");
}

TEST_F(WanConfigService, AddOfALaterTextThatCannotBeHadReleasesTheEarlierOnes) {
  jstring mode = jvm().str("2");
  jstring vid = jvm().str("41");
  jstring type = jvm().failing_str();
  EXPECT_EQ(add(mode, vid, type), -1);
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\n"
            "GetStringUTFChars(s2)\nReleaseStringUTFChars(s2)\n"
            "GetStringUTFChars(s3)\nReleaseStringUTFChars(s3,NULL)\n");
  EXPECT_EQ(log(), "");
}

TEST_F(WanConfigService, AddOfANullStringIsMinusOne) {
  EXPECT_EQ(add(jvm().str("2"), nullptr, jvm().str("IP_Routed")), -1);
  EXPECT_EQ(log(), "");
}

TEST_F(WanConfigService, AddAcceptsThirtyOneCharactersAndRefusesThirtyTwo) {
  sim_program_result("brelo_wanAddIf", 3);
  std::string longest(31, '7');
  EXPECT_EQ(add("2", longest, "IP_Routed"), 3);
  EXPECT_EQ(log(), "brelo_wanAddIf(\"2\", \"" + longest + "\", \"IP_Routed\")\n");
  sim_clear_log();
  for (int which = 0; which < 3; ++which) {
    std::string texts[] = {"2", "41", "IP_Routed"};
    texts[which] = std::string(32, 'x');
    EXPECT_EQ(add(texts[0], texts[1], texts[2]), -1) << which;
  }
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().outstanding(), 0);
}

TEST_F(WanConfigService, AddTracesTheAddedWanId) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  add("2", "41", "IP_Routed");
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kPrefix + "addWANIfJni:N:addWANIfJni: added wan id = 1   leave============>\n");
}

TEST_F(WanConfigService, AddRefusalTracesMinusOne) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  add("2", std::string(40, '4'), "IP_Routed");
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kPrefix + "addWANIfJni:N:addWANIfJni: return code = -1   leave============>\n");
}

// ---- setWANIfJni ----

TEST_F(WanConfigService, SetParsesThenAppliesTheChange) {
  add_wan(2, 1);
  const std::string json =
      "{\"Username\":\"lmr0755999999\",\"Password\":\"s3cret\",\"VLANIDMark\":\"42\","
      "\"NATEnabled\":\"TRUE\",\"ConnectionTrigger\":\"OnDemand\"}";
  EXPECT_EQ(set(2, json), 0);
  EXPECT_EQ(log(), "brelo_wanParseIfInfoParam(\"" + json + "\")\nbrelo_wanSetIf(2)\n");
  EXPECT_EQ(wan(2, "Username"), "lmr0755999999");
  EXPECT_EQ(wan(2, "Password"), "s3cret");
  EXPECT_EQ(wan(2, "VLANIDMark"), "42");
  EXPECT_EQ(wan(2, "NATEnabled"), "1");
  EXPECT_EQ(wan(2, "ConnectionTrigger"), "2");
  std::string info = text(
      Java_com_lumarest_smartgateway_accessservices_AccessInfoQueryServiceImp_getWANIfInfoJni(
          env(), self(), 2));
  EXPECT_NE(info.find("\"Username\":\"lmr0755999999\""), std::string::npos) << info;
  EXPECT_NE(info.find("\"ConnectionTrigger\":\"OnDemand\""), std::string::npos) << info;
}

TEST_F(WanConfigService, SetReleasesTheTextBeforeTheChangeIsApplied) {
  add_wan(2, 1);
  set(2, "{}");
  EXPECT_EQ(jvm().events_text(), "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\n");
}

TEST_F(WanConfigService, SetRejectedByTheParserIsMinusOneWithoutSetIf) {
  add_wan(2, 1);
  EXPECT_EQ(set(2, "not json"), -1);
  EXPECT_EQ(set(2, "[1,2]"), -1);
  sim_program_result("brelo_wanParseIfInfoParam", -3);
  EXPECT_EQ(set(2, "{\"VLANIDMark\":\"42\"}"), -1);
  EXPECT_EQ(sim_log_count("brelo_wanParseIfInfoParam"), 3);
  EXPECT_EQ(sim_log_count("brelo_wanSetIf"), 0);
  EXPECT_EQ(jvm().outstanding(), 0);
}

TEST_F(WanConfigService, SetTreatsOnlyANegativeParseResultAsARefusal) {
  add_wan(2, 1);
  sim_program_result("brelo_wanParseIfInfoParam", 1);
  EXPECT_EQ(set(2, "{}"), 0);
  EXPECT_EQ(sim_log_count("brelo_wanSetIf"), 1);
}

TEST_F(WanConfigService, SetOfATextThatCannotBeHadIsMinusOneWithoutPlatformCalls) {
  EXPECT_EQ(NATIVE(setWANIfJni)(env(), self(), 2, jvm().failing_str()), -1);
  EXPECT_EQ(jvm().events_text(), "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1,NULL)\n");
  EXPECT_EQ(NATIVE(setWANIfJni)(env(), self(), 2, nullptr), -1);
  EXPECT_EQ(log(), "");
}

TEST_F(WanConfigService, SetPassesTheIndexAndThePlatformsResultThrough) {
  EXPECT_EQ(set(-5, "{}"), -1);  // the platform knows no such connection
  EXPECT_EQ(log(), "brelo_wanParseIfInfoParam(\"{}\")\nbrelo_wanSetIf(-5)\n");
  add_wan(2, 1);
  sim_program_result("brelo_wanSetIf", 9);
  EXPECT_EQ(set(2, "{}"), 9);
}

TEST_F(WanConfigService, SetTracesEveryMemberThePasswordIncluded) {
  add_wan(2, 1);
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  set(2, "{\"Username\":\"u1\",\"Password\":\"p1\",\"ServiceList\":\"INTERNET\"}");
  std::string trace = mask_line_numbers(out.finish());
  const char *names[] = {"LanInterface", "VLANMode", "VLANIDMark", "802-1pMark", "MulticastVlan",
                         "LanInterface-DHCPEnable", "IPMode", "NATEnabled", "Username",
                         "Password", "AddressingType", "ExternalIPAddress", "SubnetMask",
                         "DefaultGateway", "DNSEnabled", "DNSServers", "MACAddress",
                         "ConnectionTrigger", "IPv6IPAddressOrigin", "IPv6IPAddress",
                         "IPv6DNSServers", "IPv6PrefixDelegationEnabled", "IPv6PrefixOrigin",
                         "IPv6Prefix", "IPv6PrefixPltime", "IPv6PrefixVltime",
                         "IPv6DefaultGateway", "IPv6DsliteEnable", "IPv6AftrMode",
                         "IPv6AftrAddress", "ServiceList"};
  std::string expected;
  for (const char *n : names) {
    std::string value = strcmp(n, "Username") == 0      ? "u1"
                        : strcmp(n, "Password") == 0    ? (bundle::hardened_profile() ? "******" : "p1")
                        : strcmp(n, "ServiceList") == 0 ? "INTERNET"
                                                        : "";
    expected += kPrefix + "setWANIfJni:N:setWANIfJni: " + n + " = " + value + "\n";
  }
  expected += kPrefix + "setWANIfJni:N:setWANIfJni: return code = 0   leave============>\n";
  EXPECT_EQ(trace, expected);
}

TEST_F(WanConfigService, SetTracesAParseRefusal) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  set(2, "{");
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kPrefix + "setWANIfJni:N:setWANIfJni: parse wan info failed, return code = -1   "
                      "leave============>\n");
}

// ---- the simulated parser fills the record at the platform's offsets ----

TEST_F(WanConfigService, SimulatedParserFillsTheChangeRecordAtItsOffsets) {
  WanChangeRecord rec;
  memset(&rec, 0, sizeof rec);
  ASSERT_EQ(brelo_wanParseIfInfoParam(
                "{\"LanInterface\":\"LAN1\",\"Password\":\"pw\",\"IPv6IPAddressOrigin\":\"DHCPv6\","
                "\"VLANIDMark\":42,\"DNSEnabled\":true,\"ServiceList\":\"IPTV\",\"Other\":1}",
                &rec),
            0);
  const char *base = reinterpret_cast<const char *>(&rec);
  EXPECT_STREQ(base + 31, "LAN1");
  EXPECT_STREQ(base + 399, "pw");
  EXPECT_STREQ(base + 895, "DHCPv6");
  EXPECT_STREQ(base + 127, "42");
  EXPECT_STREQ(base + 655, "TRUE");
  EXPECT_STREQ(base + 1584, "IPTV");
  for (size_t i = 0; i < 31; ++i) EXPECT_EQ(base[i], 0) << i;
  // A member too long for its field, or of another type, is refused.
  EXPECT_LT(brelo_wanParseIfInfoParam(("{\"VLANMode\":\"" + std::string(32, '1') + "\"}").c_str(),
                                      &rec),
            0);
  EXPECT_LT(brelo_wanParseIfInfoParam("{\"VLANMode\":[1]}", &rec), 0);
}

// ---- deleteWANIfJni ----

TEST_F(WanConfigService, DeleteBelowOneIsMinusOneWithoutAPlatformCall) {
  EXPECT_EQ(NATIVE(deleteWANIfJni)(env(), self(), 0), -1);
  EXPECT_EQ(NATIVE(deleteWANIfJni)(env(), self(), -3), -1);
  EXPECT_EQ(log(), "");
}

TEST_F(WanConfigService, DeleteOfIndexOneReachesThePlatformAndTheWanIsGone) {
  add_wan(1, 0);
  add_wan(2, 1);
  EXPECT_EQ(NATIVE(deleteWANIfJni)(env(), self(), 1), 0);
  EXPECT_EQ(log(), "brelo_wanDeleteIf(1)\n");
  EXPECT_EQ(list(), "{\"Result\":0,\"List\":[{\"Index\":2,\"Name\":\"wan2\"}]}");
}

TEST_F(WanConfigService, DeletePassesThePlatformsResultThrough) {
  EXPECT_EQ(NATIVE(deleteWANIfJni)(env(), self(), 5), -1);
  sim_program_result("brelo_wanDeleteIf", 4);
  EXPECT_EQ(NATIVE(deleteWANIfJni)(env(), self(), 5), 4);
}

// The simulated gateway keeps its configuration tree in step with its connections: an added
// WAN is in the tree as the default ones are, so it takes port mappings; a change of its
// services shows there; a deleted one leaves the tree with its rules.
TEST_F(WanConfigService, AnAddedWanIsInTheConfigurationTreeAndTakesPortMappings) {
  ASSERT_EQ(sim_load_default(), 0);
  sim_set_save_path(nullptr);
  auto tree = [](const char *node, const char *attr) {
    const char *v = sim_get((std::string("tcapi ") + node).c_str(), attr);
    return std::string(v != nullptr ? v : "<absent>");
  };
  auto map = [&](int wan) {
    return Java_com_lumarest_smartgateway_addressservices_PortMappingConfigServiceImp_addPortMappingJni(
        env(), self(), wan, 8443, 443, jvm().str("TCP"), jvm().str("192.168.1.20"));
  };
  auto mappings = [&] {
    return text(Java_com_lumarest_smartgateway_addressservices_PortMappingQueryServiceImp_getPortMappingInfoJni(
        env(), self()));
  };
  EXPECT_EQ(add("2", "50", "IP_Routed"), 5);
  EXPECT_EQ(tree("WanInfo_Common", "ValidIFIndex"), "0,8,16,24,32");
  EXPECT_EQ(tree("Wan_PVC4", "VLANMode"), "TAG");
  EXPECT_EQ(tree("Wan_PVC4", "VLANID"), "50");
  EXPECT_EQ(tree("Wan_PVC4_Entry0", "IFIdx"), "5");
  EXPECT_EQ(tree("Wan_PVC4_Entry0", "ServiceList"), "INTERNET");
  EXPECT_EQ(tree("Wan_PVC4_Entry0", "WanMode"), "Route");
  EXPECT_EQ(map(5), 0);
  EXPECT_NE(mappings().find("{\"WANName\":\"5_INTERNET_R_VID_50\",\"MapList\":[{\"PortMappingIndex\":1,"
                            "\"PortMappingEnabled\":\"TRUE\",\"ExternalPort\":8443,\"InternalPort\":443,"
                            "\"PortMappingProtocol\":\"TCP\",\"InternalClient\":\"192.168.1.20\"}]}"),
            std::string::npos)
      << mappings();

  // An untagged bridge.
  EXPECT_EQ(add("1", "0", "PPPoE_Bridged"), 6);
  EXPECT_EQ(tree("WanInfo_Common", "ValidIFIndex"), "0,8,16,24,32,40");
  EXPECT_EQ(tree("Wan_PVC5", "VLANMode"), "UNTAG");
  EXPECT_EQ(tree("Wan_PVC5_Entry0", "WanMode"), "Bridge");

  // Made the management WAN, it takes no more rules, like the default one.
  EXPECT_EQ(set(5, "{\"ServiceList\":\"TR069\"}"), 0);
  EXPECT_EQ(tree("Wan_PVC4_Entry0", "ServiceList"), "TR069");
  EXPECT_EQ(map(5), -1);

  EXPECT_EQ(NATIVE(deleteWANIfJni)(env(), self(), 5), 0);
  EXPECT_EQ(tree("WanInfo_Common", "ValidIFIndex"), "0,8,16,24,40");
  EXPECT_EQ(tree("Wan_PVC4_Entry0", "IFIdx"), "<absent>");
  EXPECT_EQ(tree("Wan_PVC4", "VLANID"), "<absent>");
  EXPECT_EQ(tree("VirServer_Entry32_Entry0", "LOCALIP"), "<absent>");
  EXPECT_EQ(map(5), -1);
  EXPECT_EQ(mappings().find("5_INTERNET"), std::string::npos);
  // A default WAN goes the same way; its PVC's node stays while another connection uses it.
  sim_set("wan 7", "PVC", "1");
  sim_set("wan 7", "Entry", "1");
  EXPECT_EQ(NATIVE(deleteWANIfJni)(env(), self(), 2), 0);
  EXPECT_EQ(tree("WanInfo_Common", "ValidIFIndex"), "0,16,24,40");
  EXPECT_EQ(tree("VirServer_Entry8_Entry0", "LOCALIP"), "<absent>");
  EXPECT_EQ(tree("Wan_PVC1", "VLANID"), "41");
}

TEST_F(WanConfigService, DeleteTracesItsCode) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(deleteWANIfJni)(env(), self(), 0);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kPrefix + "deleteWANIfJni:N:deleteWANIfJni: return code = -1   leave============>\n");
}

}  // namespace wan_config_service_test

// Unity builds compile several test files as one unit: the macros end with the file.
#undef NATIVE
