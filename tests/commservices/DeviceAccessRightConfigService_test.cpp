// com.lumarest.smartgateway.commservices.DeviceAccessRightConfigServiceImp
#include <limits.h>

#include <string>

#include "tests/test_support.h"

#define RIGHTS(m) Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_##m
extern "C" {
jint RIGHTS(setFTPRightJni)(JNIEnv *, jobject, jint, jboolean);
jint RIGHTS(setHTTPRightJni)(JNIEnv *, jobject, jint);
jint RIGHTS(setSambaRightJni)(JNIEnv *, jobject, jint);
jint RIGHTS(addFTPAccountJni)(JNIEnv *, jobject, jstring, jstring);
jint RIGHTS(deleteFTPAccountJni)(JNIEnv *, jobject, jstring);
jint RIGHTS(deleteAllFTPAccountJni)(JNIEnv *, jobject);
jint RIGHTS(setHTTPUserPasswordJni)(JNIEnv *, jobject, jstring);
jint RIGHTS(addSambaAccountJni)(JNIEnv *, jobject, jstring, jstring);
jint RIGHTS(deleteSambaAccountJni)(JNIEnv *, jobject, jstring);
jint RIGHTS(deleteAllSambaAccountJni)(JNIEnv *, jobject);
}

namespace {

using testsupport::CaptureStdout;
using testsupport::FlagFile;
using testsupport::mask_line_numbers;

typedef jint (*AddAccount)(JNIEnv *, jobject, jstring, jstring);
typedef jint (*OneText)(JNIEnv *, jobject, jstring);

// The two account services side by side: what Java calls and what the platform sees.
struct AccountService {
  const char *name;  // "ftp" or "samba"
  AddAccount add;
  OneText remove;
  jint (*remove_all)(JNIEnv *, jobject);
  const char *platform_add;
  const char *platform_delete;
  const char *platform_delete_all;
};

const AccountService kServices[] = {
    {"ftp", RIGHTS(addFTPAccountJni), RIGHTS(deleteFTPAccountJni), RIGHTS(deleteAllFTPAccountJni),
     "brelo_addFTPAccount", "brelo_deleteFTPAccount", "brelo_deleteAllFTPAccount"},
    {"samba", RIGHTS(addSambaAccountJni), RIGHTS(deleteSambaAccountJni),
     RIGHTS(deleteAllSambaAccountJni), "brelo_addSambaAccount", "brelo_deleteSambaAccount",
     "brelo_deleteAllSambaAccount"},
};

class AccessRightConfig : public testsupport::BridgeTest {};

TEST_F(AccessRightConfig, FtpRightOutsideZeroToThreeIsRefusedWithoutAPlatformCall) {
  for (jint bad : {4, 5, -1, INT_MIN, INT_MAX})
    EXPECT_EQ(RIGHTS(setFTPRightJni)(env(), self(), bad, JNI_TRUE), -1) << bad;
  EXPECT_EQ(log(), "");
}

TEST_F(AccessRightConfig, FtpRightsZeroToThreeReachThePlatform) {
  EXPECT_EQ(RIGHTS(setFTPRightJni)(env(), self(), 0, JNI_FALSE), 0);
  EXPECT_EQ(RIGHTS(setFTPRightJni)(env(), self(), 3, JNI_TRUE), 0);
  EXPECT_EQ(log(), "brelo_setFTPRight(0, 0)\nbrelo_setFTPRight(3, 1)\n");
  EXPECT_STREQ(sim_get("ftp", "right"), "3");
  EXPECT_STREQ(sim_get("ftp", "anonymous"), "1");
}

TEST_F(AccessRightConfig, FtpAnonymousFlagGoesOnAsItsLowByte) {
  EXPECT_EQ(RIGHTS(setFTPRightJni)(env(), self(), 1, static_cast<jboolean>(0x80)), 0);
  EXPECT_EQ(RIGHTS(setFTPRightJni)(env(), self(), 1, static_cast<jboolean>(0xFF)), 0);
  EXPECT_EQ(log(), "brelo_setFTPRight(1, 128)\nbrelo_setFTPRight(1, 255)\n");
}

TEST_F(AccessRightConfig, FtpRightPlatformFailureGivesMinusOne) {
  sim_program_result("brelo_setFTPRight", 7);
  EXPECT_EQ(RIGHTS(setFTPRightJni)(env(), self(), 2, JNI_FALSE), -1);
  sim_program_result("brelo_setFTPRight", -3);
  EXPECT_EQ(RIGHTS(setFTPRightJni)(env(), self(), 2, JNI_FALSE), -1);
}

TEST_F(AccessRightConfig, HttpRightIsCheckedAndNormalised) {
  EXPECT_EQ(RIGHTS(setHTTPRightJni)(env(), self(), -1), -1);
  EXPECT_EQ(RIGHTS(setHTTPRightJni)(env(), self(), 4), -1);
  EXPECT_EQ(log(), "");
  EXPECT_EQ(RIGHTS(setHTTPRightJni)(env(), self(), 3), 0);
  EXPECT_STREQ(sim_get("http", "right"), "3");
  sim_program_result("brelo_setHTTPRight", 2);
  EXPECT_EQ(RIGHTS(setHTTPRightJni)(env(), self(), 0), -1);
  EXPECT_EQ(log(), "brelo_setHTTPRight(3)\nbrelo_setHTTPRight(0)\n");
}

TEST_F(AccessRightConfig, SambaRightReportsSuccessAndChangesNothing) {
  sim_set("samba account 1", "user", "media");
  for (jint right : {0, 3, 4, -1, INT_MIN})
    EXPECT_EQ(RIGHTS(setSambaRightJni)(env(), self(), right), 0) << right;
  EXPECT_EQ(log(), "");
  EXPECT_EQ(sim_get("samba", "right"), nullptr);
  EXPECT_STREQ(sim_get("samba account 1", "user"), "media");
}

TEST_F(AccessRightConfig, SettersTraceTheirResult) {
  FlagFile flag(TRACE_FLAG_PATH, true);
  CaptureStdout out;
  RIGHTS(setFTPRightJni)(env(), self(), 9, JNI_FALSE);
  RIGHTS(setHTTPRightJni)(env(), self(), 1);
  RIGHTS(setSambaRightJni)(env(), self(), 1);
  RIGHTS(addFTPAccountJni)(env(), self(), jvm().str("u"), jvm().str(""));
  RIGHTS(deleteAllSambaAccountJni)(env(), self());
  const std::string prefix = "Java_com_lumarest_smartgateway_commservices_DeviceAccessRightConfigServiceImp_";
  EXPECT_EQ(mask_line_numbers(out.finish()),
            prefix + "setFTPRightJni:N:setFTPRightJni: return code = -1   leave============>\n" +
                prefix + "setHTTPRightJni:N:setHTTPRightJni: return code = 0   leave============>\n" +
                prefix + "setSambaRightJni:N:setSambaRightJni: return code = 0   leave============>\n" +
                prefix + "addFTPAccountJni:N:addFTPAccountJni: return code = -1   leave============>\n" +
                prefix + "deleteAllSambaAccountJni:N:deleteAllSambaAccountJni: return code = 0   leave============>\n");
}

TEST_F(AccessRightConfig, NothingIsPrintedWithoutTheFlagFile) {
  CaptureStdout out;
  RIGHTS(setHTTPRightJni)(env(), self(), 1);
  RIGHTS(deleteFTPAccountJni)(env(), self(), jvm().str("x"));
  EXPECT_EQ(out.finish(), "");
}

TEST_F(AccessRightConfig, AccountsAreAddedAndDeleted) {
  for (const AccountService &svc : kServices) {
    SCOPED_TRACE(svc.name);
    sim_reset();
    sim_clear_log();
    EXPECT_EQ(svc.add(env(), self(), jvm().str("anna"), jvm().str("pw1")), 0);
    EXPECT_EQ(svc.add(env(), self(), jvm().str("bob"), jvm().str("pw2")), 0);
    std::string first = std::string(svc.name) + " account 1";
    std::string second = std::string(svc.name) + " account 2";
    EXPECT_STREQ(sim_get(first.c_str(), "user"), "anna");
    EXPECT_STREQ(sim_get(second.c_str(), "password"), "pw2");
    EXPECT_EQ(svc.remove(env(), self(), jvm().str("anna")), 0);
    EXPECT_EQ(sim_get(first.c_str(), "user"), nullptr);
    EXPECT_EQ(svc.remove(env(), self(), jvm().str("anna")), -1);  // no longer there
    EXPECT_EQ(svc.remove_all(env(), self()), 0);
    EXPECT_EQ(sim_get(second.c_str(), "user"), nullptr);
    EXPECT_EQ(log(), std::string(svc.platform_add) + "(\"anna\", \"pw1\")\n" + svc.platform_add +
                         "(\"bob\", \"pw2\")\n" + svc.platform_delete + "(\"anna\")\n" +
                         svc.platform_delete + "(\"anna\")\n" + svc.platform_delete_all + "()\n");
  }
  EXPECT_EQ(jvm().acquired(), 2 * 6);
  EXPECT_EQ(jvm().released(), 2 * 6);
}

TEST_F(AccessRightConfig, AddAccountTakesBothTextsAndGivesThemBackInOrder) {
  jstring user = jvm().str("anna");
  jstring pass = jvm().str("secret");
  EXPECT_EQ(RIGHTS(addFTPAccountJni)(env(), self(), user, pass), 0);
  EXPECT_EQ(jvm().events_text().rfind("GetStringUTFChars(s1)\nGetStringUTFChars(s2)\n"
                                      "ReleaseStringUTFChars(s1)\nReleaseStringUTFChars(s2)\n",
                                      0),
            0u)
      << jvm().events_text();
}

TEST_F(AccessRightConfig, AddAccountNeedsTwoNonEmptyTexts) {
  for (const AccountService &svc : kServices) {
    SCOPED_TRACE(svc.name);
    EXPECT_EQ(svc.add(env(), self(), jvm().str("anna"), jvm().str("")), -1);
    EXPECT_EQ(svc.add(env(), self(), jvm().str(""), jvm().str("pw")), -1);
    EXPECT_EQ(svc.add(env(), self(), jvm().str(""), jvm().str("")), -1);
    EXPECT_EQ(svc.add(env(), self(), nullptr, jvm().str("pw")), -1);
    EXPECT_EQ(svc.add(env(), self(), jvm().str("anna"), nullptr), -1);
    EXPECT_EQ(svc.add(env(), self(), nullptr, nullptr), -1);
  }
  EXPECT_EQ(log(), "");
  // Every text that was had is given back; null strings never reach the JVM.
  EXPECT_EQ(jvm().acquired(), 2 * 8);
  EXPECT_EQ(jvm().released(), 2 * 8);
}

TEST_F(AccessRightConfig, AddAccountAsksForNoPasswordOnceTheNameCannotBeCopied) {
  EXPECT_EQ(RIGHTS(addSambaAccountJni)(env(), self(), jvm().failing_str("anna"), jvm().str("pw")), -1);
  EXPECT_EQ(jvm().pending_exception(), "java/lang/OutOfMemoryError");
  jvm().clear_exception();  // Java has thrown
  EXPECT_EQ(RIGHTS(addFTPAccountJni)(env(), self(), jvm().str("anna"), jvm().failing_str("pw")), -1);
  EXPECT_EQ(log(), "");
  // With the name's copy failed the password is not asked for.
  EXPECT_EQ(jvm().acquired(), 3);
  // Only the copies that were had are given back; a failed copy has nothing to give back.
  EXPECT_EQ(jvm().released(), 1);
  EXPECT_EQ(jvm().null_releases(), 0);
}

TEST_F(AccessRightConfig, AddAccountReportsAPlatformRefusalAsMinusOne) {
  for (int i = 1; i <= 6; ++i) {
    std::string user = "user" + std::to_string(i);
    EXPECT_EQ(RIGHTS(addFTPAccountJni)(env(), self(), jvm().str(user), jvm().str("pw")), 0);
  }
  // The record carries six accounts: the simulated platform refuses a seventh, and a name
  // already there.
  EXPECT_EQ(RIGHTS(addFTPAccountJni)(env(), self(), jvm().str("user7"), jvm().str("pw")), -1);
  EXPECT_EQ(RIGHTS(addSambaAccountJni)(env(), self(), jvm().str("m"), jvm().str("pw")), 0);
  EXPECT_EQ(RIGHTS(addSambaAccountJni)(env(), self(), jvm().str("m"), jvm().str("pw")), -1);
  sim_program_result("brelo_addSambaAccount", 5);
  EXPECT_EQ(RIGHTS(addSambaAccountJni)(env(), self(), jvm().str("n"), jvm().str("pw")), -1);
}

TEST_F(AccessRightConfig, DeleteAccountNeedsANonEmptyName) {
  for (const AccountService &svc : kServices) {
    SCOPED_TRACE(svc.name);
    EXPECT_EQ(svc.remove(env(), self(), jvm().str("")), -1);
    EXPECT_EQ(svc.remove(env(), self(), nullptr), -1);
    EXPECT_EQ(svc.remove(env(), self(), jvm().failing_str()), -1);
    jvm().clear_exception();  // Java has thrown
  }
  EXPECT_EQ(log(), "");
  EXPECT_EQ(jvm().acquired(), 4);
  EXPECT_EQ(jvm().released(), 2);
  EXPECT_EQ(jvm().null_releases(), 0);
}

TEST_F(AccessRightConfig, DeleteAllNormalisesThePlatformResult) {
  sim_program_result("brelo_deleteAllFTPAccount", 1);
  sim_program_result("brelo_deleteAllSambaAccount", -8);
  EXPECT_EQ(RIGHTS(deleteAllFTPAccountJni)(env(), self()), -1);
  EXPECT_EQ(RIGHTS(deleteAllSambaAccountJni)(env(), self()), -1);
  EXPECT_EQ(log(), "brelo_deleteAllFTPAccount()\nbrelo_deleteAllSambaAccount()\n");
}

TEST_F(AccessRightConfig, HttpPasswordIsSetWhenNonEmpty) {
  EXPECT_EQ(RIGHTS(setHTTPUserPasswordJni)(env(), self(), jvm().str("n3w-pass")), 0);
  EXPECT_STREQ(sim_get("http", "password"), "n3w-pass");
  EXPECT_EQ(RIGHTS(setHTTPUserPasswordJni)(env(), self(), jvm().str("")), -1);
  EXPECT_EQ(RIGHTS(setHTTPUserPasswordJni)(env(), self(), nullptr), -1);
  EXPECT_EQ(RIGHTS(setHTTPUserPasswordJni)(env(), self(), jvm().failing_str()), -1);
  jvm().clear_exception();  // Java has thrown
  sim_program_result("brelo_setHTTPUserPassword", 3);
  EXPECT_EQ(RIGHTS(setHTTPUserPasswordJni)(env(), self(), jvm().str("x")), -1);
  EXPECT_EQ(log(), "brelo_setHTTPUserPassword(\"n3w-pass\")\nbrelo_setHTTPUserPassword(\"x\")\n");
  EXPECT_EQ(jvm().released(), 3);
  EXPECT_EQ(jvm().null_releases(), 0);
}

}  // namespace

// Unity builds compile several test files as one unit: the macros end with the file.
#undef RIGHTS
