// com.lumarest.smartgateway.transferservices.TrafficQoSServiceImp
#include <string>

#include "common/hardened.h"
#include "tests/test_support.h"

#define QOS(m) Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_##m
extern "C" {
jint QOS(addTrafficToFlowJni)(JNIEnv *, jobject, jstring, jstring, jint);
jint QOS(deleteTrafficFromFlowJni)(JNIEnv *, jobject, jstring, jstring, jint);
jint QOS(deleteAllTrafficFromFlowJni)(JNIEnv *, jobject, jint);
jstring QOS(getTrafficInfoByFlowJni)(JNIEnv *, jobject, jint);
jstring QOS(getStatsByFlowJni)(JNIEnv *, jobject, jint);
jstring QOS(getSpeedByFlowJni)(JNIEnv *, jobject, jint);
jint QOS(setSpeedLimitByFlowJni)(JNIEnv *, jobject, jint, jint, jint);
jstring QOS(getSpeedLimitByFlowJni)(JNIEnv *, jobject, jint);
jint QOS(setDSCPRemarkByFlowJni)(JNIEnv *, jobject, jint, jint);
jint QOS(getDSCPRemarkByFlowJni)(JNIEnv *, jobject, jint);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const char kListFail[] = "{\"Result\":-1,\"List\":[]}";
const char kStatsFail[] = "{\"Result\":-1,\"UsStats\":0,\"DsStats\":0}";
const char kSpeedFail[] = "{\"Result\":-1,\"upSpeed\":0,\"downSpeed\":0}";
const char kLimitFail[] = "{\"Result\":-1,\"UpSpeed\":0,\"DownSpeed\":0}";

class FlowQoS : public testsupport::BridgeTest {
 protected:
  void SetUp() override {
    BridgeTest::SetUp();
    sim_set("flow 1", "traffic", "203.0.113.10 443;198.51.100.7 5000-5100");
    sim_set("flow 1", "up_bytes", "5000000000");
    sim_set("flow 1", "down_bytes", "18446744073709551615");
    sim_set("flow 1", "up_speed", "0");
    sim_set("flow 1", "down_speed", "0");
    sim_set("flow 1", "up_limit", "100");
    sim_set("flow 1", "down_limit", "200");
    sim_set("flow 1", "dscp", "46");
    sim_set("flow 2", "traffic", "");
  }
  std::string traffic(jint flow) { return text(QOS(getTrafficInfoByFlowJni)(env(), self(), flow)); }
};

TEST_F(FlowQoS, AddAndDeleteTrafficPassTheTextsAndResult) {
  EXPECT_EQ(QOS(addTrafficToFlowJni)(env(), self(), jvm().str("192.0.2.1"), jvm().str("80"), 2), 0);
  EXPECT_EQ(traffic(2), "{\"Result\":0,\"List\":[{\"RemoteAddress\":\"192.0.2.1\",\"RemotePort\":\"80\"}]}");
  EXPECT_EQ(QOS(deleteTrafficFromFlowJni)(env(), self(), jvm().str("192.0.2.1"), jvm().str("80"), 2), 0);
  EXPECT_EQ(QOS(deleteTrafficFromFlowJni)(env(), self(), jvm().str("192.0.2.1"), jvm().str("80"), 2), -1);
  EXPECT_EQ(traffic(2), "{\"Result\":0,\"List\":[]}");
  EXPECT_EQ(log(),
            "brelo_addTrafficToFlow(\"192.0.2.1\", \"80\", 2)\nbrelo_getTrafficInfoByFlow(2)\n"
            "brelo_deleteTrafficFromFlow(\"192.0.2.1\", \"80\", 2)\n"
            "brelo_deleteTrafficFromFlow(\"192.0.2.1\", \"80\", 2)\nbrelo_getTrafficInfoByFlow(2)\n");
  sim_program_result("brelo_addTrafficToFlow", 5);
  EXPECT_EQ(QOS(addTrafficToFlowJni)(env(), self(), jvm().str("a"), jvm().str("1"), 2), 5);
  sim_program_result("brelo_deleteTrafficFromFlow", -4);
  EXPECT_EQ(QOS(deleteTrafficFromFlowJni)(env(), self(), jvm().str("a"), jvm().str("1"), 2), -4);
  EXPECT_EQ(jvm().acquired(), 10);
  EXPECT_EQ(jvm().released(), 10);
}

TEST_F(FlowQoS, ANullRemoteAddressReachesThePlatformAsNullAndIsNotReleased) {
  EXPECT_EQ(QOS(addTrafficToFlowJni)(env(), self(), nullptr, jvm().str("80"), 1), -1);
  EXPECT_EQ(QOS(deleteTrafficFromFlowJni)(env(), self(), jvm().str("a"), nullptr, 1), -1);
  EXPECT_EQ(QOS(addTrafficToFlowJni)(env(), self(), nullptr, nullptr, 1), -1);
  EXPECT_EQ(log(),
            "brelo_addTrafficToFlow(NULL, \"80\", 1)\nbrelo_deleteTrafficFromFlow(\"a\", NULL, 1)\n"
            "brelo_addTrafficToFlow(NULL, NULL, 1)\n");
  EXPECT_EQ(jvm().events_text(),
            "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1)\n"
            "GetStringUTFChars(s2)\nReleaseStringUTFChars(s2)\n");
}

TEST_F(FlowQoS, AFailedCopyStopsTheCallAndTheSecondTextIsNotAskedFor) {
  jstring address = jvm().failing_str();
  jstring port = jvm().str("80");
  EXPECT_EQ(QOS(addTrafficToFlowJni)(env(), self(), address, port, 1), -1);
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().events_text(), "GetStringUTFChars(s1)\nReleaseStringUTFChars(s1,NULL)\n");
}

