// What Java receives when the heap buffers of the traffic-forward and HTTP traffic-process
// natives can't be allocated: the rule-list replies and the joined lists of an HTTP rule.
//
// Like the WLAN reply test, this executable is linked with -Wl,--wrap=malloc and
// -Wl,--wrap=calloc and contains the services' own object code, so every malloc/calloc the
// natives make goes through the wrappers below; the simulated platform's own allocations (in
// libbrelo.so.1) are not counted.
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

int g_fail_from = 0;   // allocations numbered from here on fail (1-based); 0: none
int g_fail_count = 0;  // how many fail from there
int g_counted = 0;
bool g_armed = false;
std::vector<size_t> *g_sizes = nullptr;

bool allocation_fails(size_t bytes) {
  if (!g_armed) return false;
  ++g_counted;
  if (g_sizes != nullptr) {
    g_armed = false;  // the vector's own growth is not counted
    g_sizes->push_back(bytes);
    g_armed = true;
  }
  return g_fail_from > 0 && g_counted >= g_fail_from && g_counted < g_fail_from + g_fail_count;
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
    g_sizes = &sizes_;
  }
  void TearDown() override {
    disarm();
    g_sizes = nullptr;
    BridgeTest::TearDown();
  }
  void arm(int fail_from, int fail_count = 1) {
    sizes_.clear();
    g_counted = 0;
    g_fail_from = fail_from;
    g_fail_count = fail_count;
    g_armed = true;
  }
  static void disarm() { g_armed = false; }
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
  arm(1, 3);
  EXPECT_EQ(add_http(), -1);
  disarm();
  EXPECT_EQ(jvm().outstanding(), 0);
}

}  // namespace
