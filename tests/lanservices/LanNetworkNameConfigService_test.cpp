// com.lumarest.smartgateway.lanservices.LanNetworkNameConfigServiceImp,
// LanHostSpeedLimitServiceImp and LanHostSpeedQueryServiceImp
#include <string>

#include "tests/test_support.h"

#define NAMING(m) Java_com_lumarest_smartgateway_lanservices_LanNetworkNameConfigServiceImp_##m
#define LIMIT(m) Java_com_lumarest_smartgateway_lanservices_LanHostSpeedLimitServiceImp_##m
#define SPEED(m) Java_com_lumarest_smartgateway_lanservices_LanHostSpeedQueryServiceImp_##m
extern "C" {
jint NAMING(setGatewayNameJni)(JNIEnv *, jobject, jstring);
jint NAMING(setLANHostNameJni)(JNIEnv *, jobject, jstring, jstring);
jint LIMIT(setLANHostSpeedLimitJni)(JNIEnv *, jobject, jstring, jint, jint);
jstring SPEED(getLANHostSpeedJni)(JNIEnv *, jobject, jstring);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const char kSpeedFail[] = "{\"Result\":-1,\"upSpeed\":0,\"downSpeed\":0}";

class LanHostSettings : public testsupport::BridgeTest {
 protected:
  void SetUp() override {
    testsupport::BridgeTest::SetUp();
    sim_set("host 1", "mac", "0A:1B:2C:3D:4E:5F");
    sim_set("host 1", "up_speed", "-5");
    sim_set("host 1", "down_speed", "2147483647");
  }
};

TEST_F(LanHostSettings, GatewayNameIsSetAndTheResultReturned) {
  EXPECT_EQ(NAMING(setGatewayNameJni)(env(), self(), jvm().str("Home")), 0);
  EXPECT_STREQ(sim_get("lan", "gateway_name"), "Home");
  sim_program_result("brelo_sysSetGatewayName", -9);
  EXPECT_EQ(NAMING(setGatewayNameJni)(env(), self(), jvm().str("x")), -9);
  EXPECT_EQ(log(), "brelo_sysSetGatewayName(\"Home\")\nbrelo_sysSetGatewayName(\"x\")\n");
  EXPECT_EQ(jvm().released(), 2);
}

TEST_F(LanHostSettings, GatewayNameOfANullStringIsSafe) {
  EXPECT_EQ(NAMING(setGatewayNameJni)(env(), self(), nullptr), 0);
  EXPECT_EQ(NAMING(setGatewayNameJni)(env(), self(), jvm().failing_str()), -1);
  EXPECT_EQ(log(), "brelo_sysSetGatewayName(\"\")\n");  // the null string's call only
  EXPECT_EQ(jvm().null_releases(), 1);
}

TEST_F(LanHostSettings, HostNamePrintsItsLineAlwaysWithoutPrefix) {
  FlagFile flag(TRACE_FLAG_PATH, false);
  CaptureStdout out;
  jstring mac = jvm().str("0a:1b:2c:3d:4e:5f");
  jstring name = jvm().str("Desk");
  EXPECT_EQ(NAMING(setLANHostNameJni)(env(), self(), mac, name), 0);
  EXPECT_EQ(NAMING(setLANHostNameJni)(env(), self(), jvm().str("00:00:00:00:00:00"), jvm().str("x")), -1);
  fflush(stdout);
  EXPECT_EQ(out.finish(),
            "lanservicessetLANHostNameJni: return code = 0   leave============>\n"
            "lanservicessetLANHostNameJni: return code = -1   leave============>\n");
  EXPECT_STREQ(sim_get("host 1", "device_name"), "Desk");
  EXPECT_EQ(log(),
            "brelo_lanSetLanHostName(\"0a:1b:2c:3d:4e:5f\", \"Desk\")\n"
            "brelo_lanSetLanHostName(\"00:00:00:00:00:00\", \"x\")\n");
  // Both texts are given back in the order they were obtained.
  EXPECT_EQ(jvm().events_text().rfind(
                "GetStringUTFChars(s1)\nGetStringUTFChars(s2)\nReleaseStringUTFChars(s1)\nReleaseStringUTFChars(s2)\n", 0),
            0u)
      << jvm().events_text();
}

TEST_F(LanHostSettings, SpeedLimitParsesEitherCase) {
  EXPECT_EQ(LIMIT(setLANHostSpeedLimitJni)(env(), self(), jvm().str("0a:1b:2c:3d:4e:5f"), 100, -1), 0);
  EXPECT_EQ(LIMIT(setLANHostSpeedLimitJni)(env(), self(), jvm().str("0A:1B:2C:3D:4E:5F"), 7, 8), 0);
  EXPECT_EQ(log(),
            "brelo_lanSetDevMaxBandwidth(0A:1B:2C:3D:4E:5F, 100, -1)\n"
            "brelo_lanSetDevMaxBandwidth(0A:1B:2C:3D:4E:5F, 7, 8)\n");
  EXPECT_STREQ(sim_get("host 1", "up_limit"), "7");
}

TEST_F(LanHostSettings, SpeedLimitRejectsTextsThatAreNotMacs) {
  for (const char *bad : {"0a-1b-2c-3d-4e-5f", "", "0a:1b:2c:3d:4e", "zz:1b:2c:3d:4e:5f", "mac"})
    EXPECT_EQ(LIMIT(setLANHostSpeedLimitJni)(env(), self(), jvm().str(bad), 1, 1), -1) << bad;
  EXPECT_EQ(LIMIT(setLANHostSpeedLimitJni)(env(), self(), nullptr, 1, 1), -1);
  EXPECT_EQ(LIMIT(setLANHostSpeedLimitJni)(env(), self(), jvm().failing_str(), 1, 1), -1);
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().null_releases(), 1);  // the failed copy is released too
}

