// What Java receives when the FTP or Samba rights record can't be allocated: the failure reply,
// with no platform call (see tests/alloc_wrap.h for how allocation is made to fail).
#include <stddef.h>

#include <string>
#include <vector>

#include "tests/alloc_wrap.h"
#include "tests/test_support.h"

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
    BridgeTest::SetUp();
    sim_set("ftp", "right", "2");
    sim_set("ftp account 1", "user", "anna");
    sim_set("ftp account 1", "password", "pw");
    sim_set("samba account 1", "user", "media");
    sim_set("samba account 1", "password", "pw");
  }
  void TearDown() override {
    allocwrap::disarm();
    BridgeTest::TearDown();
  }
  std::vector<size_t> sizes_;
};

TEST_F(AccessRightRecordAllocation, FtpRecordThatCannotBeAllocatedGivesTheFailureReply) {
  allocwrap::arm(1, &sizes_);
  std::string reply = text(RIGHTQ(getFTPRightInfoJni)(env(), self()));
  allocwrap::disarm();
  EXPECT_EQ(reply, kListFailure);
  ASSERT_FALSE(sizes_.empty());
  EXPECT_EQ(sizes_[0], 3084u);
  EXPECT_EQ(log(), "");  // the platform is not asked
}

TEST_F(AccessRightRecordAllocation, SambaRecordThatCannotBeAllocatedGivesTheFailureReply) {
  allocwrap::arm(1, &sizes_);
  std::string reply = text(RIGHTQ(getSambaRightInfoJni)(env(), self()));
  allocwrap::disarm();
  EXPECT_EQ(reply, kListFailure);
  ASSERT_FALSE(sizes_.empty());
  EXPECT_EQ(sizes_[0], 3076u);
  EXPECT_EQ(log(), "");
}

TEST_F(AccessRightRecordAllocation, WithMemoryTheAccountsAreListed) {
  allocwrap::arm(0, &sizes_);
  std::string ftp = text(RIGHTQ(getFTPRightInfoJni)(env(), self()));
  std::string samba = text(RIGHTQ(getSambaRightInfoJni)(env(), self()));
  allocwrap::disarm();
  EXPECT_EQ(ftp,
            "{\"Result\":0,\"Right\":2,\"Anonymous\":\"FALSE\",\"AccountList\":["
            "{\"UserName\":\"anna\",\"Password\":\"pw\"}]}");
  EXPECT_EQ(samba,
            "{\"Result\":0,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":["
            "{\"UserName\":\"media\",\"Password\":\"pw\"}]}");
  EXPECT_EQ(sizes_, (std::vector<size_t>{3084u, 3076u}));
}

}  // namespace
