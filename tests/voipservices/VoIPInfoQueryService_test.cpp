// com.lumarest.smartgateway.voipservices.VoIPInfoQueryServiceImp
#include <string>

#include "common/hardened.h"
#include "tests/test_support.h"

#define POTS(m) Java_com_lumarest_smartgateway_voipservices_VoIPInfoQueryServiceImp_##m
extern "C" {
jstring POTS(getPOTSInfoJni)(JNIEnv *, jobject);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

std::string line_object(int index, const std::string &number, const std::string &status) {
  return "{\"POTSIndex\":" + std::to_string(index) + ",\"PhoneNumber\":\"" + number +
         "\",\"LineStatus\":\"" + status + "\"}";
}

class PotsInfo : public testsupport::BridgeTest {
 protected:
  std::string pots() { return text(POTS(getPOTSInfoJni)(env(), self())); }
  void line(int n, const char *numbers, const char *statuses) {
    std::string section = "pots line " + std::to_string(n);
    sim_set(section.c_str(), "numbers", numbers);
    if (statuses != nullptr) sim_set(section.c_str(), "statuses", statuses);
  }
};

TEST_F(PotsInfo, ZeroLinesGiveAnEmptyList) {
  EXPECT_EQ(pots(), "{\"Result\":0,\"POTSNum\":0,\"Info\":[]}");
  EXPECT_EQ(log(), "brelo_voipGetNumberOfPOTS()\n");
}

TEST_F(PotsInfo, NegativeLineCountAsksForNoLine) {
  sim_set("voip", "lines", "-3");
  EXPECT_EQ(pots(), "{\"Result\":0,\"POTSNum\":-3,\"Info\":[]}");
  EXPECT_EQ(log(), "brelo_voipGetNumberOfPOTS()\n");
}

TEST_F(PotsInfo, ALineWithoutInformationIsUnknownAndTheNextIsSeparated) {
  sim_set("voip", "lines", "2");
  line(2, "02150001002", "4");
  EXPECT_EQ(pots(), "{\"Result\":0,\"POTSNum\":2,\"Info\":[" + line_object(1, "", "UNKNOWN") + "," +
                        line_object(2, "02150001002", "ACCOUNTERR") + "]}");
  EXPECT_EQ(log(),
            "brelo_voipGetNumberOfPOTS()\nbrelo_voipGetLineInfo(1)\nbrelo_voipGetLineInfo(2)\n");
}

TEST_F(PotsInfo, EveryStatusOfTheTable) {
  const char *names[] = {"SUCCESS", "IADERROR", "NOROUTE", "NORESPONSE", "ACCOUNTERR", "UNKNOWN"};
  sim_set("voip", "lines", "6");
  std::string expected = "{\"Result\":0,\"POTSNum\":6,\"Info\":[";
  for (int i = 0; i < 6; ++i) {
    std::string number = "100" + std::to_string(i);
    line(i + 1, number.c_str(), std::to_string(i).c_str());
    expected += (i ? "," : "") + line_object(i + 1, number, names[i]);
  }
  EXPECT_EQ(pots(), expected + "]}");
}

TEST_F(PotsInfo, StatusCodesOutsideTheTableReadAsUnknown) {
  sim_set("voip", "lines", "1");
  line(1, "1,2,3,4", "6,-1,2147483647,-2147483648");
  EXPECT_EQ(pots(), "{\"Result\":0,\"POTSNum\":1,\"Info\":[" + line_object(1, "1", "UNKNOWN") + "," +
                        line_object(1, "2", "UNKNOWN") + "," + line_object(1, "3", "UNKNOWN") +
                        "," + line_object(1, "4", "UNKNOWN") + "]}");
}

TEST_F(PotsInfo, SeveralNodesOfOneLineShareItsIndex) {
  sim_set("voip", "lines", "2");
  line(1, "02150001001,02150001009", "0,2");
  line(2, "02150001002", "3");
  EXPECT_EQ(pots(), "{\"Result\":0,\"POTSNum\":2,\"Info\":[" +
                        line_object(1, "02150001001", "SUCCESS") + "," +
                        line_object(1, "02150001009", "NOROUTE") + "," +
                        line_object(2, "02150001002", "NORESPONSE") + "]}");
}

TEST_F(PotsInfo, MoreLinesThanThePlatformKnowsAreUnknown) {
  sim_set("voip", "lines", "3");
  line(1, "111", "0");
  EXPECT_EQ(pots(), "{\"Result\":0,\"POTSNum\":3,\"Info\":[" + line_object(1, "111", "SUCCESS") +
                        "," + line_object(2, "", "UNKNOWN") + "," + line_object(3, "", "UNKNOWN") +
                        "]}");
}

TEST_F(PotsInfo, APhoneNumberFillingItsFieldIsCutAtTheLastByte) {
  sim_set("voip", "lines", "1");
  line(1, std::string(40, '7').c_str(), "0");
  EXPECT_EQ(pots(), "{\"Result\":0,\"POTSNum\":1,\"Info\":[" +
                        line_object(1, std::string(31, '7'), "SUCCESS") + "]}");
}

TEST_F(PotsInfo, ALongListIsCutAtTheBufferAndEveryLineIsStillAsked) {
  sim_set("voip", "lines", "40");
  std::string full = "{\"Result\":0,\"POTSNum\":40,\"Info\":[";
  for (int i = 1; i <= 40; ++i) {
    std::string numbers = "5550" + std::to_string(i) + ",5551" + std::to_string(i);
    line(i, numbers.c_str(), "0,1");
    full += (i > 1 ? "," : "") + line_object(i, "5550" + std::to_string(i), "SUCCESS") + "," +
            line_object(i, "5551" + std::to_string(i), "IADERROR");
  }
  full += "]}";
  ASSERT_GT(full.size(), 1023u);
  EXPECT_EQ(pots(), bundle::hardened_profile() ? std::string("{\"Result\":-1}") : full.substr(0, 1023));  // cut: failure when hardened
  EXPECT_EQ(sim_log_count("brelo_voipGetLineInfo"), 40);
}

TEST_F(PotsInfo, AnAbsurdLineCountIsWalkedOnlyUntilTheReplyIsFullAndLine256) {
  sim_program_result("brelo_voipGetNumberOfPOTS", 2147483647);
  std::string reply = pots();
  if (bundle::hardened_profile()) {
    EXPECT_EQ(reply, "{\"Result\":-1}");  // cut: failure when hardened
  } else {
    EXPECT_EQ(reply.size(), 1023u);
    EXPECT_EQ(reply.rfind("{\"Result\":0,\"POTSNum\":2147483647,\"Info\":[", 0), 0u);
  }
  EXPECT_EQ(sim_log_count("brelo_voipGetLineInfo"), 256);
}

TEST_F(PotsInfo, LargestLineNumberIsPrintedInFull) {
  sim_set("voip", "lines", "2147483647");
  sim_program_result("brelo_voipGetNumberOfPOTS", -2147483647 - 1);
  EXPECT_EQ(pots(), "{\"Result\":0,\"POTSNum\":-2147483648,\"Info\":[]}");
}

TEST_F(PotsInfo, TheReplyIsTraced) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  pots();
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_voipservices_VoIPInfoQueryServiceImp_getPOTSInfoJni:N:"
            "getPOTSInfoJni: return json = {\"Result\":0,\"POTSNum\":0,\"Info\":[]}   leave============>\n");
}

TEST_F(PotsInfo, ANullReplyFromTheJvmIsHandedBack) {
  sim_set("voip", "lines", "1");
  line(1, "1", "0");
  jvm().fail_new_string(true);
  EXPECT_EQ(POTS(getPOTSInfoJni)(env(), self()), nullptr);
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef POTS
