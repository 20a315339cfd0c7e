// com.lumarest.smartgateway.commservices.RegistrationServiceImp, DeviceRsetServiceImp and
// DeviceConfigServiceImp
#include <string>

#include "tests/test_support.h"

#define REG(m) Java_com_lumarest_smartgateway_commservices_RegistrationServiceImp_##m
#define RESET(m) Java_com_lumarest_smartgateway_commservices_DeviceRsetServiceImp_##m
#define CONFIG(m) Java_com_lumarest_smartgateway_commservices_DeviceConfigServiceImp_##m
extern "C" {
jint REG(setPasswordRegistrationJni)(JNIEnv *, jobject, jstring, jint, jint, jstring);
jstring REG(getPasswordRegistrationInfoJni)(JNIEnv *, jobject);
jint RESET(resetJni)(JNIEnv *, jobject);
jint CONFIG(setLedSwitchJni)(JNIEnv *, jobject, jboolean);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const std::string kRegPrefix = "Java_com_lumarest_smartgateway_commservices_RegistrationServiceImp_";

class RegistrationService : public testsupport::BridgeTest {
 protected:
  jint submit(jstring t1, jint n1, jint n2, jstring t2) {
    return REG(setPasswordRegistrationJni)(env(), self(), t1, n1, n2, t2);
  }
  std::string info() { return text(REG(getPasswordRegistrationInfoJni)(env(), self())); }
  std::string state(const char *section, const char *key) {
    const char *v = sim_get(section, key);
    return v != nullptr ? v : "<absent>";
  }
  void set_record() {
    sim_set("registration", "status", "2");
    sim_set("registration", "result", "1");
    sim_set("registration", "service_num", "3");
    sim_set("registration", "service_name", "INTERNET,IPTV,VOIP");
    sim_set("registration", "limit", "10");
    sim_set("registration", "times", "-4");
    sim_set("registration", "province", "Sichuan");
    sim_set("registration", "gateway_province", "Guangdong");
  }
};

// ---- setPasswordRegistrationJni ----

TEST_F(RegistrationService, SubmitPassesBothTextsAndNumbersInJavaOrder) {
  jstring loid = jvm().str("LOID0001");  // s1
  jstring password = jvm().str("pw12");  // s2
  EXPECT_EQ(submit(loid, 7, -2, password), 0);
  EXPECT_EQ(log(), "brelo_passwordSetRegistration(\"LOID0001\", 7, -2, \"pw12\")\n");
  // Each text is copied and given back before the next is read.
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\n"
            "GetStringUTFChars(s2)\nReleaseStringUTFChars(s2)\n");
  EXPECT_EQ(state("registration", "text1"), "LOID0001");
  EXPECT_EQ(state("registration", "status"), "1");
}

TEST_F(RegistrationService, SubmitReturnsThePlatformsValueUnchanged) {
  sim_program_result("brelo_passwordSetRegistration", 5);
  EXPECT_EQ(submit(jvm().str("a"), 0, 0, jvm().str("b")), 5);
  sim_program_result("brelo_passwordSetRegistration", -7);
  EXPECT_EQ(submit(jvm().str("a"), 0, 0, jvm().str("b")), -7);
}

TEST_F(RegistrationService, SubmitWithoutTheFirstTextReadsNoFurther) {
  EXPECT_EQ(submit(nullptr, 1, 2, jvm().str("b")), -1);
  EXPECT_TRUE(jvm().events().empty());
  jstring second = jvm().str("b");        // s2, never read
  jstring failing = jvm().failing_str();  // s3
  EXPECT_EQ(submit(failing, 1, 2, second), -1);
  EXPECT_EQ(jvm().events_text(), "GetStringUTFChars(s3)\nReleaseStringUTFChars(s3,NULL)\n");
  EXPECT_EQ(log(), "");
}

