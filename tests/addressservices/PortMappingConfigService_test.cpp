// com.lumarest.smartgateway.addressservices.PortMappingConfigServiceImp
#include <limits.h>

#include <string>

#include "tests/test_support.h"

#define NATIVE(m) Java_com_lumarest_smartgateway_addressservices_PortMappingConfigServiceImp_##m
extern "C" {
jint NATIVE(addPortMappingJni)(JNIEnv *, jobject, jint, jint, jint, jstring, jstring);
jint NATIVE(deletePortMappingJni)(JNIEnv *, jobject, jint, jint);
jint NATIVE(setPortMappingSwitchJni)(JNIEnv *, jobject, jint, jint, jboolean);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

std::string get(const std::string &node, const std::string &attr) {
  return "tcapi_get(\"" + node + "\", \"" + attr + "\")\n";
}
std::string set(const std::string &node, const std::string &attr, const std::string &value) {
  return "tcapi_set(\"" + node + "\", \"" + attr + "\", \"" + value + "\")\n";
}
std::string save_commit(const std::string &node) {
  return "tcapi_save()\nbrelo_tcapi_commit(\"" + node + "\")\n";
}
// The WAN lookup reading "IFIdx" of the listed WANs up to the one named.
std::string lookup(std::initializer_list<const char *> nodes) {
  std::string out = get("WanInfo_Common", "ValidIFIndex");
  for (const char *n : nodes) out += get(n, "IFIdx");
  return out;
}
std::string trace(const char *native, const std::string &body) {
  return std::string("Java_com_lumarest_smartgateway_addressservices_PortMappingConfigServiceImp_") + native +
         ":N:" + body;
}

void rule(const std::string &node, const char *protocol) {
  sim_set(("tcapi " + node).c_str(), "Protocal", protocol);
  sim_set(("tcapi " + node).c_str(), "INTPORT", "80");
}

// WAN 1 = TR069 (PVC 0 entry 0, internal 0), WAN 2 = INTERNET (PVC 1 entry 0, internal 8),
// WAN 5 = TR069_INTERNET (PVC 1 entry 1, internal 9), WAN 3 = IPTV (PVC 2 entry 0, internal 16).
class PortMappingConfig : public testsupport::BridgeTest {
 protected:
  void SetUp() override {
    testsupport::BridgeTest::SetUp();
    sim_set("tcapi WanInfo_Common", "ValidIFIndex", "0,8,9,16");
    wan("Wan_PVC0_Entry0", "1", "TR069");
    wan("Wan_PVC1_Entry0", "2", "INTERNET");
    wan("Wan_PVC1_Entry1", "5", "TR069_INTERNET");
    wan("Wan_PVC2_Entry0", "3", "IPTV");
    sim_set("resolver", "nas.home", "192.168.1.20");
  }
  static void wan(const char *node, const char *ifidx, const char *service) {
    std::string s = std::string("tcapi ") + node;
    sim_set(s.c_str(), "IFIdx", ifidx);
    sim_set(s.c_str(), "ServiceList", service);
  }
  jint add(jint wan, jint ext, jint in, const char *protocol, const char *client) {
    jstring jprotocol = jvm().str(protocol);
    jstring jclient = jvm().str(client);
    return NATIVE(addPortMappingJni)(env(), self(), wan, ext, in, jprotocol, jclient);
  }
  static std::string attr(const char *node, const char *a) {
    const char *v = sim_get((std::string("tcapi ") + node).c_str(), a);
    return v != nullptr ? v : "<absent>";
  }
};

// ---- addPortMappingJni ----

TEST_F(PortMappingConfig, AddWritesTheRuleInOrderThenSavesAndCommits) {
  EXPECT_EQ(add(2, 8080, 80, "TCP", "192.168.1.20"), 0);
  const std::string node = "VirServer_Entry8_Entry0";
  EXPECT_EQ(log(), lookup({"Wan_PVC0_Entry0", "Wan_PVC1_Entry0"}) + get("Wan_PVC1_Entry0", "ServiceList") +
                       get(node, "Protocal") + set(node, "Protocal", "TCP") + set(node, "SrcIP", "0.0.0.0") +
                       set(node, "STARTPORT", "8080") + set(node, "ENDPORT", "8080") +
                       set(node, "INTPORT", "80") + set(node, "LOCALIP", "192.168.1.20") +
                       set(node, "MapName", "OSGI_Add_Rule_2_0") + set(node, "Active", "Yes") +
                       save_commit(node));
  EXPECT_STREQ(sim_get("tree", "commits VirServer_Entry8_Entry0"), "1");
  // Protocol first, then the client, each given back before the next is taken.
  EXPECT_EQ(jvm().events_text().rfind("GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\n"
                                      "GetStringUTFChars(s2)\nReleaseStringUTFChars(s2)\n", 0),
            0u)
      << jvm().events_text();
}

TEST_F(PortMappingConfig, AddTracesItsResult) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(add(2, 1, 1, "UDP", "0.0.0.0"), 0);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            trace("addPortMappingJni", "addPortMappingJni: return code = 0   leave============>\n"));
  EXPECT_EQ(attr("VirServer_Entry8_Entry0", "LOCALIP"), "0.0.0.0");
  EXPECT_EQ(attr("VirServer_Entry8_Entry0", "Protocal"), "UDP");
}