TEST_F(FlowQoS, EmptyTextsAndOddFlowIds) {
  EXPECT_EQ(QOS(addTrafficToFlowJni)(env(), self(), jvm().str(""), jvm().str(""), 1), -1);
  EXPECT_EQ(QOS(addTrafficToFlowJni)(env(), self(), jvm().str("a"), jvm().str("1"), -1), -1);
  EXPECT_EQ(QOS(addTrafficToFlowJni)(env(), self(), jvm().str("a"), jvm().str("1"), INT32_MAX), -1);
  EXPECT_EQ(QOS(deleteAllTrafficFromFlowJni)(env(), self(), INT32_MIN), -1);
  EXPECT_EQ(traffic(-1), kListFail);
  EXPECT_EQ(traffic(INT32_MAX), kListFail);
  EXPECT_EQ(text(QOS(getStatsByFlowJni)(env(), self(), INT32_MIN)), kStatsFail);
  EXPECT_EQ(text(QOS(getSpeedByFlowJni)(env(), self(), -7)), kSpeedFail);
  EXPECT_EQ(text(QOS(getSpeedLimitByFlowJni)(env(), self(), 1000000)), kLimitFail);
  EXPECT_EQ(QOS(setSpeedLimitByFlowJni)(env(), self(), -1, 1, 1), -1);
  EXPECT_EQ(QOS(setDSCPRemarkByFlowJni)(env(), self(), INT32_MAX, 1), -1);
  EXPECT_EQ(QOS(getDSCPRemarkByFlowJni)(env(), self(), INT32_MIN), -1);
  EXPECT_EQ(log(),
            "brelo_addTrafficToFlow(\"\", \"\", 1)\nbrelo_addTrafficToFlow(\"a\", \"1\", -1)\n"
            "brelo_addTrafficToFlow(\"a\", \"1\", 2147483647)\nbrelo_deleteAllTrafficFromFlow(-2147483648)\n"
            "brelo_getTrafficInfoByFlow(-1)\nbrelo_getTrafficInfoByFlow(2147483647)\n"
            "brelo_getStatsByFlow(-2147483648)\nbrelo_getSpeedByFlow(-7)\nbrelo_getSpeedLimitByFlow(1000000)\n"
            "brelo_setSpeedLimitByFlow(-1, 1, 1)\nbrelo_setDSCPRemarkByFlow(2147483647, 1)\n"
            "brelo_getDSCPRemarkByFlow(-2147483648)\n");
}

TEST_F(FlowQoS, DeleteAllTraffic) {
  EXPECT_EQ(QOS(deleteAllTrafficFromFlowJni)(env(), self(), 1), 0);
  EXPECT_EQ(traffic(1), "{\"Result\":0,\"List\":[]}");
  sim_program_result("brelo_deleteAllTrafficFromFlow", 9);
  EXPECT_EQ(QOS(deleteAllTrafficFromFlowJni)(env(), self(), 1), 9);
}

TEST_F(FlowQoS, TrafficListInOrder) {
  EXPECT_EQ(traffic(1),
            "{\"Result\":0,\"List\":[{\"RemoteAddress\":\"203.0.113.10\",\"RemotePort\":\"443\"},"
            "{\"RemoteAddress\":\"198.51.100.7\",\"RemotePort\":\"5000-5100\"}]}");
  EXPECT_EQ(traffic(2), "{\"Result\":0,\"List\":[]}");
}

