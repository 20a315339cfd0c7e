// com.lumarest.smartgateway.transferservices.VLANBindConfigServiceImp
#include <string>

#include "tests/test_support.h"

#define VLAN(m) Java_com_lumarest_smartgateway_transferservices_VLANBindConfigServiceImp_##m
#define QUERY(m) Java_com_lumarest_smartgateway_transferservices_TransferQueryServiceImp_##m
extern "C" {
jint VLAN(setVLANBindJni)(JNIEnv *, jobject, jstring, jstring);
jint VLAN(clearVLANBindJni)(JNIEnv *, jobject, jstring);
jstring QUERY(getVLANBindInfoJni)(JNIEnv *, jobject);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

class VlanBind : public testsupport::BridgeTest {};

TEST_F(VlanBind, ABindingIsSetListedAndCleared) {
  EXPECT_EQ(VLAN(setVLANBindJni)(env(), self(), jvm().str("SSID2"), jvm().str("300/30")), 0);
  EXPECT_EQ(text(QUERY(getVLANBindInfoJni)(env(), self())),
            "{\"Result\":0,\"List\":[{\"LanInterface\":\"SSID2\",\"Bind\":\"300/30\"}]}");
  EXPECT_EQ(VLAN(clearVLANBindJni)(env(), self(), jvm().str("SSID2")), 0);
  EXPECT_EQ(text(QUERY(getVLANBindInfoJni)(env(), self())), "{\"Result\":-1}");
  EXPECT_EQ(log(),
            "brelo_setVLANBind(\"SSID2\", \"300/30\")\nbrelo_vlanGetBindInfo()\n"
            "brelo_clearVLANBind(\"SSID2\")\nbrelo_vlanGetBindInfo()\n");
  EXPECT_EQ(jvm().acquired(), 3);
  EXPECT_EQ(jvm().released(), 3);
}

TEST_F(VlanBind, ThePlatformResultComesBackUnchanged) {
  sim_program_result("brelo_setVLANBind", 7);
  sim_program_result("brelo_clearVLANBind", -9);
  EXPECT_EQ(VLAN(setVLANBindJni)(env(), self(), jvm().str("LAN1"), jvm().str("1")), 7);
  EXPECT_EQ(VLAN(clearVLANBindJni)(env(), self(), jvm().str("LAN1")), -9);
}

TEST_F(VlanBind, EmptyTextsReachThePlatform) {
  EXPECT_EQ(VLAN(setVLANBindJni)(env(), self(), jvm().str(""), jvm().str("")), -1);
  EXPECT_EQ(VLAN(clearVLANBindJni)(env(), self(), jvm().str("")), -1);
  EXPECT_EQ(log(), "brelo_setVLANBind(\"\", \"\")\nbrelo_clearVLANBind(\"\")\n");
}

TEST_F(VlanBind, ThirtyOneCharactersAreAccepted) {
  std::string t31(31, 'a');
  sim_program_result("brelo_setVLANBind", 0);
  sim_program_result("brelo_clearVLANBind", 0);
  EXPECT_EQ(VLAN(setVLANBindJni)(env(), self(), jvm().str(t31), jvm().str(t31)), 0);
  EXPECT_EQ(VLAN(clearVLANBindJni)(env(), self(), jvm().str(t31)), 0);
  EXPECT_EQ(log(), "brelo_setVLANBind(\"" + t31 + "\", \"" + t31 + "\")\nbrelo_clearVLANBind(\"" + t31 + "\")\n");
  EXPECT_EQ(jvm().outstanding(), 0);
}

// An interface name of 32 characters or more is refused and deliberately never released.
TEST_F(VlanBind, LongInterfaceNamesAreRefusedAndKept) {
  EXPECT_EQ(VLAN(setVLANBindJni)(env(), self(), jvm().str(std::string(32, 'a')), jvm().str("1")), -1);
  EXPECT_EQ(VLAN(setVLANBindJni)(env(), self(), jvm().str(std::string(33, 'a')), jvm().str("1")), -1);
  EXPECT_EQ(VLAN(clearVLANBindJni)(env(), self(), jvm().str(std::string(32, 'a'))), -1);
  EXPECT_EQ(VLAN(clearVLANBindJni)(env(), self(), jvm().str(std::string(300, 'a'))), -1);
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().acquired(), 4);  // the binding text is never read
  EXPECT_EQ(jvm().released(), 0);
  expected_outstanding_ = 4;
}

TEST_F(VlanBind, LongBindingsAreRefusedAndKept) {
  EXPECT_EQ(VLAN(setVLANBindJni)(env(), self(), jvm().str("LAN1"), jvm().str(std::string(32, 'b'))), -1);
  EXPECT_EQ(VLAN(setVLANBindJni)(env(), self(), jvm().str("LAN1"), jvm().str(std::string(33, 'b'))), -1);
  EXPECT_EQ(log(), "");
  // The interface name was given back; the binding text was not.
  EXPECT_EQ(jvm().released(), 2);
  expected_outstanding_ = 2;
}

TEST_F(VlanBind, NullTextsAreRefused) {
  EXPECT_EQ(VLAN(setVLANBindJni)(env(), self(), nullptr, jvm().str("1")), -1);
  EXPECT_EQ(VLAN(setVLANBindJni)(env(), self(), jvm().str("LAN1"), nullptr), -1);
  EXPECT_EQ(VLAN(setVLANBindJni)(env(), self(), jvm().failing_str(), jvm().str("1")), -1);
  jvm().clear_exception();  // Java has thrown
  EXPECT_EQ(VLAN(setVLANBindJni)(env(), self(), jvm().str("LAN1"), jvm().failing_str()), -1);
  jvm().clear_exception();
  EXPECT_EQ(VLAN(clearVLANBindJni)(env(), self(), nullptr), -1);
  EXPECT_EQ(VLAN(clearVLANBindJni)(env(), self(), jvm().failing_str()), -1);
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().null_releases(), 3);  // a failed copy is still released
  EXPECT_EQ(jvm().outstanding(), 0);
}

TEST_F(VlanBind, TracesTheResult) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  VLAN(setVLANBindJni)(env(), self(), jvm().str("LAN2"), jvm().str("10"));
  VLAN(clearVLANBindJni)(env(), self(), nullptr);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_transferservices_VLANBindConfigServiceImp_setVLANBindJni:N:"
            "setVLANBindJni: return code = 0   leave============>\n"
            "Java_com_lumarest_smartgateway_transferservices_VLANBindConfigServiceImp_clearVLANBindJni:N:"
            "clearVLANBindJni: return code = -1   leave============>\n");
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef QUERY
#undef VLAN