TEST_F(PortMappingConfig, AddPortBounds) {
  EXPECT_EQ(add(2, 65535, 0, "TCP", "10.0.0.1"), 0);
  EXPECT_EQ(add(2, 0, 65535, "TCP", "10.0.0.1"), 0);
  EXPECT_EQ(attr("VirServer_Entry8_Entry0", "STARTPORT"), "65535");
  EXPECT_EQ(attr("VirServer_Entry8_Entry0", "INTPORT"), "0");
  EXPECT_EQ(attr("VirServer_Entry8_Entry1", "ENDPORT"), "0");
  EXPECT_EQ(attr("VirServer_Entry8_Entry1", "INTPORT"), "65535");
  sim_clear_log();
  int acquired = jvm().acquired();
  for (jint bad : {-1, 65536, INT_MAX, INT_MIN}) {
    EXPECT_EQ(add(2, bad, 80, "TCP", "10.0.0.1"), -1) << bad;
    EXPECT_EQ(add(2, 80, bad, "TCP", "10.0.0.1"), -1) << bad;
  }
  // Refused before any Java text is touched or the tree is read.
  EXPECT_EQ(jvm().acquired(), acquired);
  EXPECT_EQ(log(), "");
}

TEST_F(PortMappingConfig, AddRefusesNegativeWanIndexesFirst) {
  EXPECT_EQ(add(-1, 80, 80, "TCP", "10.0.0.1"), -1);
  EXPECT_EQ(add(INT_MIN, -1, -1, "tcp", "bad"), -1);
  EXPECT_EQ(jvm().acquired(), 0);
  EXPECT_EQ(log(), "");
}

