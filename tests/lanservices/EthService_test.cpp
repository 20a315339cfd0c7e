// com.lumarest.smartgateway.lanservices.EthQueryServiceImp and EthConfigServiceImp
#include <string>

#include "tests/test_support.h"

#define QUERY(m) Java_com_lumarest_smartgateway_lanservices_EthQueryServiceImp_##m
#define CONFIG(m) Java_com_lumarest_smartgateway_lanservices_EthConfigServiceImp_##m
extern "C" {
jstring QUERY(getLANEthernetInfoJni)(JNIEnv *, jobject, jint);
jstring QUERY(getLANEthernetStatsJni)(JNIEnv *, jobject, jint);
jint CONFIG(setLANEthernetEnableJni)(JNIEnv *, jobject, jint, jboolean);
jint CONFIG(setLANEthernetMaxBitRateJni)(JNIEnv *, jobject, jint, jstring);
jint CONFIG(setLANEthernetDuplexModeJni)(JNIEnv *, jobject, jint, jstring);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const std::string kQ = "Java_com_lumarest_smartgateway_lanservices_EthQueryServiceImp_";
const std::string kC = "Java_com_lumarest_smartgateway_lanservices_EthConfigServiceImp_";

class EthService : public testsupport::BridgeTest {
 protected:
  void SetUp() override {
    testsupport::BridgeTest::SetUp();
    sim_set("eth 1", "enable", "1");
    sim_set("eth 1", "status", "Up");
    sim_set("eth 1", "bit_rate", "1000");
    sim_set("eth 1", "duplex", "Full");
    sim_set("eth 1", "bytes_sent", "4294967295");
    sim_set("eth 1", "bytes_received", "2147483648");
    sim_set("eth 1", "packets_sent", "3");
    sim_set("eth 1", "packets_received", "0");
  }
};

TEST_F(EthService, InfoQuotesTheFourTexts) {
  EXPECT_EQ(text(QUERY(getLANEthernetInfoJni)(env(), self(), 1)),
            "{\"Result\":0,\"Enable\":\"1\",\"Status\":\"Up\",\"BitRate\":\"1000\",\"DuplexMode\":\"Full\"}");
  EXPECT_EQ(log(), "brelo_getLANEthernetInfo(1)\n");
}

TEST_F(EthService, FailedInfoQuery) {
  EXPECT_EQ(text(QUERY(getLANEthernetInfoJni)(env(), self(), 9)),
            "{\"Result\":-1,\"FailReason\":\"Get LANEthernetInfo fail\"}");
}

TEST_F(EthService, InfoTextsFilledToTheBrimStayInTheirBuffers) {
  sim_set("eth 1", "status", std::string(100, 's').c_str());
  std::string reply = text(QUERY(getLANEthernetInfoJni)(env(), self(), 1));
  EXPECT_NE(reply.find("\"Status\":\"" + std::string(63, 's') + "\","), std::string::npos) << reply;
}

TEST_F(EthService, InfoTraceShowsLengthAndReply) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  QUERY(getLANEthernetInfoJni)(env(), self(), 9);
  std::string reply = "{\"Result\":-1,\"FailReason\":\"Get LANEthernetInfo fail\"}";
  std::string trace = mask_line_numbers(out.finish());
  std::string head = kQ + "getLANEthernetInfoJni:N:" + kQ + "getLANEthernetInfoJni, line = ";
  ASSERT_EQ(trace.rfind(head, 0), 0u) << trace;
  EXPECT_NE(trace.find(",  len=" + std::to_string(reply.size()) + " ,temp_buf=\n" + reply + "\n"), std::string::npos)
      << trace;
}

TEST_F(EthService, StatsAreUnsigned32BitNumbers) {
  EXPECT_EQ(text(QUERY(getLANEthernetStatsJni)(env(), self(), 1)),
            "{\"Result\":0,\"BytesSent\":4294967295,\"BytesReceived\":2147483648,\"PacketsSent\":3,"
            "\"PacketsReceived\":0}");
  EXPECT_EQ(text(QUERY(getLANEthernetStatsJni)(env(), self(), 2)),
            "{\"Result\":-1,\"FailReason\":\"Get LANEthernetStats fail\"}");
  EXPECT_EQ(log(), "brelo_getLANEthernetStats(1)\nbrelo_getLANEthernetStats(2)\n");
}

TEST_F(EthService, StatsTraceShowsLengthAndReply) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  QUERY(getLANEthernetStatsJni)(env(), self(), 2);
  std::string trace = mask_line_numbers(out.finish());
  EXPECT_EQ(trace.rfind(kQ + "getLANEthernetStatsJni:N:" + kQ + "getLANEthernetStatsJni, line = ", 0), 0u) << trace;
  std::string reply = "{\"Result\":-1,\"FailReason\":\"Get LANEthernetStats fail\"}";
  EXPECT_NE(trace.find(",  len=" + std::to_string(reply.size()) + " ,temp_buf=\n" + reply + "\n"),
            std::string::npos)
      << trace;
}

