// What Java receives when the working buffers of the LAN host queries and the MAC access
// lists can't be allocated: the failure reply the class already has, with no platform call and
// no JNI call on the array (see tests/alloc_wrap.h for how allocation is made to fail).
#include <stddef.h>

#include <string>
#include <vector>

#include "tests/alloc_wrap.h"
#include "tests/test_support.h"

#define HOSTS(m) Java_com_lumarest_smartgateway_lanservices_LANHostsInfoQueryServiceImp_##m
#define ACCESS(m) Java_com_lumarest_smartgateway_lanservices_LanNetworkAccessConfigServiceImp_##m
extern "C" {
jstring HOSTS(getLANHostInfoByMACJni)(JNIEnv *, jobject, jobjectArray);
jstring HOSTS(getLANHostInfoByInterfaceJni)(JNIEnv *, jobject, jstring);
jstring HOSTS(getLANHostInfoByClassJni)(JNIEnv *, jobject, jstring);
jstring HOSTS(getLANHostStatsJni)(JNIEnv *, jobject, jobjectArray);
jstring HOSTS(getLANHostSpeedLimitInfoJni)(JNIEnv *, jobject, jobjectArray);
jint ACCESS(addLANHostToBlackListJni)(JNIEnv *, jobject, jobjectArray);
jint ACCESS(deleteLANHostFromBlackListJni)(JNIEnv *, jobject, jobjectArray);
jint ACCESS(addLANHostToStorageBlackListJni)(JNIEnv *, jobject, jobjectArray);
jint ACCESS(deleteLANHostFromStorageBlackListJni)(JNIEnv *, jobject, jobjectArray);
jint ACCESS(addLANHostToTrustListJni)(JNIEnv *, jobject, jobjectArray);
jint ACCESS(deleteLANHostFromTrustListJni)(JNIEnv *, jobject, jobjectArray);
}

namespace {

const char kListFailure[] = "{\"Result\":-1,\"List\":[]}";
const char kMac[] = "00:E0:4C:68:01:A2";

class LanHostAllocation : public testsupport::BridgeTest {
 protected:
  void SetUp() override {
    BridgeTest::SetUp();
    sim_set("host 1", "mac", kMac);
    sim_set("host 1", "port", "1");
  }
  void TearDown() override {
    allocwrap::disarm();
    BridgeTest::TearDown();
  }
  jobjectArray macs() { return jvm().array_of({kMac}); }
  // The array was never read.
  void expect_array_unread() {
    EXPECT_EQ(jvm().events_text().find("GetArrayLength"), std::string::npos) << jvm().events_text();
  }
  std::vector<size_t> sizes_;
};

TEST_F(LanHostAllocation, EachHostQueryTakesOneWorkingBufferOffTheStack) {
  jobjectArray list = macs();
  jstring port = jvm().str("LAN1");
  jstring online = jvm().str("online");
  allocwrap::arm(0, &sizes_);
  HOSTS(getLANHostInfoByMACJni)(env(), self(), list);
  // One working struct per call (the platform's host list is the platform's own allocation).
  EXPECT_EQ(sizes_.size(), 1u);
  EXPECT_GT(sizes_.at(0), 0x10000u + 0x8000u);  // a 64 KiB reply and the 32 KiB MAC list
  allocwrap::arm(0, &sizes_);
  HOSTS(getLANHostInfoByInterfaceJni)(env(), self(), port);
  EXPECT_GE(sizes_.at(0), 0x10000u);
  allocwrap::arm(0, &sizes_);
  HOSTS(getLANHostInfoByClassJni)(env(), self(), online);
  EXPECT_GE(sizes_.at(0), 0x10000u + 0x4000u);  // the reply and the duplicate index
  allocwrap::arm(0, &sizes_);
  HOSTS(getLANHostStatsJni)(env(), self(), list);
  EXPECT_EQ(sizes_.at(0), 0x8000u + 4);  // the MAC list and its count
}

TEST_F(LanHostAllocation, HostQueriesWithoutMemoryGiveTheFailureList) {
  jobjectArray list = macs();
  jstring port = jvm().str("LAN1");
  jstring online = jvm().str("online");
  allocwrap::arm(1, nullptr);
  EXPECT_EQ(text(HOSTS(getLANHostInfoByMACJni)(env(), self(), list)), kListFailure);
  allocwrap::arm(1, nullptr);
  EXPECT_EQ(text(HOSTS(getLANHostInfoByInterfaceJni)(env(), self(), port)), kListFailure);
  allocwrap::arm(1, nullptr);
  EXPECT_EQ(text(HOSTS(getLANHostInfoByClassJni)(env(), self(), online)), kListFailure);
  allocwrap::arm(1, nullptr);
  EXPECT_EQ(text(HOSTS(getLANHostStatsJni)(env(), self(), list)), kListFailure);
  allocwrap::arm(1, nullptr);
  EXPECT_EQ(text(HOSTS(getLANHostSpeedLimitInfoJni)(env(), self(), list)), kListFailure);
  allocwrap::disarm();
  EXPECT_EQ(log(), "");
  expect_array_unread();
  EXPECT_EQ(jvm().outstanding(), 0);  // the interface and class names were given back
}

TEST_F(LanHostAllocation, AccessListsWithoutMemoryAnswerMinusOne) {
  sim_set("lan", "filter_mode", "1");
  jobjectArray list = macs();
  for (auto native : {ACCESS(addLANHostToBlackListJni), ACCESS(deleteLANHostFromBlackListJni),
                      ACCESS(addLANHostToStorageBlackListJni),
                      ACCESS(deleteLANHostFromStorageBlackListJni), ACCESS(addLANHostToTrustListJni)}) {
    allocwrap::arm(1, nullptr);
    EXPECT_EQ(native(env(), self(), list), -1);
    allocwrap::disarm();
  }
  sim_set("lan", "filter_mode", "2");
  allocwrap::arm(1, nullptr);
  EXPECT_EQ(ACCESS(deleteLANHostFromTrustListJni)(env(), self(), list), -1);
  allocwrap::disarm();
  // Only the filter-mode checks that come before the list is read reach the platform.
  EXPECT_EQ(log(), "brelo_lanGetFilterMode()\nbrelo_lanGetFilterMode()\n");
  expect_array_unread();
}

}  // namespace