TEST_F(PortMappingConfig, AddAcceptsOnlyUpperCaseTcpAndUdpAndKeepsRefusedProtocols) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  for (const char *bad : {"tcp", "udp", "Tcp", "", "TCP ", "ICMP", "TCPUDP"})
    EXPECT_EQ(add(2, 80, 80, bad, "10.0.0.1"), -1) << bad;
  EXPECT_EQ(mask_line_numbers(out.finish()),
            trace("addPortMappingJni", "protocol tcp is not valid\n") +
                trace("addPortMappingJni", "addPortMappingJni: return code = -1   leave============>\n") +
                trace("addPortMappingJni", "protocol udp is not valid\n") +
                trace("addPortMappingJni", "addPortMappingJni: return code = -1   leave============>\n") +
                trace("addPortMappingJni", "protocol Tcp is not valid\n") +
                trace("addPortMappingJni", "addPortMappingJni: return code = -1   leave============>\n") +
                trace("addPortMappingJni", "protocol  is not valid\n") +
                trace("addPortMappingJni", "addPortMappingJni: return code = -1   leave============>\n") +
                trace("addPortMappingJni", "protocol TCP  is not valid\n") +
                trace("addPortMappingJni", "addPortMappingJni: return code = -1   leave============>\n") +
                trace("addPortMappingJni", "protocol ICMP is not valid\n") +
                trace("addPortMappingJni", "addPortMappingJni: return code = -1   leave============>\n") +
                trace("addPortMappingJni", "protocol TCPUDP is not valid\n") +
                trace("addPortMappingJni", "addPortMappingJni: return code = -1   leave============>\n"));
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().acquired(), 7);  // the client is never taken
  EXPECT_EQ(jvm().released(), 0);
  expected_outstanding_ = 7;  // refused protocol texts are kept, as they always were
}

TEST_F(PortMappingConfig, AddOfANullProtocolIsRefused) {
  EXPECT_EQ(NATIVE(addPortMappingJni)(env(), self(), 2, 80, 80, nullptr, jvm().str("10.0.0.1")), -1);
  EXPECT_EQ(NATIVE(addPortMappingJni)(env(), self(), 2, 80, 80, jvm().failing_str(), jvm().str("10.0.0.1")), -1);
  EXPECT_EQ(jvm().acquired(), 1);
  EXPECT_EQ(jvm().null_releases(), 1);  // the failed copy is given back, as always
  EXPECT_EQ(log(), "");
}

TEST_F(PortMappingConfig, AddChecksTheClientAndKeepsRefusedOnes) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(add(2, 80, 80, "TCP", "192.168.1.255"), -1);
  EXPECT_EQ(add(2, 80, 80, "TCP", "224.0.0.1"), -1);
  EXPECT_EQ(add(2, 80, 80, "TCP", "10.0.0.1/33"), -1);
  EXPECT_EQ(add(2, 80, 80, "TCP", "192.168.1.1x"), -1);
  std::string t = mask_line_numbers(out.finish());
  EXPECT_NE(t.find(trace("addPortMappingJni", "192.168.1.255 is an invalid IP\n")), std::string::npos) << t;
  EXPECT_NE(t.find(trace("addPortMappingJni", "192.168.1.1x is an invalid IP\n")), std::string::npos) << t;
  // Only the last one went to the resolver; nothing reached the tree.
  EXPECT_EQ(log(), "gethostbyname(\"192.168.1.1x\")\n");
  EXPECT_EQ(jvm().released(), 4);  // the four protocols
  expected_outstanding_ = 4;       // refused client texts are kept, as they always were
}

TEST_F(PortMappingConfig, AddAcceptsAddressesPrefixesAndHostNames) {
  EXPECT_EQ(add(2, 1, 1, "TCP", "0.0.0.0"), 0);
  EXPECT_EQ(add(2, 2, 2, "TCP", "10.0.0.1/24"), 0);
  EXPECT_EQ(add(2, 3, 3, "UDP", "nas.home"), 0);
  EXPECT_EQ(attr("VirServer_Entry8_Entry1", "LOCALIP"), "10.0.0.1/24");
  EXPECT_EQ(attr("VirServer_Entry8_Entry2", "LOCALIP"), "nas.home");
  EXPECT_EQ(jvm().released(), 6);
}

TEST_F(PortMappingConfig, AddCutsALongResolvableClientToItsBuffer) {
  std::string name = std::string(60, 'h') + ".lan";  // 64 characters: still tried as a host name
  sim_set("resolver", name.c_str(), "192.168.1.9");
  EXPECT_EQ(add(2, 1, 1, "TCP", name.c_str()), 0);
  EXPECT_EQ(attr("VirServer_Entry8_Entry0", "LOCALIP"), std::string(31, 'h'));
}