TEST_F(LanHostSettings, SpeedLimitNormalisesThePlatformResult) {
  sim_program_result("brelo_lanSetDevMaxBandwidth", 3);
  EXPECT_EQ(LIMIT(setLANHostSpeedLimitJni)(env(), self(), jvm().str("0a:1b:2c:3d:4e:5f"), 1, 1), -1);
}

TEST_F(LanHostSettings, SpeedLimitTracesItsResult) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  LIMIT(setLANHostSpeedLimitJni)(env(), self(), jvm().str("x"), 1, 1);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_lanservices_LanHostSpeedLimitServiceImp_setLANHostSpeedLimitJni:N:"
            "setLANHostSpeedLimitJni: return code = -1   leave============>\n");
}

TEST_F(LanHostSettings, SpeedQueryReportsBothSpeeds) {
  EXPECT_EQ(text(SPEED(getLANHostSpeedJni)(env(), self(), jvm().str("0a:1b:2c:3d:4e:5f"))),
            "{\"Result\":0,\"upSpeed\":-5,\"downSpeed\":2147483647}");
  EXPECT_EQ(log(), "brelo_lanGetDevBandwidth(0A:1B:2C:3D:4E:5F)\n");
}

TEST_F(LanHostSettings, SpeedQueryFailures) {
  EXPECT_EQ(text(SPEED(getLANHostSpeedJni)(env(), self(), jvm().str("0a-1b-2c-3d-4e-5f"))), kSpeedFail);
  EXPECT_EQ(text(SPEED(getLANHostSpeedJni)(env(), self(), nullptr)), kSpeedFail);
  EXPECT_EQ(text(SPEED(getLANHostSpeedJni)(env(), self(), jvm().str(std::string(300, '1')))), kSpeedFail);
  EXPECT_EQ(log(), "");
  EXPECT_EQ(text(SPEED(getLANHostSpeedJni)(env(), self(), jvm().str("00:00:00:00:00:01"))), kSpeedFail);
  EXPECT_EQ(log(), "brelo_lanGetDevBandwidth(00:00:00:00:00:01)\n");
}

TEST_F(LanHostSettings, SpeedQueryTracesTheReply) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  SPEED(getLANHostSpeedJni)(env(), self(), jvm().str("x"));
  EXPECT_EQ(mask_line_numbers(out.finish()),
            std::string("Java_com_lumarest_smartgateway_lanservices_LanHostSpeedQueryServiceImp_getLANHostSpeedJni:N:"
                        "getLANHostSpeedJni: return json = ") +
                kSpeedFail + "   leave============>\n");
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef LIMIT
#undef NAMING
#undef SPEED
