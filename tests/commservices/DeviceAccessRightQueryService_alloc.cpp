// What Java receives when the FTP or Samba rights record can't be allocated.
//
// This executable is linked with -Wl,--wrap=malloc and -Wl,--wrap=calloc and contains the
// query service's own object code (it does not load libbundle_sc.so), so the natives' record
// allocations go through the wrappers below; an armed wrapper fails the next allocation.
#include <stddef.h>
#include <stdlib.h>

#include <string>

#include "tests/test_support.h"

extern "C" {
void *__real_malloc(size_t size);
void *__real_calloc(size_t count, size_t size);
}

namespace {

bool g_fail_next = false;
size_t g_failed_size = 0;

bool allocation_fails(size_t bytes) {
  if (!g_fail_next) return false;
  g_fail_next = false;
  g_failed_size = bytes;
  return true;
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

#define RIGHTQ(m) Java_com_lumarest_smartgateway_commservices_DeviceAccessRightQueryServiceImp_##m
extern "C" {
jstring RIGHTQ(getFTPRightInfoJni)(JNIEnv *, jobject);
jstring RIGHTQ(getSambaRightInfoJni)(JNIEnv *, jobject);
}

namespace {

const char kListFailure[] = "{\"Result\":-1,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":[]}";

class AccessRightRecordAllocation : public testsupport::BridgeTest {
 protected:
  void SetUp() override {
    testsupport::BridgeTest::SetUp();
    sim_set("ftp", "right", "2");
    sim_set("ftp account 1", "user", "anna");
    sim_set("ftp account 1", "password", "pw");
    sim_set("samba account 1", "user", "media");
    sim_set("samba account 1", "password", "pw");
  }
  void TearDown() override {
    g_fail_next = false;
    testsupport::BridgeTest::TearDown();
  }
};

TEST_F(AccessRightRecordAllocation, FtpRecordThatCannotBeAllocatedGivesTheFailureReply) {
  g_fail_next = true;
  EXPECT_EQ(text(RIGHTQ(getFTPRightInfoJni)(env(), self())), kListFailure);
  EXPECT_EQ(g_failed_size, 3084u);
  EXPECT_EQ(log(), "");  // the platform is not asked
}

TEST_F(AccessRightRecordAllocation, SambaRecordThatCannotBeAllocatedGivesTheFailureReply) {
  g_fail_next = true;
  EXPECT_EQ(text(RIGHTQ(getSambaRightInfoJni)(env(), self())), kListFailure);
  EXPECT_EQ(g_failed_size, 3076u);
  EXPECT_EQ(log(), "");
}

TEST_F(AccessRightRecordAllocation, WithMemoryTheAccountsAreListed) {
  EXPECT_EQ(text(RIGHTQ(getFTPRightInfoJni)(env(), self())),
            "{\"Result\":0,\"Right\":2,\"Anonymous\":\"FALSE\",\"AccountList\":["
            "{\"UserName\":\"anna\",\"Password\":\"pw\"}]}");
  EXPECT_EQ(text(RIGHTQ(getSambaRightInfoJni)(env(), self())),
            "{\"Result\":0,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":["
            "{\"UserName\":\"media\",\"Password\":\"pw\"}]}");
}

}  // namespace