TEST_F(PortMappingConfig, AddOfAClientNullIsRefused) {
  EXPECT_EQ(NATIVE(addPortMappingJni)(env(), self(), 2, 80, 80, jvm().str("TCP"), nullptr), -1);
  EXPECT_EQ(NATIVE(addPortMappingJni)(env(), self(), 2, 80, 80, jvm().str("TCP"), jvm().failing_str()), -1);
  EXPECT_EQ(jvm().released(), 3);
  EXPECT_EQ(jvm().null_releases(), 1);
  EXPECT_EQ(log(), "");
}

TEST_F(PortMappingConfig, AddOnAWanThatDoesNotExist) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(add(7, 80, 80, "TCP", "10.0.0.1"), -1);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            trace("addPortMappingJni", "wanIndex is not exist: 7\n") +
                trace("addPortMappingJni", "addPortMappingJni: return code = -1   leave============>\n"));
  EXPECT_EQ(log(), lookup({"Wan_PVC0_Entry0", "Wan_PVC1_Entry0", "Wan_PVC1_Entry1", "Wan_PVC2_Entry0"}));
  EXPECT_EQ(add(INT_MAX, 80, 80, "TCP", "10.0.0.1"), -1);
  EXPECT_EQ(add(0, 80, 80, "TCP", "10.0.0.1"), -1);  // every listed WAN has an index
  EXPECT_EQ(sim_log_count("tcapi_set"), 0);
}

TEST_F(PortMappingConfig, AddWithoutAnyValidWan) {
  sim_unset("tcapi WanInfo_Common", nullptr);
  EXPECT_EQ(add(2, 80, 80, "TCP", "10.0.0.1"), -1);
  EXPECT_EQ(log(), get("WanInfo_Common", "ValidIFIndex"));
}

TEST_F(PortMappingConfig, AddRefusesTheManagementWanOnly) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(add(1, 80, 80, "TCP", "10.0.0.1"), -1);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            trace("addPortMappingJni", "this is TR069 wan, could not set portmapping\n") +
                trace("addPortMappingJni", "addPortMappingJni: return code = -1   leave============>\n"));
  EXPECT_EQ(log(), lookup({"Wan_PVC0_Entry0"}) + get("Wan_PVC0_Entry0", "ServiceList"));
  // A service list that merely contains TR069 is not refused here.
  EXPECT_EQ(add(5, 80, 80, "TCP", "10.0.0.1"), 0);
  EXPECT_EQ(attr("VirServer_Entry9_Entry0", "MapName"), "OSGI_Add_Rule_5_0");
}

TEST_F(PortMappingConfig, AddTakesTheFirstSlotWithoutTcpOrUdp) {
  rule("VirServer_Entry8_Entry0", "TCP");
  rule("VirServer_Entry8_Entry1", "tcp");  // not a rule to these operations
  rule("VirServer_Entry8_Entry2", "UDP");
  EXPECT_EQ(add(2, 80, 80, "UDP", "10.0.0.1"), 0);
  EXPECT_EQ(attr("VirServer_Entry8_Entry1", "Protocal"), "UDP");
  EXPECT_EQ(attr("VirServer_Entry8_Entry1", "MapName"), "OSGI_Add_Rule_2_1");
  EXPECT_EQ(add(2, 80, 80, "UDP", "10.0.0.1"), 0);  // the same mapping again, into the next slot
  EXPECT_EQ(attr("VirServer_Entry8_Entry3", "MapName"), "OSGI_Add_Rule_2_3");
}