TEST_F(RegistrationService, SubmitWithoutTheSecondTextIsMinusOne) {
  EXPECT_EQ(submit(jvm().str("a"), 1, 2, nullptr), -1);
  jstring first = jvm().str("a");         // s2
  jstring failing = jvm().failing_str();  // s3
  EXPECT_EQ(submit(first, 1, 2, failing), -1);
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\n"
            "GetStringUTFChars(s2)\nReleaseStringUTFChars(s2)\n"
            "GetStringUTFChars(s3)\nReleaseStringUTFChars(s3,NULL)\n");
  EXPECT_EQ(log(), "");
}

TEST_F(RegistrationService, SubmitCutsTheTextsToTheirBuffers) {
  submit(jvm().str(std::string(300, 'a')), 1, 2, jvm().str(std::string(100, 'b')));
  EXPECT_EQ(log(), "brelo_passwordSetRegistration(\"" + std::string(127, 'a') + "\", 1, 2, \"" +
                       std::string(63, 'b') + "\")\n");
  sim_clear_log();
  submit(jvm().str(std::string(127, 'c')), 1, 2, jvm().str(std::string(63, 'd')));
  EXPECT_EQ(log(), "brelo_passwordSetRegistration(\"" + std::string(127, 'c') + "\", 1, 2, \"" +
                       std::string(63, 'd') + "\")\n");
}

TEST_F(RegistrationService, SubmitTracesItsResult) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  submit(nullptr, 0, 0, nullptr);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kRegPrefix + "setPasswordRegistrationJni:N:setPasswordRegistrationJni: return code = -1"
                         "   leave============>\n");
}

// ---- getPasswordRegistrationInfoJni ----

const char kRecordReply[] =
    "{\"Result\":0,\"Status\":\"2\",\"RegisterResult\":\"1\",\"ServiceNum\":\"3\","
    "\"ServiceName\":\"INTERNET,IPTV,VOIP\",\"Limit\":\"10\",\"Times\":\"-4\","
    "\"Province\":\"Sichuan\"}";

TEST_F(RegistrationService, InfoQuotesEveryNumberAndPrefersTheRecordsProvince) {
  set_record();
  EXPECT_EQ(info(), kRecordReply);
  EXPECT_EQ(log(), "brelo_GetProvince()\nbrelo_passwordGetRegistrationInfo()\n");
}

TEST_F(RegistrationService, InfoFallsBackToTheGatewaysProvince) {
  set_record();
  sim_set("registration", "province", "");
  EXPECT_EQ(info(),
            "{\"Result\":0,\"Status\":\"2\",\"RegisterResult\":\"1\",\"ServiceNum\":\"3\","
            "\"ServiceName\":\"INTERNET,IPTV,VOIP\",\"Limit\":\"10\",\"Times\":\"-4\","
            "\"Province\":\"Guangdong\"}");
}

TEST_F(RegistrationService, InfoWithBothProvincesEmptyHasAnEmptyProvince) {
  EXPECT_EQ(info(),
            "{\"Result\":0,\"Status\":\"0\",\"RegisterResult\":\"0\",\"ServiceNum\":\"0\","
            "\"ServiceName\":\"\",\"Limit\":\"0\",\"Times\":\"0\",\"Province\":\"\"}");
}

TEST_F(RegistrationService, InfoIgnoresBothPlatformResults) {
  set_record();
  sim_program_result("brelo_passwordGetRegistrationInfo", -1);
  sim_program_result("brelo_GetProvince", -1);
  EXPECT_EQ(info(), kRecordReply);
}

TEST_F(RegistrationService, InfoTextsFilledToTheBrimStayWithinTheirFields) {
  sim_set("registration", "service_name", std::string(80, 's').c_str());
  sim_set("registration", "province", std::string(80, 'p').c_str());
  std::string reply = info();
  EXPECT_NE(reply.find("\"ServiceName\":\"" + std::string(63, 's') + "\","), std::string::npos);
  EXPECT_NE(reply.find("\"Province\":\"" + std::string(63, 'p') + "\"}"), std::string::npos);
  sim_set("registration", "province", "");
  sim_set("registration", "gateway_province", std::string(80, 'g').c_str());
  EXPECT_NE(info().find("\"Province\":\"" + std::string(31, 'g') + "\"}"), std::string::npos);
}