TEST_F(EthService, EnableIsTrueOnlyForExactlyOne) {
  EXPECT_EQ(CONFIG(setLANEthernetEnableJni)(env(), self(), 1, 1), 0);
  EXPECT_EQ(CONFIG(setLANEthernetEnableJni)(env(), self(), 1, 2), 0);
  EXPECT_EQ(CONFIG(setLANEthernetEnableJni)(env(), self(), 1, 0xFF), 0);
  EXPECT_EQ(CONFIG(setLANEthernetEnableJni)(env(), self(), 7, 1), -1);
  EXPECT_EQ(log(),
            "brelo_setLANEthernetEnable(1, 1)\nbrelo_setLANEthernetEnable(1, 0)\n"
            "brelo_setLANEthernetEnable(1, 0)\nbrelo_setLANEthernetEnable(7, 1)\n");
  EXPECT_STREQ(sim_get("eth 1", "enable"), "0");
}

TEST_F(EthService, EnableTracesBeforeAndAfter) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  CONFIG(setLANEthernetEnableJni)(env(), self(), 3, 2);
  std::string n = kC + "setLANEthernetEnableJni";
  std::string trace = mask_line_numbers(out.finish());
  EXPECT_EQ(trace.rfind(n + ":N:" + n + ", line=", 0), 0u) << trace;
  EXPECT_NE(trace.find(": C_Index = 3 ,enable = 0 \n" + n + ":N:" + n + ":  ret =-1  \n"), std::string::npos) << trace;
}

TEST_F(EthService, TextSettersPassTheTextAndReturnThePlatformResult) {
  EXPECT_EQ(CONFIG(setLANEthernetMaxBitRateJni)(env(), self(), 1, jvm().str("100")), 0);
  EXPECT_EQ(CONFIG(setLANEthernetDuplexModeJni)(env(), self(), 1, jvm().str("Half")), 0);
  EXPECT_EQ(CONFIG(setLANEthernetDuplexModeJni)(env(), self(), 1, jvm().str("half")), -1);
  EXPECT_EQ(log(),
            "brelo_setLANEthernetMaxBitRate(1, \"100\")\nbrelo_setLANEthernetDuplexMode(1, \"Half\")\n"
            "brelo_setLANEthernetDuplexMode(1, \"half\")\n");
  EXPECT_STREQ(sim_get("eth 1", "bit_rate"), "100");
  EXPECT_STREQ(sim_get("eth 1", "duplex"), "Half");
}

TEST_F(EthService, TextSettersTraceTheirResultUnderTheirOwnName) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  CONFIG(setLANEthernetDuplexModeJni)(env(), self(), 1, jvm().str("half"));
  CONFIG(setLANEthernetMaxBitRateJni)(env(), self(), 1, jvm().str("100"));
  std::string d = kC + "setLANEthernetDuplexModeJni", m = kC + "setLANEthernetMaxBitRateJni";
  EXPECT_EQ(mask_line_numbers(out.finish()),
            d + ":N:" + d + ":  ret =-1  \n" + m + ":N:" + m + ":  ret =0  \n");
}

TEST_F(EthService, TextIsReleasedBeforeThePlatformCall) {
  struct Check {
    static void hook(const char *, void *ctx) {
      auto *jvm = static_cast<fakejni::FakeJvm *>(ctx);
      EXPECT_EQ(jvm->outstanding(), 0);
    }
  };
  sim_program_hook("brelo_setLANEthernetMaxBitRate", Check::hook, &jvm());
  CONFIG(setLANEthernetMaxBitRateJni)(env(), self(), 1, jvm().str("10"));
}

TEST_F(EthService, TextsOf31CharactersArePassedWholeAndLongerOnesCut) {
  std::string t31(31, 'r'), t40(40, 'd');
  CONFIG(setLANEthernetMaxBitRateJni)(env(), self(), 1, jvm().str(t31));
  CONFIG(setLANEthernetDuplexModeJni)(env(), self(), 1, jvm().str(t40));
  EXPECT_EQ(log(), "brelo_setLANEthernetMaxBitRate(1, \"" + t31 + "\")\nbrelo_setLANEthernetDuplexMode(1, \"" +
                       std::string(31, 'd') + "\")\n");
}

TEST_F(EthService, TextSettersWithoutATextReturnMinusOne) {
  EXPECT_EQ(CONFIG(setLANEthernetMaxBitRateJni)(env(), self(), 1, nullptr), -1);
  EXPECT_EQ(CONFIG(setLANEthernetDuplexModeJni)(env(), self(), 1, jvm().failing_str()), -1);
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().null_releases(), 1);
}

TEST_F(EthService, TextSettersTraceTheResult) {
  sim_program_result("brelo_setLANEthernetDuplexMode", 4);
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  EXPECT_EQ(CONFIG(setLANEthernetDuplexModeJni)(env(), self(), 2, jvm().str("Full")), 4);
  std::string n = kC + "setLANEthernetDuplexModeJni";
  EXPECT_EQ(mask_line_numbers(out.finish()), n + ":N:" + n + ":  ret =4  \n");
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef CONFIG
#undef QUERY
