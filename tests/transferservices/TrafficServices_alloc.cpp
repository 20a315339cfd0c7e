// What Java receives when the heap buffers of the traffic monitoring and mirror natives can't
// be allocated.
//
// (See tests/alloc_wrap.h for how allocation is made to fail.) A buffer that a failing path
// forgot to free shows up in the sanitizer build's leak check.
#include <stddef.h>
#include <stdlib.h>

#include <string>
#include <vector>

#include "tests/alloc_wrap.h"
#include "tests/test_support.h"

#define MONITOR(m) Java_com_lumarest_smartgateway_transferservices_TrafficMonitoringConfigServiceImp_##m
#define MIRROR(m) Java_com_lumarest_smartgateway_transferservices_TrafficMirrorServiceImp_##m
extern "C" {
jint MONITOR(addTrafficMonitoringDestAddressJni)(JNIEnv *, jobject, jobjectArray, jstring);
jint MONITOR(deleteTrafficMonitoringDestAddressJni)(JNIEnv *, jobject, jobjectArray, jstring);
jstring MONITOR(getTrafficMonitoringDestAddressInfoJni)(JNIEnv *, jobject);
jstring MIRROR(getMirroRuleInfoJni)(JNIEnv *, jobject);
}

namespace {

const char kNoMemory[] = "{\"Result\":-1,\"FailReason\":\"No enough memory\"}";

class TrafficAllocation : public testsupport::BridgeTest {
 protected:
  void SetUp() override {
    BridgeTest::SetUp();
    sim_set("tcapi TrafficMonitoring_PVC0", "bundleName", "b");
    sim_set("tcapi TrafficMonitoring_PVC0_Entry0", "destAddressList", "10.0.0.1");
    sim_set("tcapi TrafficMirror_Entry0", "mirrorToIP", "10.0.0.2");
  }
  void TearDown() override {
    disarm();
    BridgeTest::TearDown();
  }
  void arm(int fail_at) { allocwrap::arm(fail_at, &sizes_); }
  static void disarm() { allocwrap::disarm(); }
  std::vector<size_t> sizes_;
};

TEST_F(TrafficAllocation, MonitoringQueryTakesTwo128KiBBuffers) {
  arm(0);
  jstring reply = MONITOR(getTrafficMonitoringDestAddressInfoJni)(env(), self());
  disarm();
  EXPECT_EQ(sizes_, std::vector<size_t>({131072, 131072}));
  EXPECT_EQ(text(reply), "{\"Result\":0,\"List\":[{\"BundleName\":\"b\",\"DestAddressList\":[\"10.0.0.1\"]}]}");
}

TEST_F(TrafficAllocation, MonitoringQueryWithoutEitherBufferRepliesNoMemory) {
  for (int n : {1, 2}) {
    sim_clear_log();
    arm(n);
    jstring reply = MONITOR(getTrafficMonitoringDestAddressInfoJni)(env(), self());
    disarm();
    EXPECT_EQ(text(reply), kNoMemory) << n;
    EXPECT_EQ(log(), "") << n;  // the tree is not read
  }
}

TEST_F(TrafficAllocation, MirrorQueryTakes32640Bytes) {
  arm(0);
  jstring reply = MIRROR(getMirroRuleInfoJni)(env(), self());
  disarm();
  EXPECT_EQ(sizes_, std::vector<size_t>({32640}));
  EXPECT_EQ(text(reply).rfind("{\"Result\":0,\"List\":[{\"RemoteAddress\":\"\"", 0), 0u);
}

TEST_F(TrafficAllocation, MirrorQueryWithoutMemoryRepliesNoMemory) {
  arm(1);
  jstring reply = MIRROR(getMirroRuleInfoJni)(env(), self());
  disarm();
  EXPECT_EQ(text(reply), kNoMemory);
  EXPECT_EQ(log(), "");
}

TEST_F(TrafficAllocation, AddAndDeleteWithoutTheirAddressArrayFail) {
  jobjectArray a = jvm().array_of({"10.0.0.9"});
  jstring name = jvm().str("b");
  arm(1);
  EXPECT_EQ(MONITOR(addTrafficMonitoringDestAddressJni)(env(), self(), a, name), -1);
  disarm();
  EXPECT_EQ(sizes_, std::vector<size_t>({256 * 128}));
  arm(1);
  EXPECT_EQ(MONITOR(deleteTrafficMonitoringDestAddressJni)(env(), self(), a, name), -1);
  disarm();
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().acquired(), 0);
}

}  // namespace