TEST_F(PortMappingConfig, EleventhAddIsRefusedAndADeletedSlotIsReusedFirst) {
  for (int i = 0; i < 10; ++i) EXPECT_EQ(add(2, 1000 + i, 80, "TCP", "10.0.0.1"), 0) << i;
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  sim_clear_log();
  EXPECT_EQ(add(2, 2000, 80, "TCP", "10.0.0.1"), -2);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            trace("addPortMappingJni", "VirServer Entry is full\n") +
                trace("addPortMappingJni", "addPortMappingJni: return code = -2   leave============>\n"));
  EXPECT_EQ(sim_log_count("tcapi_set"), 0);
  EXPECT_EQ(sim_log_count("tcapi_save"), 0);
  EXPECT_EQ(NATIVE(deletePortMappingJni)(env(), self(), 2, 7), 0);
  EXPECT_EQ(NATIVE(deletePortMappingJni)(env(), self(), 2, 4), 0);
  EXPECT_EQ(add(2, 2000, 80, "TCP", "10.0.0.1"), 0);
  EXPECT_EQ(attr("VirServer_Entry8_Entry3", "STARTPORT"), "2000");
  EXPECT_EQ(attr("VirServer_Entry8_Entry6", "Protocal"), "<absent>");
}

TEST_F(PortMappingConfig, AddReadsTreeValuesLongerThanItsBuffersCut) {
  sim_set("tcapi Wan_PVC1_Entry0", "IFIdx", ("2" + std::string(200, ' ')).c_str());
  sim_set("tcapi Wan_PVC1_Entry0", "ServiceList", ("TR069" + std::string(3000, 'x')).c_str());
  sim_set("tcapi VirServer_Entry8_Entry0", "Protocal", ("TCP" + std::string(5000, 'x')).c_str());
  EXPECT_EQ(add(2, 80, 80, "TCP", "10.0.0.1"), 0);
  EXPECT_EQ(attr("VirServer_Entry8_Entry0", "Protocal"), "TCP");  // a long value is not a rule
}

TEST_F(PortMappingConfig, AddBoundsAValidListOfAHundredValues) {
  std::string list;
  for (int i = 0; i < 100; ++i) list += (i ? "," : "") + std::to_string(i < 99 ? 0 : 8);
  sim_set("tcapi WanInfo_Common", "ValidIFIndex", list.c_str());
  // The list is cut at the 127 characters of its buffer: 64 zeros, so WAN 2 (8) is not found.
  EXPECT_EQ(add(2, 80, 80, "TCP", "10.0.0.1"), -1);
  EXPECT_EQ(sim_log_count("tcapi_get"), 1 + 64);
  sim_set("tcapi WanInfo_Common", "ValidIFIndex", (std::string(5000, ',') + "8").c_str());
  EXPECT_EQ(add(2, 80, 80, "TCP", "10.0.0.1"), -1);  // only separators within the buffer
}

TEST_F(PortMappingConfig, IndexesBeyondTheIntRangeSaturate) {
  // "IFIdx" and the list read as the 32-bit gateway reads them, the same on every build.
  sim_set("tcapi WanInfo_Common", "ValidIFIndex", "99999999999");
  wan("Wan_PVC268435455_Entry7", "2147483648", "INTERNET");
  EXPECT_EQ(add(INT_MAX, 80, 80, "TCP", "10.0.0.1"), 0);
  EXPECT_EQ(attr("VirServer_Entry2147483647_Entry0", "MapName"), "OSGI_Add_Rule_2147483647_0");
}

TEST_F(PortMappingConfig, AddNamesNodesOfAnyListedIndex) {
  sim_set("tcapi WanInfo_Common", "ValidIFIndex", "-1,2147483647");
  wan("Wan_PVC-1_Entry7", "6", "INTERNET");
  wan("Wan_PVC268435455_Entry7", "9", "INTERNET");
  EXPECT_EQ(add(6, 80, 80, "TCP", "10.0.0.1"), 0);
  EXPECT_EQ(add(9, 80, 80, "TCP", "10.0.0.1"), 0);
  EXPECT_EQ(attr("VirServer_Entry-1_Entry0", "Active"), "Yes");
  EXPECT_EQ(attr("VirServer_Entry2147483647_Entry0", "Active"), "Yes");
}

