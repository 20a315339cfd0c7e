// What Java receives when the heap replies of the WLAN neighbour and station queries can't be
// allocated.
//
// How allocation is made to fail: this executable is linked with -Wl,--wrap=malloc and
// -Wl,--wrap=calloc, and it contains the query service's own object code (it does not load
// libbundle_sc.so), so every malloc/calloc the natives make goes through the wrappers below.
// A test arms them to fail the n-th allocation from then on; every other call goes to the C
// library (or to the sanitizer's allocator in the sanitizer build) unchanged.
#include <stddef.h>
#include <stdlib.h>

#include <string>
#include <vector>

#include "tests/test_support.h"

extern "C" {
void *__real_malloc(size_t size);
void *__real_calloc(size_t count, size_t size);
}

namespace {

int g_fail_at = 0;     // 1-based number of the allocation to fail after arming; 0: none
int g_counted = 0;     // allocations made since arming
bool g_armed = false;
std::vector<size_t> *g_sizes = nullptr;  // sizes asked for since arming

bool allocation_fails(size_t bytes) {
  if (!g_armed) return false;
  ++g_counted;
  if (g_sizes != nullptr) {
    g_armed = false;  // the vector's own growth is not counted
    g_sizes->push_back(bytes);
    g_armed = true;
  }
  return g_counted == g_fail_at;
}

}  // namespace

extern "C" void *__wrap_malloc(size_t size) {
  if (allocation_fails(size)) return nullptr;
  return __real_malloc(size);
}

extern "C" void *__wrap_calloc(size_t count, size_t size) {
  if (allocation_fails(count * size)) return nullptr;
  return __real_calloc(count, size);
}

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
    sizes_.reserve(16);
    g_sizes = &sizes_;
  }
  void TearDown() override {
    disarm();
    g_sizes = nullptr;
    BridgeTest::TearDown();
  }
  void arm(int fail_at) {
    sizes_.clear();
    g_counted = 0;
    g_fail_at = fail_at;
    g_armed = true;
  }
  static void disarm() { g_armed = false; }
  std::vector<size_t> sizes_;
};

TEST_F(WlanReplyAllocation, NeighbourReplyTakesCountPlusOneTimes512Bytes) {
  jstring radio = jvm().str("2.4G");
  arm(0);
  jstring reply = NATIVE(getWLANNeighborJni)(env(), self(), radio);
  disarm();
  EXPECT_EQ(sizes_, std::vector<size_t>({3 * 512}));
  EXPECT_EQ(text(reply).rfind("{\"Result\":0,\"List\":[{\"SSIDName\":\"ap1\"", 0), 0u);
}

TEST_F(WlanReplyAllocation, NeighbourReplyWithoutMemoryIsANullString) {
  jstring radio = jvm().str("2.4G");
  arm(1);
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
  EXPECT_EQ(sizes_, std::vector<size_t>({3 * 208, 4 * 512}));
  EXPECT_EQ(text(reply).rfind("{\"Result\":0,\"List\":[{\"SSIDIndex\":1,\"SSIDName\":\"Home\"", 0), 0u);
}

TEST_F(WlanReplyAllocation, StationRecordsWithoutMemoryGiveTheFailureReply) {
  arm(1);
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
  arm(2);
  jstring reply = NATIVE(getWLANHostInfoJni)(env(), self(), macs);
  disarm();
  EXPECT_EQ(reply, nullptr);
  EXPECT_EQ(jvm().new_strings(), 0);
  EXPECT_EQ(jvm().outstanding(), 0);
  EXPECT_EQ(sizes_.size(), 2u);
}

}  // namespace