TEST_F(FlowQoS, TrafficItemsWithNullTexts) {
  sim_set("flow 2", "traffic", "(null) 80;192.0.2.9 (null);(null) (null)");
  EXPECT_EQ(traffic(2),
            "{\"Result\":0,\"List\":[{\"RemoteAddress\":\"\",\"RemotePort\":\"80\"},"
            "{\"RemoteAddress\":\"192.0.2.9\",\"RemotePort\":\"\"},{\"RemoteAddress\":\"\",\"RemotePort\":\"\"}]}");
}

TEST_F(FlowQoS, AFailedTrafficQueryStillFreesTheItems) {
  sim_program_result("brelo_getTrafficInfoByFlow", -1);
  EXPECT_EQ(traffic(1), kListFail);
  sim_program_result("brelo_getTrafficInfoByFlow", 3);
  EXPECT_EQ(traffic(1), kListFail);
}

TEST_F(FlowQoS, ALongTrafficListIsCutAt10239Bytes) {
  sim_set("flow 2", "extra_traffic", "10000");
  std::string reply = traffic(2);
  if (bundle::hardened_profile()) {  // a cut list: the native's failure reply instead
    EXPECT_EQ(reply, kListFail);
  } else {
    EXPECT_EQ(reply.size(), 10239u);
  }
  if (!bundle::hardened_profile()) {
    EXPECT_EQ(reply.rfind("{\"Result\":0,\"List\":[{\"RemoteAddress\":\"192.0.0.0\",\"RemotePort\":\"1\"},", 0), 0u);
  }
  // Just under the bound the list is whole.
  sim_set("flow 2", "extra_traffic", "10");
  reply = traffic(2);
  EXPECT_EQ(reply.substr(reply.size() - 49), "{\"RemoteAddress\":\"192.0.0.9\",\"RemotePort\":\"10\"}]}");
}

TEST_F(FlowQoS, StatsAre64BitUnquotedAndGrow) {
  EXPECT_EQ(text(QOS(getStatsByFlowJni)(env(), self(), 1)),
            "{\"Result\":0,\"UsStats\":5000000000,\"DsStats\":18446744073709551615}");
  sim_set("flow 1", "up_speed", "8");
  sim_set("flow 1", "down_speed", "0");
  EXPECT_EQ(text(QOS(getStatsByFlowJni)(env(), self(), 1)),
            "{\"Result\":0,\"UsStats\":5000001000,\"DsStats\":18446744073709551615}");
  EXPECT_EQ(text(QOS(getStatsByFlowJni)(env(), self(), 1)),
            "{\"Result\":0,\"UsStats\":5000002000,\"DsStats\":18446744073709551615}");
  sim_program_result("brelo_getStatsByFlow", 1);
  EXPECT_EQ(text(QOS(getStatsByFlowJni)(env(), self(), 1)), kStatsFail);
}

TEST_F(FlowQoS, SpeedAndLimitUseTheirOwnKeySpellings) {
  sim_set("flow 1", "up_speed", "1000");
  sim_set("flow 1", "down_speed", "100");
  sim_set("flow 1", "up_limit", "0");
  EXPECT_EQ(text(QOS(getSpeedByFlowJni)(env(), self(), 1)), "{\"Result\":0,\"upSpeed\":970,\"downSpeed\":97}");
  EXPECT_EQ(text(QOS(getSpeedByFlowJni)(env(), self(), 1)), "{\"Result\":0,\"upSpeed\":1040,\"downSpeed\":104}");
  EXPECT_EQ(QOS(setSpeedLimitByFlowJni)(env(), self(), 1, 512, 2048), 0);
  EXPECT_EQ(text(QOS(getSpeedLimitByFlowJni)(env(), self(), 1)), "{\"Result\":0,\"UpSpeed\":512,\"DownSpeed\":2048}");
  EXPECT_EQ(text(QOS(getSpeedByFlowJni)(env(), self(), 1)), "{\"Result\":0,\"upSpeed\":512,\"downSpeed\":90}");
  EXPECT_EQ(QOS(setSpeedLimitByFlowJni)(env(), self(), 1, -1, 5), -1);
  sim_program_result("brelo_setSpeedLimitByFlow", 77);
  EXPECT_EQ(QOS(setSpeedLimitByFlowJni)(env(), self(), 1, 1, 1), 77);
  sim_program_result("brelo_getSpeedByFlow", -1);
  sim_program_result("brelo_getSpeedLimitByFlow", -1);
  EXPECT_EQ(text(QOS(getSpeedByFlowJni)(env(), self(), 1)), kSpeedFail);
  EXPECT_EQ(text(QOS(getSpeedLimitByFlowJni)(env(), self(), 1)), kLimitFail);
}

