// What Java receives when the heap reply of the port-mapping query can't be allocated.
//
// (See tests/alloc_wrap.h for how allocation is made to fail.)
#include <stddef.h>
#include <stdlib.h>

#include <string>
#include <vector>

#include "tests/alloc_wrap.h"
#include "tests/test_support.h"

#define NATIVE(m) Java_com_lumarest_smartgateway_addressservices_PortMappingQueryServiceImp_##m
extern "C" {
jstring NATIVE(getPortMappingInfoJni)(JNIEnv *, jobject);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

class PortMappingReplyAllocation : public testsupport::BridgeTest {
 protected:
  void TearDown() override {
    allocwrap::disarm();
    BridgeTest::TearDown();
  }
  // The size of the last allocation `native` asks for.
  template <typename F>
  size_t reply_size(F native) {
    std::vector<size_t> sizes;
    allocwrap::arm(0, &sizes);
    native(env(), self());
    allocwrap::disarm();
    return sizes.empty() ? 0 : sizes.back();
  }
};

TEST_F(PortMappingReplyAllocation, WithoutMemoryTheQueryRepliesNoEnoughMemory) {
  sim_set("tcapi WanInfo_Common", "ValidIFIndex", "8");
  sim_set("tcapi VirServer_Entry8_Entry0", "INTPORT", "80");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  allocwrap::arm(1, nullptr);
  jstring reply = NATIVE(getPortMappingInfoJni)(env(), self());
  allocwrap::disarm();
  const std::string fail = "{\"Result\":-1,\"FailReason\":\"No enough memory\"}";
  EXPECT_EQ(text(reply), fail);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_addressservices_PortMappingQueryServiceImp_getPortMappingInfoJni:N:"
            "getPortMappingInfoJni: return json = " + fail + "   leave============>\n");
  // Only the list was read before the allocation.
  EXPECT_EQ(log(), "tcapi_get(\"WanInfo_Common\", \"ValidIFIndex\")\n");
}

TEST_F(PortMappingReplyAllocation, TheReplyBufferGrowsWithTheNumberOfWans) {
  size_t empty = reply_size(NATIVE(getPortMappingInfoJni));
  EXPECT_GE(empty, sizeof("{\"Result\":0, \"List\":[]}"));
  sim_set("tcapi WanInfo_Common", "ValidIFIndex", "8,16");
  size_t two = reply_size(NATIVE(getPortMappingInfoJni));
  EXPECT_GT(two, empty + 2 * 1024);
  EXPECT_LT(two, empty + 2 * 8192);
}

}  // namespace
