// What Java receives when the heap buffers of the WLAN neighbour and station queries can't be
// allocated (see tests/alloc_wrap.h for how allocation is made to fail).
#include <stddef.h>
#include <stdlib.h>

#include <string>
#include <vector>

#include "tests/alloc_wrap.h"
#include "tests/test_support.h"

#define NATIVE(m) Java_com_lumarest_smartgateway_lanservices_WlanQueryServiceImp_##m
extern "C" {
jstring NATIVE(getWLANNeighborJni)(JNIEnv *, jobject, jstring);
jstring NATIVE(getWLANHostInfoJni)(JNIEnv *, jobject, jobjectArray);
}

namespace {

using testsupport::CaptureStdout;

class WlanReplyAllocation : public testsupport::BridgeTest {
 protected:
  void SetUp() override {
    BridgeTest::SetUp();
    for (int n = 1; n <= 2; ++n) {
      std::string s = "wlan neighbour " + std::to_string(n);
      sim_set(s.c_str(), "radio", "0");
      sim_set(s.c_str(), "ssid", ("ap" + std::to_string(n)).c_str());
      std::string st = "wlan station " + std::to_string(n);
      sim_set(st.c_str(), "ssid_index", "1");
      sim_set(st.c_str(), "mac", ("00:00:00:00:00:0" + std::to_string(n)).c_str());
    }
    sim_set("wlan ssid 1", "name", "Home");
  }
  void TearDown() override {
    disarm();
    BridgeTest::TearDown();
  }
  void arm(int fail_at) { allocwrap::arm(fail_at, &sizes_); }
  static void disarm() { allocwrap::disarm(); }
  std::vector<size_t> sizes_;
};

TEST_F(WlanReplyAllocation, NeighbourReplyTakesItsRecordsAndCountPlusOneTimes512Bytes) {
  jstring radio = jvm().str("2.4G");
  arm(0);
  jstring reply = NATIVE(getWLANNeighborJni)(env(), self(), radio);
  disarm();
  // The 128 zeroed neighbour records (too large for the stack), then the reply text.
  EXPECT_EQ(sizes_, std::vector<size_t>({23040, 3 * 512}));
  EXPECT_EQ(text(reply).rfind("{\"Result\":0,\"List\":[{\"SSIDName\":\"ap1\"", 0), 0u);
}

TEST_F(WlanReplyAllocation, NeighbourRecordsWithoutMemoryAreANullStringWithoutAPlatformCall) {
  jstring radio = jvm().str("2.4G");
  arm(1);
  jstring reply = NATIVE(getWLANNeighborJni)(env(), self(), radio);
  disarm();
  EXPECT_EQ(reply, nullptr);
  EXPECT_EQ(jvm().new_strings(), 0);
  EXPECT_EQ(jvm().outstanding(), 0);
  EXPECT_EQ(log(), "");
}

TEST_F(WlanReplyAllocation, NeighbourReplyWithoutMemoryIsANullString) {
  jstring radio = jvm().str("2.4G");
  arm(2);
  jstring reply = NATIVE(getWLANNeighborJni)(env(), self(), radio);
  disarm();
  EXPECT_EQ(reply, nullptr);
  EXPECT_EQ(jvm().new_strings(), 0);
  EXPECT_EQ(jvm().outstanding(), 0);
  EXPECT_EQ(log(), "brelo_wlanGetNeighbor(0)\n");
}

TEST_F(WlanReplyAllocation, StationReplyTakesItsRecordsAndCountPlusOneTimes512Bytes) {
  jobjectArray macs = jvm().array_of({"00:00:00:00:00:02", "aa:aa:aa:aa:aa:aa", ""});
  arm(0);
  jstring reply = NATIVE(getWLANHostInfoJni)(env(), self(), macs);
  disarm();
  // The MAC list buffer (256 x 128 bytes and its count), the records, the reply text.
  EXPECT_EQ(sizes_, std::vector<size_t>({32772, 3 * 208, 4 * 512}));
  EXPECT_EQ(text(reply).rfind("{\"Result\":0,\"List\":[{\"SSIDIndex\":1,\"SSIDName\":\"Home\"", 0), 0u);
}

TEST_F(WlanReplyAllocation, StationMacListWithoutMemoryGivesTheFailureReplyUnread) {
  jobjectArray macs = jvm().array_of({"00:00:00:00:00:01"});
  arm(1);
  jstring reply = NATIVE(getWLANHostInfoJni)(env(), self(), macs);
  disarm();
  EXPECT_EQ(text(reply), "{\"Result\":-1,\"FailReason\":\"getWLANHostInfo Error\"}");
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().events_text().find("GetArrayLength"), std::string::npos);
}

TEST_F(WlanReplyAllocation, StationRecordsWithoutMemoryGiveTheFailureReply) {
  arm(2);
  CaptureStdout out;
  jstring reply = NATIVE(getWLANHostInfoJni)(env(), self(), nullptr);
  std::string printed = out.finish();
  disarm();
  EXPECT_EQ(text(reply), "{\"Result\":-1,\"FailReason\":\"getWLANHostInfo Error\"}");
  // Printed whether or not tracing is on.
  EXPECT_EQ(printed, "calloc err\n");
  EXPECT_EQ(sim_log_count("brelo_wlanGetSSIDInfo"), 0);
}

TEST_F(WlanReplyAllocation, StationReplyTextWithoutMemoryIsANullString) {
  jobjectArray macs = jvm().array_of({"00:00:00:00:00:01"});
  arm(3);
  jstring reply = NATIVE(getWLANHostInfoJni)(env(), self(), macs);
  disarm();
  EXPECT_EQ(reply, nullptr);
  EXPECT_EQ(jvm().new_strings(), 0);
  EXPECT_EQ(jvm().outstanding(), 0);
  EXPECT_EQ(sizes_.size(), 3u);
}

}  // namespace