// ---- deletePortMappingJni ----

TEST_F(PortMappingConfig, DeleteUnsetsTheNodeThenSavesAndCommits) {
  rule("VirServer_Entry8_Entry2", "UDP");
  EXPECT_EQ(NATIVE(deletePortMappingJni)(env(), self(), 2, 3), 0);
  const std::string node = "VirServer_Entry8_Entry2";
  EXPECT_EQ(log(), lookup({"Wan_PVC0_Entry0", "Wan_PVC1_Entry0"}) + get(node, "Protocal") +
                       "tcapi_unset(\"" + node + "\")\n" + save_commit(node));
  EXPECT_EQ(attr("VirServer_Entry8_Entry2", "INTPORT"), "<absent>");
}

TEST_F(PortMappingConfig, DeleteRefusals) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(NATIVE(deletePortMappingJni)(env(), self(), -1, 1), -1);
  EXPECT_EQ(NATIVE(deletePortMappingJni)(env(), self(), INT_MIN, 1), -1);
  EXPECT_EQ(log(), "");
  EXPECT_EQ(NATIVE(deletePortMappingJni)(env(), self(), 7, 1), -1);
  EXPECT_EQ(NATIVE(deletePortMappingJni)(env(), self(), 2, 1), -1);  // an empty slot
  const std::string closing = trace("deletePortMappingJni", "deletePortMappingJni: return code = -1   leave============>\n");
  EXPECT_EQ(mask_line_numbers(out.finish()),
            closing + closing + trace("deletePortMappingJni", "wanIndex is not exist: 7\n") + closing +
                trace("deletePortMappingJni", "portMappingIndex 1 is not exist\n") + closing);
  EXPECT_EQ(sim_log_count("tcapi_unset"), 0);
}

TEST_F(PortMappingConfig, DeleteSlotIndexesOutOfRangeNameNodesThatDoNotExist) {
  rule("VirServer_Entry8_Entry0", "TCP");
  for (jint index : {0, -1, INT_MIN, INT_MAX, 11}) EXPECT_EQ(NATIVE(deletePortMappingJni)(env(), self(), 2, index), -1);
  std::string l = log();
  for (const char *node : {"VirServer_Entry8_Entry-1", "VirServer_Entry8_Entry-2", "VirServer_Entry8_Entry-2147483649",
                           "VirServer_Entry8_Entry2147483646", "VirServer_Entry8_Entry10"})
    EXPECT_NE(l.find(get(node, "Protocal")), std::string::npos) << node;
  EXPECT_EQ(sim_log_count("tcapi_unset"), 0);
}

TEST_F(PortMappingConfig, DeleteAcceptsWanIndexZeroAndTheManagementWan) {
  wan("Wan_PVC2_Entry0", "0", "IPTV");
  rule("VirServer_Entry16_Entry0", "TCP");
  rule("VirServer_Entry0_Entry0", "UDP");
  EXPECT_EQ(NATIVE(deletePortMappingJni)(env(), self(), 0, 1), 0);
  EXPECT_EQ(NATIVE(deletePortMappingJni)(env(), self(), 1, 1), 0);
  EXPECT_EQ(sim_log_count("brelo_tcapi_commit"), 2);
}

TEST_F(PortMappingConfig, DeleteTracesSuccess) {
  rule("VirServer_Entry8_Entry0", "TCP");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(NATIVE(deletePortMappingJni)(env(), self(), 2, 1), 0);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            trace("deletePortMappingJni", "deletePortMappingJni: return code = 0   leave============>\n"));
}

// ---- setPortMappingSwitchJni ----

