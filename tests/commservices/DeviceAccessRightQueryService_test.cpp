// com.lumarest.smartgateway.commservices.DeviceAccessRightQueryServiceImp
#include <string>

#include "common/hardened.h"
#include "tests/test_support.h"

#define RIGHTQ(m) Java_com_lumarest_smartgateway_commservices_DeviceAccessRightQueryServiceImp_##m
extern "C" {
jstring RIGHTQ(getFTPRightInfoJni)(JNIEnv *, jobject);
jstring RIGHTQ(getHTTPRightInfoJni)(JNIEnv *, jobject);
jstring RIGHTQ(getSambaRightInfoJni)(JNIEnv *, jobject);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

const char kListFailure[] = "{\"Result\":-1,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":[]}";

std::string account(const std::string &user, const std::string &password) {
  return "{\"UserName\":\"" + user + "\",\"Password\":\"" + password + "\"}";
}

class AccessRightQuery : public testsupport::BridgeTest {
 protected:
  void add(const char *service, int n, const std::string &user, const std::string &password) {
    std::string section = std::string(service) + " account " + std::to_string(n);
    sim_set(section.c_str(), "user", user.c_str());
    sim_set(section.c_str(), "password", password.c_str());
  }
  std::string ftp() { return text(RIGHTQ(getFTPRightInfoJni)(env(), self())); }
  std::string samba() { return text(RIGHTQ(getSambaRightInfoJni)(env(), self())); }
  std::string http() { return text(RIGHTQ(getHTTPRightInfoJni)(env(), self())); }
};

TEST_F(AccessRightQuery, FtpListsRightAnonymousFlagAndAccounts) {
  sim_set("ftp", "right", "2");
  sim_set("ftp", "anonymous", "0");
  add("ftp", 1, "anna", "ftp4anna");
  add("ftp", 2, "backup", "Bk-2026!");
  EXPECT_EQ(ftp(), "{\"Result\":0,\"Right\":2,\"Anonymous\":\"FALSE\",\"AccountList\":[" +
                       account("anna", "ftp4anna") + "," + account("backup", "Bk-2026!") + "]}");
  EXPECT_EQ(log(), "brelo_getFTPRightInfo()\n");
}

TEST_F(AccessRightQuery, FtpAnonymousIsTrueForAnyNonZeroWord) {
  for (const char *word : {"1", "255", "-1", "65536"}) {
    sim_set("ftp", "anonymous", word);
    EXPECT_EQ(ftp(), "{\"Result\":0,\"Right\":0,\"Anonymous\":\"TRUE\",\"AccountList\":[]}") << word;
  }
}

TEST_F(AccessRightQuery, FtpWithoutAccountsGivesAnEmptyList) {
  sim_set("ftp", "right", "3");
  EXPECT_EQ(ftp(), "{\"Result\":0,\"Right\":3,\"Anonymous\":\"FALSE\",\"AccountList\":[]}");
}

TEST_F(AccessRightQuery, FtpPlatformFailureGivesTheFixedReply) {
  add("ftp", 1, "anna", "pw");
  for (int rc : {-1, 1}) {
    sim_program_result("brelo_getFTPRightInfo", rc);
    EXPECT_EQ(ftp(), kListFailure);
  }
}

