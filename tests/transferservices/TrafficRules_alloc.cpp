// What Java receives when the heap buffers of the traffic-forward and HTTP traffic-process
// natives can't be allocated: the rule-list replies and the joined lists of an HTTP rule.
// The simulated platform's own allocations (in libbrelo.so.1) are not counted.
#include <stddef.h>

#include <string>
#include <vector>

#include "tests/alloc_wrap.h"
#include "tests/test_support.h"

#define FORWARD(m) Java_com_lumarest_smartgateway_transferservices_TrafficForwardServiceImp_##m
#define HTTP(m) Java_com_lumarest_smartgateway_transferservices_TrafficDetailProcessServiceImp_##m
extern "C" {
jstring FORWARD(getForwardRuleInfoJni)(JNIEnv *, jobject);
jint HTTP(addHTTPTrafficProcessRuleJni)(JNIEnv *, jobject, jstring, jint, jstring, jstring,
                                        jobjectArray, jobjectArray, jobjectArray, jstring);
jstring HTTP(getHTTPTrafficProcessRuleInfoJni)(JNIEnv *, jobject);
}

namespace {

const char kFailure[] = "{\"Result\":-1,\"List\":[]}";

class RuleListAllocation : public testsupport::BridgeTest {
 protected:
  void SetUp() override {
    BridgeTest::SetUp();
    sim_set("forward rule 1", "forward_to_ip", "10.0.0.1");
    sim_set("forward rule 2", "forward_to_ip", "10.0.0.2");
    sim_set("http rule 1", "bundle_name", "b");
    sizes_.reserve(16);
  }
  void TearDown() override {
    disarm();
    BridgeTest::TearDown();
  }
  void arm(int fail_at) { allocwrap::arm(fail_at, &sizes_); }
  static void disarm() { allocwrap::disarm(); }
  jint add_http() {
    jstring addr = jvm().str("a");
    jstring dir = jvm().str("UP");
    jstring mac = jvm().str("m");
    jobjectArray methods = jvm().array_of({"GET"});
    jobjectArray second = jvm().array_of({"x"});
    jobjectArray headers = jvm().array_of({"Host"});
    jstring bundle = jvm().str("b");
    return HTTP(addHTTPTrafficProcessRuleJni)(env(), self(), addr, 1, dir, mac, methods, second,
                                              headers, bundle);
  }
  std::vector<size_t> sizes_;
};

TEST_F(RuleListAllocation, ListReplyTakesCountPlusOneTimes512Bytes) {
  arm(0);
  std::string reply = text(FORWARD(getForwardRuleInfoJni)(env(), self()));
  disarm();
  EXPECT_EQ(sizes_, std::vector<size_t>({3 * 512}));
  EXPECT_EQ(reply.rfind("{\"Result\":0,\"List\":[{\"RemoteAddress\":\"\"", 0), 0u);
  arm(0);
  reply = text(HTTP(getHTTPTrafficProcessRuleInfoJni)(env(), self()));
  disarm();
  EXPECT_EQ(sizes_, std::vector<size_t>({2 * 512}));
}

TEST_F(RuleListAllocation, ListWithoutMemoryGivesTheFailureReply) {
  arm(1);
  EXPECT_EQ(text(FORWARD(getForwardRuleInfoJni)(env(), self())), kFailure);
  arm(1);
  EXPECT_EQ(text(HTTP(getHTTPTrafficProcessRuleInfoJni)(env(), self())), kFailure);
  disarm();
  EXPECT_EQ(log(), "brelo_getForwardRuleInfo()\nbrelo_getHTTPTrafficProcessRuleInfo()\n");
}

TEST_F(RuleListAllocation, FailureReplyTakes512BytesOrStaysLocal) {
  sim_program_result("brelo_getForwardRuleInfo", -1);
  sim_program_result("brelo_getHTTPTrafficProcessRuleInfo", -1);
  arm(0);
  EXPECT_EQ(text(FORWARD(getForwardRuleInfoJni)(env(), self())), kFailure);
  disarm();
  EXPECT_EQ(sizes_, std::vector<size_t>({512}));
  arm(1);
  EXPECT_EQ(text(FORWARD(getForwardRuleInfoJni)(env(), self())), kFailure);
  arm(1);
  EXPECT_EQ(text(HTTP(getHTTPTrafficProcessRuleInfoJni)(env(), self())), kFailure);
  disarm();
}

TEST_F(RuleListAllocation, HttpRuleKeepsHeapCopiesOfItsJoinedLists) {
  arm(0);
  EXPECT_EQ(add_http(), 0);
  disarm();
  EXPECT_EQ(sizes_, std::vector<size_t>({4, 2, 5}));  // "GET", "x", "Host" and terminators
}

TEST_F(RuleListAllocation, HttpRuleWithoutMemoryForAListFailsBeforeThePlatform) {
  for (int which = 1; which <= 3; ++which) {
    sim_clear_log();
    arm(which);
    EXPECT_EQ(add_http(), -1) << which;
    disarm();
    EXPECT_EQ(log(), "") << which;
  }
  EXPECT_EQ(jvm().outstanding(), 0);
}

}  // namespace