TEST_F(FlowQoS, DscpValues) {
  for (int dscp : {-2, 64, INT32_MIN}) EXPECT_EQ(QOS(setDSCPRemarkByFlowJni)(env(), self(), 1, dscp), -1) << dscp;
  EXPECT_EQ(QOS(getDSCPRemarkByFlowJni)(env(), self(), 1), 46);
  for (int dscp : {0, 63, -1}) {
    EXPECT_EQ(QOS(setDSCPRemarkByFlowJni)(env(), self(), 1, dscp), 0) << dscp;
    EXPECT_EQ(QOS(getDSCPRemarkByFlowJni)(env(), self(), 1), dscp) << dscp;
  }
  sim_program_result("brelo_setDSCPRemarkByFlow", 8);
  EXPECT_EQ(QOS(setDSCPRemarkByFlowJni)(env(), self(), 1, 5), 8);
}

TEST_F(FlowQoS, DscpFailureRule) {
  // A platform that returns -2 without writing the value gives -1 (flow 9 is unknown).
  sim_program_result("brelo_getDSCPRemarkByFlow", -2);
  EXPECT_EQ(QOS(getDSCPRemarkByFlowJni)(env(), self(), 9), -1);
  // A failure other than -1 that wrote a value hands it back.
  EXPECT_EQ(QOS(getDSCPRemarkByFlowJni)(env(), self(), 1), 46);
  // Exactly -1 gives -1 whatever was written.
  sim_program_result("brelo_getDSCPRemarkByFlow", -1);
  EXPECT_EQ(QOS(getDSCPRemarkByFlowJni)(env(), self(), 1), -1);
  // Success writing 46 gives 46.
  sim_program_result("brelo_getDSCPRemarkByFlow", 0);
  EXPECT_EQ(QOS(getDSCPRemarkByFlowJni)(env(), self(), 1), 46);
}

TEST_F(FlowQoS, TracesEveryReturn) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  QOS(addTrafficToFlowJni)(env(), self(), nullptr, nullptr, 1);
  QOS(deleteTrafficFromFlowJni)(env(), self(), nullptr, nullptr, 1);
  QOS(deleteAllTrafficFromFlowJni)(env(), self(), 9);
  traffic(9);
  QOS(getStatsByFlowJni)(env(), self(), 9);
  QOS(getSpeedByFlowJni)(env(), self(), 9);
  QOS(setSpeedLimitByFlowJni)(env(), self(), 9, 1, 1);
  QOS(getSpeedLimitByFlowJni)(env(), self(), 9);
  QOS(setDSCPRemarkByFlowJni)(env(), self(), 9, 1);
  QOS(getDSCPRemarkByFlowJni)(env(), self(), 1);
  const std::string p = "Java_com_lumarest_smartgateway_transferservices_TrafficQoSServiceImp_";
  EXPECT_EQ(mask_line_numbers(out.finish()),
            p + "addTrafficToFlowJni:N:addTrafficToFlowJni: return code = -1   leave============>\n" +
            p + "deleteTrafficFromFlowJni:N:deleteTrafficFromFlowJni: return code = -1   leave============>\n" +
            p + "deleteAllTrafficFromFlowJni:N:deleteAllTrafficFromFlowJni: return code = -1   leave============>\n" +
            p + "getTrafficInfoByFlowJni:N:getTrafficInfoByFlowJni: return json = " + kListFail + "   leave============>\n" +
            p + "getStatsByFlowJni:N:getStatsByFlowJni: return json = " + kStatsFail + "   leave============>\n" +
            p + "getSpeedByFlowJni:N:getSpeedByFlowJni: return json = " + kSpeedFail + "   leave============>\n" +
            p + "setSpeedLimitByFlowJni:N:setSpeedLimitByFlowJni: return code = -1   leave============>\n" +
            p + "getSpeedLimitByFlowJni:N:getSpeedLimitByFlowJni: return json = " + kLimitFail + "   leave============>\n" +
            p + "setDSCPRemarkByFlowJni:N:setDSCPRemarkByFlowJni: return code = -1   leave============>\n" +
            p + "getDSCPRemarkByFlowJni:N:getDSCPRemarkByFlowJni: return code = 46   leave============>\n");
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef QOS
