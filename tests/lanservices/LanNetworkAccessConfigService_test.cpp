// com.lumarest.smartgateway.lanservices.LanNetworkAccessConfigServiceImp
#include <string>
#include <vector>

#include "tests/test_support.h"

#define NATIVE(m) Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_##m
extern "C" {
jint NATIVE(setMacFilterModeJni)(JNIEnv *, jobject, jint);
jint NATIVE(addLANHostToBlackListJni)(JNIEnv *, jobject, jobjectArray);
jint NATIVE(deleteLANHostFromBlackListJni)(JNIEnv *, jobject, jobjectArray);
jint NATIVE(addLANHostToStorageBlackListJni)(JNIEnv *, jobject, jobjectArray);
jint NATIVE(deleteLANHostFromStorageBlackListJni)(JNIEnv *, jobject, jobjectArray);
jint NATIVE(addLANHostToTrustListJni)(JNIEnv *, jobject, jobjectArray);
jint NATIVE(deleteLANHostFromTrustListJni)(JNIEnv *, jobject, jobjectArray);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const char kA[] = "00:11:22:33:44:55";
const char kB[] = "AA:BB:CC:DD:EE:FF";

class LanNetworkAccessConfigService : public testsupport::BridgeTest {
 protected:
  jobjectArray macs(const std::vector<std::string> &m) { return jvm().array_of(m); }
  std::string lan(const char *key) {
    const char *v = sim_get("lan", key);
    return v ? v : "<absent>";
  }
};

TEST_F(LanNetworkAccessConfigService, FilterModeGoesToThePlatformUnchanged) {
  EXPECT_EQ(NATIVE(setMacFilterModeJni)(env(), self(), 2), 0);
  EXPECT_EQ(lan("filter_mode"), "2");
  EXPECT_EQ(NATIVE(setMacFilterModeJni)(env(), self(), 77), -1);
  sim_program_result("brelo_lanSetFilterMode", 5);
  EXPECT_EQ(NATIVE(setMacFilterModeJni)(env(), self(), -3), 5);
  EXPECT_EQ(log(), "brelo_lanSetFilterMode(2)\nbrelo_lanSetFilterMode(77)\nbrelo_lanSetFilterMode(-3)\n");
}

TEST_F(LanNetworkAccessConfigService, AddToBlackListAddsEveryEntryWithoutTouchingTheMode) {
  EXPECT_EQ(NATIVE(addLANHostToBlackListJni)(env(), self(), macs({kA, "aa:bb:cc:dd:ee:ff"})), 0);
  EXPECT_EQ(log(),
            "brelo_lanSetLanDevAccessPermission(\"00:11:22:33:44:55\", 1, 1)\n"
            "brelo_lanSetLanDevAccessPermission(\"aa:bb:cc:dd:ee:ff\", 1, 1)\n");
  EXPECT_EQ(lan("black_list"), "00:11:22:33:44:55,AA:BB:CC:DD:EE:FF");
  EXPECT_EQ(jvm().outstanding(), 0);
}

TEST_F(LanNetworkAccessConfigService, AddToTrustListUsesKindTwo) {
  EXPECT_EQ(NATIVE(addLANHostToTrustListJni)(env(), self(), macs({kB})), 0);
  EXPECT_EQ(log(), "brelo_lanSetLanDevAccessPermission(\"AA:BB:CC:DD:EE:FF\", 2, 1)\n");
  EXPECT_EQ(lan("trust_list"), kB);
}

TEST_F(LanNetworkAccessConfigService, AnEmptyArrayAddsNothingAndReturnsZero) {
  EXPECT_EQ(NATIVE(addLANHostToBlackListJni)(env(), self(), macs({})), 0);
  EXPECT_EQ(NATIVE(addLANHostToTrustListJni)(env(), self(), macs({"", ""})), 0);
  EXPECT_EQ(NATIVE(addLANHostToBlackListJni)(env(), self(), nullptr), 0);
  EXPECT_EQ(log(), "");
}

TEST_F(LanNetworkAccessConfigService, AnEmptyEntryStopsTheWalkWithMinusOne) {
  EXPECT_EQ(NATIVE(addLANHostToBlackListJni)(env(), self(), macs({kA, "", kB})), -1);
  EXPECT_EQ(log(), "brelo_lanSetLanDevAccessPermission(\"00:11:22:33:44:55\", 1, 1)\n");
  sim_clear_log();
  EXPECT_EQ(NATIVE(addLANHostToTrustListJni)(env(), self(), macs({"", kA})), -1);
  EXPECT_EQ(log(), "");
}

TEST_F(LanNetworkAccessConfigService, APlatformMinusOneStopsTheWalk) {
  EXPECT_EQ(NATIVE(addLANHostToBlackListJni)(env(), self(), macs({"not a mac", kA})), -1);
  EXPECT_EQ(log(), "brelo_lanSetLanDevAccessPermission(\"not a mac\", 1, 1)\n");
}

TEST_F(LanNetworkAccessConfigService, OtherResultsGoOnAndTheLastOneCounts) {
  sim_program_result("brelo_lanSetLanDevAccessPermission", 3);
  EXPECT_EQ(NATIVE(addLANHostToBlackListJni)(env(), self(), macs({kA, kB})), 3);
  EXPECT_EQ(sim_log_count("brelo_lanSetLanDevAccessPermission"), 2);
}

TEST_F(LanNetworkAccessConfigService, BadTextsNeverOverflow) {
  std::vector<std::string> many(300, kA);
  EXPECT_EQ(NATIVE(addLANHostToBlackListJni)(env(), self(), macs(many)), 0);
  EXPECT_EQ(sim_log_count("brelo_lanSetLanDevAccessPermission"), 256);
  sim_clear_log();
  EXPECT_EQ(NATIVE(addLANHostToBlackListJni)(env(), self(), macs({std::string(400, 'F')})), -1);
  EXPECT_EQ(log(), "brelo_lanSetLanDevAccessPermission(\"" + std::string(127, 'F') + "\", 1, 1)\n");
}

TEST_F(LanNetworkAccessConfigService, StorageAddSavesAndRestoresTheMode) {
  sim_set("lan", "filter_mode", "2");
  EXPECT_EQ(NATIVE(addLANHostToStorageBlackListJni)(env(), self(), macs({kA, "", kB})), -1);
  EXPECT_EQ(log(),
            "brelo_lanGetFilterMode()\nbrelo_lanSetStorageDevAccessPermission(\"00:11:22:33:44:55\", 1)\n"
            "brelo_lanSetFilterMode(2)\n");
  EXPECT_EQ(lan("storage_black_list"), kA);
}

TEST_F(LanNetworkAccessConfigService, StorageAddRestoresTheModeReadEvenWhenTheReadFailed) {
  sim_program_result("brelo_lanGetFilterMode", -1);
  EXPECT_EQ(NATIVE(addLANHostToStorageBlackListJni)(env(), self(), macs({})), 0);
  EXPECT_EQ(log(), "brelo_lanGetFilterMode()\nbrelo_lanSetFilterMode(0)\n");
}

TEST_F(LanNetworkAccessConfigService, BlackListRemovalNeedsTheBlackListMode) {
  sim_set("lan", "black_list", std::string(kA).append(",").append(kB).c_str());
  sim_set("lan", "filter_mode", "2");
  EXPECT_EQ(NATIVE(deleteLANHostFromBlackListJni)(env(), self(), macs({kA})), -1);
  EXPECT_EQ(log(), "brelo_lanGetFilterMode()\n");
  EXPECT_EQ(jvm().acquired(), 0);  // the array is not read
  sim_clear_log();
  sim_set("lan", "filter_mode", "1");
  EXPECT_EQ(NATIVE(deleteLANHostFromBlackListJni)(env(), self(), macs({"00:11:22:33:44:55"})), 0);
  EXPECT_EQ(log(), "brelo_lanGetFilterMode()\nbrelo_macClearFromList([\"00:11:22:33:44:55\"], 1, 0)\n");
  EXPECT_EQ(lan("black_list"), kB);
}

TEST_F(LanNetworkAccessConfigService, BlackListRemovalFailsWhenTheModeCannotBeRead) {
  sim_set("lan", "filter_mode", "1");
  sim_program_result("brelo_lanGetFilterMode", -1);
  EXPECT_EQ(NATIVE(deleteLANHostFromBlackListJni)(env(), self(), macs({kA})), -1);
  EXPECT_EQ(log(), "brelo_lanGetFilterMode()\n");
}

TEST_F(LanNetworkAccessConfigService, AnEmptyArrayClearsWithACountOfZero) {
  sim_set("lan", "filter_mode", "1");
  EXPECT_EQ(NATIVE(deleteLANHostFromBlackListJni)(env(), self(), macs({})), 0);
  EXPECT_EQ(log(), "brelo_lanGetFilterMode()\nbrelo_macClearFromList([], 0, 0)\n");
}

TEST_F(LanNetworkAccessConfigService, ClearingResultIsReturned) {
  sim_set("lan", "filter_mode", "1");
  sim_program_result("brelo_macClearFromList", -4);
  EXPECT_EQ(NATIVE(deleteLANHostFromBlackListJni)(env(), self(), macs({kA})), -4);
}

TEST_F(LanNetworkAccessConfigService, TrustListRemovalInBlackListModeIsRefusedAndChangesNothing) {
  sim_set("lan", "trust_list", kA);
  sim_set("lan", "filter_mode", "1");
  EXPECT_EQ(NATIVE(deleteLANHostFromTrustListJni)(env(), self(), macs({kA})), -1);
  EXPECT_EQ(log(), "brelo_lanGetFilterMode()\n");
  EXPECT_EQ(lan("trust_list"), kA);
  EXPECT_EQ(lan("filter_mode"), "1");
}

TEST_F(LanNetworkAccessConfigService, TrustListRemovalSetsTheTrustModeAgain) {
  sim_set("lan", "trust_list", kA);
  sim_set("lan", "filter_mode", "2");
  sim_program_result("brelo_lanSetFilterMode", -1);  // ignored
  EXPECT_EQ(NATIVE(deleteLANHostFromTrustListJni)(env(), self(), macs({kA})), 0);
  EXPECT_EQ(log(),
            "brelo_lanGetFilterMode()\nbrelo_macClearFromList([\"00:11:22:33:44:55\"], 1, 2)\n"
            "brelo_lanSetFilterMode(2)\n");
  EXPECT_EQ(lan("trust_list"), "");
}

TEST_F(LanNetworkAccessConfigService, StorageRemovalClearsWhateverTheMode) {
  sim_set("lan", "storage_black_list", kA);
  sim_set("lan", "filter_mode", "7");
  EXPECT_EQ(NATIVE(deleteLANHostFromStorageBlackListJni)(env(), self(), macs({kA})), 0);
  EXPECT_EQ(log(),
            "brelo_lanGetFilterMode()\nbrelo_macClearFromList([\"00:11:22:33:44:55\"], 1, 1)\n"
            "brelo_lanSetFilterMode(7)\n");
  EXPECT_EQ(lan("storage_black_list"), "");
}

TEST_F(LanNetworkAccessConfigService, EveryNativeTracesItsResult) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  NATIVE(addLANHostToTrustListJni)(env(), self(), macs({}));
  NATIVE(deleteLANHostFromTrustListJni)(env(), self(), macs({}));
  std::string trace = mask_line_numbers(out.finish());
  const std::string p = "Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_";
  EXPECT_NE(trace.find(p + "addLANHostToTrustListJni:N:addLANHostToTrustListJni: return code = 0   leave============>\n"),
            std::string::npos)
      << trace;
  EXPECT_NE(trace.find(p + "deleteLANHostFromTrustListJni:N:deleteLANHostFromTrustListJni: return code = -1   "
                           "leave============>\n"),
            std::string::npos)
      << trace;
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef NATIVE
