// What Java receives when the heap reply of the port-mapping query can't be allocated.
//
// This executable is linked with -Wl,--wrap=malloc and -Wl,--wrap=calloc and contains the
// query service's own object code (it does not load libbundle_sc.so), so every malloc/calloc
// the native makes goes through the wrappers below; armed, they fail the first allocation.
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

bool g_fail = false;
size_t g_last_size = 0;

}  // namespace

extern "C" void *__wrap_malloc(size_t size) {
  if (g_fail) return nullptr;
  return __real_malloc(size);
}

extern "C" void *__wrap_calloc(size_t count, size_t size) {
  g_last_size = count * size;
  if (g_fail) return nullptr;
  return __real_calloc(count, size);
}

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
    g_fail = false;
    BridgeTest::TearDown();
  }
};

TEST_F(PortMappingReplyAllocation, WithoutMemoryTheQueryRepliesNoEnoughMemory) {
  sim_set("tcapi WanInfo_Common", "ValidIFIndex", "8");
  sim_set("tcapi VirServer_Entry8_Entry0", "INTPORT", "80");
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  g_fail = true;
  jstring reply = NATIVE(getPortMappingInfoJni)(env(), self());
  g_fail = false;
  const std::string fail = "{\"Result\":-1,\"FailReason\":\"No enough memory\"}";
  EXPECT_EQ(text(reply), fail);
  EXPECT_EQ(mask_line_numbers(out.finish()),
            "Java_com_lumarest_smartgateway_addressservices_PortMappingQueryServiceImp_getPortMappingInfoJni:N:"
            "getPortMappingInfoJni: return json = " + fail + "   leave============>\n");
  // Only the list was read before the allocation.
  EXPECT_EQ(log(), "tcapi_get(\"WanInfo_Common\", \"ValidIFIndex\")\n");
}

TEST_F(PortMappingReplyAllocation, TheReplyBufferGrowsWithTheNumberOfWans) {
  NATIVE(getPortMappingInfoJni)(env(), self());
  size_t empty = g_last_size;
  EXPECT_GE(empty, sizeof("{\"Result\":0, \"List\":[]}"));
  sim_set("tcapi WanInfo_Common", "ValidIFIndex", "8,16");
  NATIVE(getPortMappingInfoJni)(env(), self());
  size_t two = g_last_size;
  EXPECT_GT(two, empty + 2 * 1024);
  EXPECT_LT(two, empty + 2 * 8192);
}

}  // namespace