TEST_F(AccessRightQuery, FtpCountAboveTheRecordIsBoundedToSixAccounts) {
  for (int i = 1; i <= 6; ++i) add("ftp", i, "u" + std::to_string(i), "p" + std::to_string(i));
  sim_set("ftp", "account_count", "100");
  std::string expected = "{\"Result\":0,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":[";
  for (int i = 1; i <= 6; ++i)
    expected += (i > 1 ? "," : "") + account("u" + std::to_string(i), "p" + std::to_string(i));
  EXPECT_EQ(ftp(), expected + "]}");
}

TEST_F(AccessRightQuery, FtpNegativeCountListsNothing) {
  add("ftp", 1, "anna", "pw");
  sim_set("ftp", "account_count", "-5");
  EXPECT_EQ(ftp(), "{\"Result\":0,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":[]}");
}

TEST_F(AccessRightQuery, FtpRecordIsNotZeroedYetReadingItStaysBounded) {
  // The record holds whatever it held before the call; here every byte the platform does not
  // write is 'x', so the four accounts beyond the two it holds are unterminated fields.
  add("ftp", 1, "anna", "pw");
  add("ftp", 2, "bob", "pw2");
  sim_set("ftp", "scribble", "x");
  sim_set("ftp", "account_count", "6");
  std::string reply = ftp();
  std::string filler(255, 'x');
  std::string expected = "{\"Result\":0,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":[" +
                         account("anna", "pw") + "," + account("bob", "pw2");
  for (int i = 0; i < 4; ++i) expected += "," + account(filler, filler);
  EXPECT_EQ(reply, expected + "]}");
  EXPECT_LT(reply.size(), 4096u);
}

TEST_F(AccessRightQuery, OverlongFieldsAreCutAtTheirLastByte) {
  std::string long_name(300, 'n');
  std::string long_pass(256, 'p');
  add("ftp", 1, long_name, long_pass);
  add("samba", 1, long_name, long_pass);
  std::string cut = account(std::string(255, 'n'), std::string(255, 'p'));
  EXPECT_EQ(ftp(), "{\"Result\":0,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":[" + cut + "]}");
  EXPECT_EQ(samba(), "{\"Result\":0,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":[" + cut + "]}");
}

TEST_F(AccessRightQuery, SixLongestAccountsFitTheReply) {
  std::string expected = "{\"Result\":0,\"Right\":-2147483648,\"Anonymous\":\"TRUE\",\"AccountList\":[";
  for (int i = 1; i <= 6; ++i) {
    add("ftp", i, std::string(400, 'a' + i), std::string(400, 'A' + i));
    expected += (i > 1 ? "," : "") + account(std::string(255, 'a' + i), std::string(255, 'A' + i));
  }
  sim_set("ftp", "right", "-2147483648");
  sim_set("ftp", "anonymous", "1");
  EXPECT_EQ(ftp(), expected + "]}");
}

TEST_F(AccessRightQuery, SambaHeadIsFixedWhateverThePlatformHolds) {
  sim_set("ftp", "right", "3");
  sim_set("ftp", "anonymous", "1");
  add("samba", 1, "media", "m3dia-share");
  add("samba", 2, "guest", "g");
  EXPECT_EQ(samba(), "{\"Result\":0,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":[" +
                         account("media", "m3dia-share") + "," + account("guest", "g") + "]}");
  EXPECT_EQ(log(), "brelo_getSambaRightInfo()\n");
}

TEST_F(AccessRightQuery, SambaWithoutAccountsGivesAnEmptyList) {
  EXPECT_EQ(samba(), "{\"Result\":0,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":[]}");
}

TEST_F(AccessRightQuery, SambaPlatformFailureGivesTheFixedReply) {
  sim_program_result("brelo_getSambaRightInfo", 2);
  EXPECT_EQ(samba(), kListFailure);
}

TEST_F(AccessRightQuery, SambaCountAboveTheRecordIsBounded) {
  // The Samba record is zeroed: slots the platform did not fill read as empty accounts.
  add("samba", 1, "media", "pw");
  sim_set("samba", "account_count", "2147483647");
  std::string expected = "{\"Result\":0,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":[" +
                         account("media", "pw");
  for (int i = 0; i < 5; ++i) expected += "," + account("", "");
  EXPECT_EQ(samba(), expected + "]}");
  sim_set("samba", "account_count", "-1");
  EXPECT_EQ(samba(), "{\"Result\":0,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":[]}");
}

TEST_F(AccessRightQuery, HttpReportsRightAndPassword) {
  sim_set("http", "right", "1");
  sim_set("http", "password", "webuser123");
  EXPECT_EQ(http(), "{\"Result\":0,\"Right\":1,\"Password\":\"webuser123\"}");
  EXPECT_EQ(log(), "brelo_getHTTPRightInfo()\n");
}

TEST_F(AccessRightQuery, HttpPasswordOfTheWholeBufferIsCut) {
  sim_set("http", "password", std::string(400, 'w').c_str());
  EXPECT_EQ(http(), "{\"Result\":0,\"Right\":0,\"Password\":\"" + std::string(255, 'w') + "\"}");
}

TEST_F(AccessRightQuery, HttpPlatformFailureGivesTheFixedReply) {
  sim_set("http", "right", "2");
  sim_set("http", "password", "secret");
  sim_program_result("brelo_getHTTPRightInfo", -1);
  EXPECT_EQ(http(), "{\"Result\":-1,\"Right\":0,\"Password\":\"\"}");
}

TEST_F(AccessRightQuery, TextsThatAreNotUtf8StillReachJava) {
  add("samba", 1, "caf\xE9", "pw");
  EXPECT_EQ(samba(), "{\"Result\":0,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":[" +
                         account("caf\xEF\xBF\xBD", "pw") + "]}");
}

TEST_F(AccessRightQuery, RepliesAreTraced) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  sim_program_result("brelo_getFTPRightInfo", 1);
  ftp();
  http();
  samba();
  const std::string prefix = "Java_com_lumarest_smartgateway_commservices_DeviceAccessRightQueryServiceImp_";
  if (bundle::hardened_profile()) {  // replies that carry passwords are masked
    EXPECT_EQ(mask_line_numbers(out.finish()),
              prefix + "getFTPRightInfoJni:N:getFTPRightInfoJni: return json = ******   leave============>\n" +
                  prefix + "getHTTPRightInfoJni:N:getHTTPRightInfoJni: return json = ******   leave============>\n" +
                  prefix + "getSambaRightInfoJni:N:getSambaRightInfoJni: return json = ******   leave============>\n");
    return;
  }
  EXPECT_EQ(mask_line_numbers(out.finish()),
            prefix + "getFTPRightInfoJni:N:getFTPRightInfoJni: return json = " + kListFailure +
                "   leave============>\n" + prefix +
                "getHTTPRightInfoJni:N:getHTTPRightInfoJni: return json = "
                "{\"Result\":0,\"Right\":0,\"Password\":\"\"}   leave============>\n" +
                prefix +
                "getSambaRightInfoJni:N:getSambaRightInfoJni: return json = "
                "{\"Result\":0,\"Right\":0,\"Anonymous\":\"FALSE\",\"AccountList\":[]}   leave============>\n");
}

TEST_F(AccessRightQuery, ANullReplyFromTheJvmIsHandedBack) {
  jvm().fail_new_string(true);
  EXPECT_EQ(RIGHTQ(getFTPRightInfoJni)(env(), self()), nullptr);
  EXPECT_EQ(RIGHTQ(getSambaRightInfoJni)(env(), self()), nullptr);
  EXPECT_EQ(RIGHTQ(getHTTPRightInfoJni)(env(), self()), nullptr);
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef RIGHTQ
