// com.lumarest.smartgateway.addressservices.PortMappingQueryServiceImp
#include <stdlib.h>

#include <string>

#include "tests/test_support.h"

#define NATIVE(m) Java_com_lumarest_smartgateway_addressservices_PortMappingQueryServiceImp_##m
extern "C" {
jstring NATIVE(getPortMappingInfoJni)(JNIEnv *, jobject);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const char kEmpty[] = "{\"Result\":0, \"List\":[]}";

void node_set(const std::string &node, const char *attr, const std::string &value) {
  sim_set(("tcapi " + node).c_str(), attr, value.c_str());
}

void wan(int v, const char *ifidx, const char *service, const char *mode, const char *vlan_mode,
         const char *vlan_id) {
  std::string pvc = "Wan_PVC" + std::to_string(v >> 3);
  std::string entry = pvc + "_Entry" + std::to_string(v & 7);
  node_set(pvc, "VLANMode", vlan_mode);
  node_set(pvc, "VLANID", vlan_id);
  node_set(entry, "IFIdx", ifidx);
  node_set(entry, "ServiceList", service);
  node_set(entry, "WanMode", mode);
}

void rule(int v, int slot, const std::string &protocol, const std::string &ext, const std::string &in,
          const std::string &client, const std::string &active) {
  std::string node = "VirServer_Entry" + std::to_string(v) + "_Entry" + std::to_string(slot);
  node_set(node, "Protocal", protocol);
  node_set(node, "STARTPORT", ext);
  node_set(node, "ENDPORT", ext);
  node_set(node, "INTPORT", in);
  node_set(node, "LOCALIP", client);
  node_set(node, "Active", active);
}

std::string rule_json(int index, const char *enabled, const std::string &ext, const std::string &in,
                      const std::string &protocol, const std::string &client) {
  return "{\"PortMappingIndex\":" + std::to_string(index) + ",\"PortMappingEnabled\":\"" + enabled +
         "\",\"ExternalPort\":" + ext + ",\"InternalPort\":" + in + ",\"PortMappingProtocol\":\"" +
         protocol + "\",\"InternalClient\":\"" + client + "\"}";
}

class PortMappingQuery : public testsupport::BridgeTest {
 protected:
  std::string query() { return text(NATIVE(getPortMappingInfoJni)(env(), self())); }
};

TEST_F(PortMappingQuery, NoValidWanGivesTheEmptyList) {
  EXPECT_EQ(query(), kEmpty);
  EXPECT_EQ(log(), "tcapi_get(\"WanInfo_Common\", \"ValidIFIndex\")\n");
  node_set("WanInfo_Common", "ValidIFIndex", ",,,");
  EXPECT_EQ(query(), kEmpty);
}

TEST_F(PortMappingQuery, ListsTheRulesOfEachWanWithCommasBetweenObjects) {
  node_set("WanInfo_Common", "ValidIFIndex", "0,8,9,16,24");
  wan(0, "1", "TR069", "Route", "TAG", "46");
  wan(8, "2", "INTERNET", "Route", "TAG", "41");
  wan(9, "5", "VOIP", "Route", "TAG", "41");  // no rules: writes nothing
  wan(16, "3", "IPTV", "Bridge", "UNTAG", "45");
  wan(24, "4", "INTERNET", "route", "TAG", "43");  // only "Route" is routed
  rule(0, 0, "TCP", "1", "1", "10.0.0.1", "Yes");  // on the management WAN: never listed
  rule(8, 0, "TCP", "8080", "80", "192.168.1.20", "Yes");
  rule(8, 3, "UDP", "3074", "3074", "192.168.1.33", "yes");
  rule(16, 9, "TCP", "554", "554", "192.168.1.40", "No");
  rule(24, 1, "UDP", "53", "53", "192.168.1.2", "Yes");
  EXPECT_EQ(query(),
            "{\"Result\":0, \"List\":["
            "{\"WANName\":\"2_INTERNET_R_VID_41\",\"MapList\":[" +
                rule_json(1, "TRUE", "8080", "80", "TCP", "192.168.1.20") + "," +
                rule_json(4, "FALSE", "3074", "3074", "UDP", "192.168.1.33") +
                "]},"
                "{\"WANName\":\"3_IPTV_B_VID_\",\"MapList\":[" +
                rule_json(10, "FALSE", "554", "554", "TCP", "192.168.1.40") +
                "]},"
                "{\"WANName\":\"4_INTERNET_B_VID_43\",\"MapList\":[" +
                rule_json(2, "TRUE", "53", "53", "UDP", "192.168.1.2") + "]}]}");
}

TEST_F(PortMappingQuery, ReadsEachWanAndItsSlotsInOrder) {
  node_set("WanInfo_Common", "ValidIFIndex", "0,8");
  wan(0, "1", "TR069", "Route", "TAG", "46");
  wan(8, "2", "INTERNET", "Route", "TAG", "41");
  rule(8, 5, "TCP", "1", "2", "10.0.0.1", "Yes");
  query();
  std::string expected = "tcapi_get(\"WanInfo_Common\", \"ValidIFIndex\")\n";
  for (int v : {0, 8}) {
    std::string pvc = "Wan_PVC" + std::to_string(v >> 3);
    expected += "tcapi_get(\"" + pvc + "\", \"VLANMode\")\ntcapi_get(\"" + pvc + "\", \"VLANID\")\n";
    for (const char *a : {"IFIdx", "ServiceList", "WanMode"})
      expected += "tcapi_get(\"" + pvc + "_Entry0\", \"" + a + "\")\n";
  }
  // The management WAN's slots are never read.
  for (int slot = 0; slot < 10; ++slot) {
    std::string node = "VirServer_Entry8_Entry" + std::to_string(slot);
    expected += "tcapi_get(\"" + node + "\", \"INTPORT\")\n";
    if (slot == 5)
      for (const char *a : {"STARTPORT", "Protocal", "LOCALIP", "Active"})
        expected += "tcapi_get(\"" + node + "\", \"" + a + "\")\n";
  }
  EXPECT_EQ(log(), expected);
}

TEST_F(PortMappingQuery, HidesEveryWanWhoseNameHoldsTR069) {
  node_set("WanInfo_Common", "ValidIFIndex", "8,16");
  wan(8, "2", "TR069_INTERNET", "Route", "TAG", "41");
  wan(16, "TR069", "OTHER", "Route", "TAG", "45");
  rule(8, 0, "TCP", "1", "1", "10.0.0.1", "Yes");
  rule(16, 0, "TCP", "1", "1", "10.0.0.1", "Yes");
  EXPECT_EQ(query(), kEmpty);
}

TEST_F(PortMappingQuery, ListsASlotByItsInternalPortAlone) {
  node_set("WanInfo_Common", "ValidIFIndex", "8");
  wan(8, "2", "INTERNET", "Route", "TAG", "41");
  rule(8, 0, "TCP", "80", "", "10.0.0.1", "Yes");  // a rule to the config natives, not listed here
  node_set("VirServer_Entry8_Entry2", "INTPORT", "22");  // listed although it has no protocol
  node_set("VirServer_Entry8_Entry4", "INTPORT", "x");
  node_set("VirServer_Entry8_Entry4", "STARTPORT", "-7");
  EXPECT_EQ(query(), "{\"Result\":0, \"List\":[{\"WANName\":\"2_INTERNET_R_VID_41\",\"MapList\":[" +
                         rule_json(3, "FALSE", "0", "22", "", "") + "," + rule_json(5, "FALSE", "-7", "0", "", "") +
                         "]}]}");
}

TEST_F(PortMappingQuery, ValuesLongerThanTheirReadBuffersAreCut) {
  node_set("WanInfo_Common", "ValidIFIndex", "8");
  wan(8, std::string(40, '7').c_str(), std::string(50, 'S').c_str(), "Route", "TAG", std::string(40, '9').c_str());
  rule(8, 0, std::string(100, 'P'), "123456789012345678901234567890123", std::string(30, '5'),
       std::string(100, 'C'), "Yes" + std::string(100, 's'));
  // IFIdx cut at 15, ServiceList at 31, VLANID at 15, the name at 63; STARTPORT at 31, INTPORT at
  // 15 digits (numbers beyond int saturate, as the gateway's 32-bit C library reads them),
  // Protocal and LOCALIP at 31.
  std::string name = std::string(15, '7') + "_" + std::string(31, 'S') + "_R_VID_" + std::string(15, '9');
  name = name.substr(0, 63);
  std::string ext = "2147483647";
  std::string in = "2147483647";
  EXPECT_EQ(query(), "{\"Result\":0, \"List\":[{\"WANName\":\"" + name + "\",\"MapList\":[" +
                         rule_json(1, "FALSE", ext, in, std::string(31, 'P'), std::string(31, 'C')) + "]}]}");
}

TEST_F(PortMappingQuery, PortsBeyondTheIntRangeSaturate) {
  node_set("WanInfo_Common", "ValidIFIndex", "8");
  wan(8, "2", "INTERNET", "Route", "TAG", "41");
  rule(8, 0, "TCP", "-99999999999", "2147483648", "10.0.0.1", "Yes");
  rule(8, 1, "TCP", " +65535x", "-2147483648", "10.0.0.1", "Yes");
  EXPECT_EQ(query(), "{\"Result\":0, \"List\":[{\"WANName\":\"2_INTERNET_R_VID_41\",\"MapList\":[" +
                         rule_json(1, "TRUE", "-2147483648", "2147483647", "TCP", "10.0.0.1") + "," +
                         rule_json(2, "TRUE", "65535", "-2147483648", "TCP", "10.0.0.1") + "]}]}");
}

TEST_F(PortMappingQuery, TheLongestReplyOfThirtyTwoWansFitsWhole) {
  std::string list;
  std::string expected = "{\"Result\":0, \"List\":[";
  for (int w = 0; w < 32; ++w) {
    int v = w * 8 + 7;
    list += (w ? "," : "") + std::to_string(v);
    wan(v, std::string(15, '1').c_str(), std::string(31, 'S').c_str(), "Bridge", "TAG",
        std::string(15, '4').c_str());
    std::string name = (std::string(15, '1') + "_" + std::string(31, 'S') + "_B_VID_" + std::string(15, '4')).substr(0, 63);
    expected += std::string(w ? "," : "") + "{\"WANName\":\"" + name + "\",\"MapList\":[";
    for (int slot = 0; slot < 10; ++slot) {
      rule(v, slot, std::string(31, 'p'), "-2147483648", "-2147483648", std::string(31, 'c'), "No");
      expected += std::string(slot ? "," : "") +
                  rule_json(slot + 1, "FALSE", "-2147483648", "-2147483648", std::string(31, 'p'), std::string(31, 'c'));
    }
    expected += "]}";
  }
  expected += "]}";
  node_set("WanInfo_Common", "ValidIFIndex", list);
  ASSERT_LT(list.size(), 128u);
  EXPECT_EQ(query(), expected);
  EXPECT_GT(expected.size(), 32u * 1024u);  // more than the count x 1024 bytes of old
}

TEST_F(PortMappingQuery, OnlyThirtyTwoWansAreLookedAt) {
  std::string list;
  for (int i = 0; i < 60; ++i) list += (i ? "," : "") + std::to_string(i % 2 == 0 ? 8 : 9);
  node_set("WanInfo_Common", "ValidIFIndex", list);  // 60 values, all within the 128-byte read
  wan(8, "2", "INTERNET", "Route", "TAG", "41");
  query();
  EXPECT_EQ(sim_log_count("tcapi_get") - 1, 32 * (5 + 10));
}

TEST_F(PortMappingQuery, NegativeListValuesNameNodesAsTheyAre) {
  node_set("WanInfo_Common", "ValidIFIndex", "-1");
  wan(-1, "6", "INTERNET", "Route", "", "");
  rule(-1, 0, "TCP", "1", "2", "10.0.0.3", "Yes");
  EXPECT_EQ(query(), "{\"Result\":0, \"List\":[{\"WANName\":\"6_INTERNET_R_VID_\",\"MapList\":[" +
                         rule_json(1, "TRUE", "1", "2", "TCP", "10.0.0.3") + "]}]}");
  EXPECT_NE(log().find("tcapi_get(\"Wan_PVC-1_Entry7\", \"IFIdx\")"), std::string::npos);
}

TEST_F(PortMappingQuery, TracesEachWanNameAndTheReply) {
  node_set("WanInfo_Common", "ValidIFIndex", "0");
  wan(0, "1", "TR069", "Route", "TAG", "46");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(query(), kEmpty);
  const std::string fn = "Java_com_lumarest_smartgateway_addressservices_PortMappingQueryServiceImp_getPortMappingInfoJni";
  EXPECT_EQ(mask_line_numbers(out.finish()),
            fn + ":N:getWANName: 1_TR069_R_VID_46\n" + fn + ":N:getPortMappingInfoJni: return json = " + kEmpty +
                "   leave============>\n");
}

TEST_F(PortMappingQuery, DefaultGatewayListsItsInternetRules) {
  const char *saved = getenv("BRELO_SIM_SAVE");
  std::string old = saved != nullptr ? saved : "";
  setenv("BRELO_SIM_SAVE", "", 1);  // the shipped tree, not one a console run saved
  ASSERT_EQ(sim_load_default(), 0);
  if (saved != nullptr) setenv("BRELO_SIM_SAVE", old.c_str(), 1); else unsetenv("BRELO_SIM_SAVE");
  EXPECT_EQ(query(), "{\"Result\":0, \"List\":[{\"WANName\":\"2_INTERNET_R_VID_41\",\"MapList\":[" +
                         rule_json(1, "TRUE", "8080", "80", "TCP", "192.168.1.20") + "," +
                         rule_json(2, "FALSE", "3074", "3074", "UDP", "192.168.1.33") + "]}]}");
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef NATIVE