TEST_F(RegistrationService, InfoTracesTheProvinceResultAndTheReply) {
  sim_program_result("brelo_GetProvince", 3);
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  info();
  EXPECT_EQ(mask_line_numbers(out.finish()),
            kRegPrefix + "getPasswordRegistrationInfoJni:N:getPasswordRegistrationInfoJni: "
                         "brelo_GetProvince ret = 3\n" +
                kRegPrefix + "getPasswordRegistrationInfoJni:N:getPasswordRegistrationInfoJni: "
                             "return json = {\"Result\":0,\"Status\":\"0\",\"RegisterResult\":\"0\","
                             "\"ServiceNum\":\"0\",\"ServiceName\":\"\",\"Limit\":\"0\",\"Times\":\"0\","
                             "\"Province\":\"\"}   leave============>\n");
}

TEST_F(RegistrationService, ASubmittedRegistrationProgressesOneStepPerQuery) {
  sim_set("registration", "limit", "3");
  sim_set("registration", "steps", "2");
  sim_set("registration", "services", "INTERNET,VOIP");
  EXPECT_EQ(submit(jvm().str("LOID0001"), 0, 0, jvm().str("pw")), 0);
  EXPECT_NE(info().find("\"Status\":\"1\",\"RegisterResult\":\"0\",\"ServiceNum\":\"0\""),
            std::string::npos);
  EXPECT_NE(info().find("\"Status\":\"1\""), std::string::npos);
  std::string done = info();
  EXPECT_NE(done.find("\"Status\":\"2\",\"RegisterResult\":\"1\",\"ServiceNum\":\"2\","
                      "\"ServiceName\":\"INTERNET,VOIP\",\"Limit\":\"3\",\"Times\":\"1\""),
            std::string::npos)
      << done;
}

// ---- resetJni ----

TEST_F(RegistrationService, ResetReturnsThePlatformsValueAndTracesIt) {
  EXPECT_EQ(RESET(resetJni)(env(), self()), 0);
  EXPECT_EQ(state("reset", "count"), "1");
  sim_program_result("brelo_reset", -3);
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(RESET(resetJni)(env(), self()), -3);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_commservices_DeviceRsetServiceImp_resetJni:N:"
            "ResetJni=====result=-3=======>\n");
  EXPECT_EQ(log(), "brelo_reset()\nbrelo_reset()\n");
}

// ---- setLedSwitchJni ----

TEST_F(RegistrationService, LedFlagIsOneOnlyForABooleanByteOfExactlyOne) {
  EXPECT_EQ(CONFIG(setLedSwitchJni)(env(), self(), JNI_FALSE), 0);
  EXPECT_EQ(state("led", "switch"), "0");
  EXPECT_EQ(CONFIG(setLedSwitchJni)(env(), self(), JNI_TRUE), 0);
  EXPECT_EQ(state("led", "switch"), "1");
  EXPECT_EQ(CONFIG(setLedSwitchJni)(env(), self(), 2), 0);
  EXPECT_EQ(CONFIG(setLedSwitchJni)(env(), self(), 0xFF), 0);
  EXPECT_EQ(state("led", "switch"), "0");
  EXPECT_EQ(log(),
            "brelo_ledSetSwitch(0)\nbrelo_ledSetSwitch(1)\nbrelo_ledSetSwitch(0)\n"
            "brelo_ledSetSwitch(0)\n");
}

TEST_F(RegistrationService, LedCollapsesEveryNonZeroResultToMinusOne) {
  sim_program_result("brelo_ledSetSwitch", 4);
  EXPECT_EQ(CONFIG(setLedSwitchJni)(env(), self(), JNI_TRUE), -1);
  sim_program_result("brelo_ledSetSwitch", -2);
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(CONFIG(setLedSwitchJni)(env(), self(), JNI_TRUE), -1);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_commservices_DeviceConfigServiceImp_setLedSwitchJni:N:"
            "setLedSwitchJni: return code = -1   leave============>\n");
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef CONFIG
#undef REG
#undef RESET