TEST_F(PortMappingConfig, SwitchSetsActiveThenSavesAndCommits) {
  rule("VirServer_Entry8_Entry1", "TCP");
  EXPECT_EQ(NATIVE(setPortMappingSwitchJni)(env(), self(), 2, 2, JNI_FALSE), 0);
  const std::string node = "VirServer_Entry8_Entry1";
  EXPECT_EQ(log(), lookup({"Wan_PVC0_Entry0", "Wan_PVC1_Entry0"}) + get(node, "Protocal") +
                       set(node, "Active", "No") + save_commit(node));
  EXPECT_EQ(NATIVE(setPortMappingSwitchJni)(env(), self(), 2, 2, JNI_TRUE), 0);
  EXPECT_EQ(attr("VirServer_Entry8_Entry1", "Active"), "Yes");
  // Only a low byte of exactly 1 switches on.
  EXPECT_EQ(NATIVE(setPortMappingSwitchJni)(env(), self(), 2, 2, static_cast<jboolean>(2)), 0);
  EXPECT_EQ(attr("VirServer_Entry8_Entry1", "Active"), "No");
}

TEST_F(PortMappingConfig, SwitchRefusesWanIndexZeroUnlikeDelete) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  wan("Wan_PVC2_Entry0", "0", "IPTV");
  rule("VirServer_Entry16_Entry0", "TCP");
  EXPECT_EQ(NATIVE(setPortMappingSwitchJni)(env(), self(), 0, 1, JNI_TRUE), -1);
  EXPECT_EQ(NATIVE(setPortMappingSwitchJni)(env(), self(), INT_MIN, 1, JNI_TRUE), -1);
  const std::string refusal =
      trace("setPortMappingSwitchJni", "port mapping index must greater 0\n") +
      trace("setPortMappingSwitchJni", "setPortMappingSwitchJni: return code = -1   leave============>\n");
  EXPECT_EQ(mask_line_numbers(out.finish()), refusal + refusal);
  EXPECT_EQ(log(), "");
}

TEST_F(PortMappingConfig, SwitchRefusalsAndOutOfRangeSlots) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  rule("VirServer_Entry8_Entry0", "TCP");
  EXPECT_EQ(NATIVE(setPortMappingSwitchJni)(env(), self(), 7, 1, JNI_TRUE), -1);
  EXPECT_EQ(NATIVE(setPortMappingSwitchJni)(env(), self(), 2, 0, JNI_TRUE), -1);
  const std::string closing =
      trace("setPortMappingSwitchJni", "setPortMappingSwitchJni: return code = -1   leave============>\n");
  EXPECT_EQ(mask_line_numbers(out.finish()),
            trace("setPortMappingSwitchJni", "wanIndex is not exist: 7\n") + closing +
                trace("setPortMappingSwitchJni", "portMappingIndex 0 is not exist\n") + closing);
  for (jint index : {INT_MIN, INT_MAX, -5})
    EXPECT_EQ(NATIVE(setPortMappingSwitchJni)(env(), self(), 2, index, JNI_TRUE), -1);
  EXPECT_EQ(NATIVE(setPortMappingSwitchJni)(env(), self(), INT_MAX, 1, JNI_TRUE), -1);
  EXPECT_EQ(sim_log_count("tcapi_set"), 0);
  // The management WAN is not refused by the switch.
  rule("VirServer_Entry0_Entry0", "UDP");
  EXPECT_EQ(NATIVE(setPortMappingSwitchJni)(env(), self(), 1, 1, JNI_FALSE), 0);
}

TEST_F(PortMappingConfig, ChangesPersistThroughTheSavedTree) {
  std::string path = ::testing::TempDir() + "portmapping-saved.ini";
  remove(path.c_str());
  sim_set_save_path(path.c_str());
  EXPECT_EQ(add(2, 2222, 22, "TCP", "192.168.1.40"), 0);
  sim_reset();
  ASSERT_EQ(sim_load(path.c_str()), 0);
  EXPECT_EQ(attr("VirServer_Entry8_Entry0", "LOCALIP"), "192.168.1.40");
  EXPECT_EQ(attr("Wan_PVC1_Entry0", "IFIdx"), "2");
  remove(path.c_str());
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef NATIVE
